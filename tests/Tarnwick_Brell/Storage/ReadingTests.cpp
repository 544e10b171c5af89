#include <gtest/gtest.h>

#include <algorithm>

#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {
namespace {

using kit::Instant;
using kit::Story;
using LastWord = SearchText::LastWord;

Instant at(int second) { return Instant(std::chrono::seconds(second)); }

Story story(std::string id, int second, std::string title, std::string summary = "",
            std::optional<std::string> author = std::nullopt) {
    return {.id = id,
            .link = "https://a.example/" + id,
            .title = std::move(title),
            .summary = std::move(summary),
            .author = std::move(author),
            .publishedAt = at(second),
            .sourceID = second < 15 ? "old" : "new",
            .sourceName = "A"};
}

/// The wire, newest first: f e d c b a.
class Reading : public ::testing::Test {
protected:
    Reading() {
        merge({
            story("a", 10, "Apple ships the HomePad", "Clay and cloud are sold out.", "Ida Brandt"),
            story("b", 11, "Café owners wait for HomePads", "Nobody told Apple’s partners."),
            story("c", 12, "AND OR NOT NEAR(5) title", "The author said \"so\"."),
            story("d", 20, "Wi-Fi 8 arrives", "It ships in iOS 27.1, says Ida.", "Jon Wi"),
            story("e", 21, "\uF8FF Watch and the Straße", "apple apple apple"),
            story("f", 22, "新しい iPhone", "nothing else", "Ida Brandtner"),
        });
    }

    void merge(std::vector<Story> stories) {
        auto transaction = store_.transaction();
        store_.merging().merge(stories, {.seen = at(30)}, store_.state().nextStamp());
        transaction.commit();
    }

    std::string found(const StorySelection& selection, std::size_t limit = 100) {
        std::string ids;
        store_.search().each(selection, [&](const StoredStory& stored) {
            ids += stored.story.id;
            return ids.size() < limit;
        });
        return ids;
    }
    std::string found(std::string_view typed, LastWord last = LastWord::complete) {
        return found({.search = SearchText::parse(typed, last)});
    }
    std::string unread() { return found({.unread = true}); }

    MarkTable& marks() { return store_.marks(); }

    /// "unread: ab", or "nothing".
    std::string undo() {
        const auto undone = marks().undoLastChange(at(1000));
        if (!undone) return "nothing";
        std::string text = undone->on ? "" : (undone->mark == Mark::read ? "un" : "not ");
        text += undone->mark == Mark::read ? "read: " : "saved: ";
        for (const auto number : undone->numbers) {
            text += store_.stories().findByNumber(number)->story.id;
        }
        return text;
    }

    /// What another desk would load, which has seen everything up to the stamp.
    std::string changedAfter(std::int64_t stamp) {
        std::string ids;
        store_.stories().eachChangedAfter(stamp, [&](const StoredStory& stored) {
            ids += stored.story.id;
            return true;
        });
        std::sort(ids.begin(), ids.end());
        return ids;
    }

    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
};

using IDs = std::vector<std::string>;

TEST_F(Reading, ASearchFindsWhatItsWordsMean) {
    struct Case {
        std::string typed;
        const char* complete;
        const char* stillTyped;
    };
    const Case cases[] = {
        {"apple", "eba", "eba"},
        {"APPLE ships", "a", "a"},
        {"cafe", "b", "b"},
        {"homepad", "a", "ba"},
        {"homepad ", "a", "a"},
        {"home*", "ba", "ba"},
        {"home* sold", "a", "a"},
        {"\"the homepad\"", "a", "a"},
        {"“the homepad”", "a", "a"},
        {"\"the homep", "", "a"},
        {"\"the homep\"*", "a", "a"},
        {"\"homepad the\"", "", ""},
        {"apple -ships", "eb", "eb"},
        {"apple -\"sold out\" -strasse -straße", "b", "b"},
        {"-apple", "fdc", "fdc"},
        {"-ap", "fedcba", "fedcba"},
        {"author:ida", "fa", "fa"},
        {"ida", "fda", "fda"},
        {"AUTHOR:\"ida brandt\"", "a", "a"},
        {"author:brandt*", "fa", "fa"},
        {"-author:ida ships", "d", "d"},
        {"author:", "c", "c"},
        {"author: said", "c", "c"},
        {"apple's", "b", "ba"},
        {"wi-fi", "d", "d"},
        {"27.1", "d", "d"},
        {"\uF8FF", "e", "e"},
        {"新しい", "f", "f"},
        {"AND OR NOT NEAR(5", "c", "c"},
        {"title:and", "", ""},
        {"apple ^ + { } ( ) ! - \" *", "eba", "eba"},
        {std::string("apple\0ships", 11), "a", "a"},
        {"apple\xFF ships\xE2\x80", "a", "a"},
        {"so\"", "c", "c"},
        {"nowhere", "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(found(c.typed), c.complete) << c.typed;
        EXPECT_EQ(found(c.typed, LastWord::stillTyped), c.stillTyped) << c.typed << "…";
    }
}

TEST_F(Reading, WhateverIsTypedIsNoErrorAndBounded) {
    for (const auto* nothing :
         {"", "   ", "...", "\"", "\"\"", "-", "- -\"", "*", "(((", "🍎", "\u0301"}) {
        EXPECT_TRUE(SearchText::parse(nothing).isEmpty()) << nothing;
    }
    const std::string pieces[] = {"\"",  "'",   "-",    "*",   "author:", "title:", "NEAR(", ")",
                                  "AND", "NOT", "\xC3", ";--", "{a b}:",  "x",      " ",     "“"};
    for (const auto& one : pieces) {
        for (const auto& two : pieces) {
            for (const auto& three : pieces) {
                const auto typed = one + two + three;
                EXPECT_NO_THROW(found(typed, LastWord::stillTyped)) << typed;
            }
        }
    }
    std::string words;
    while (words.size() < 10'000) words += "x y\" -";
    EXPECT_NO_THROW(found(words));
    EXPECT_NO_THROW(found(std::string(10'000, 'x')));
    EXPECT_LE(SearchText::parse(words).wanted.size(), 20 * SearchText::kMostBytes);
    const auto cut = SearchText::parse("apple " + std::string(SearchText::kMostBytes, 'x'));
    EXPECT_EQ(cut, SearchText::parse("apple")) << "no half words";
}

TEST_F(Reading, SelectionsCombineAndStopEarly) {
    marks().markRead(IDs{"e"}, at(40));
    marks().save(IDs{"a", "e"}, at(41));
    const auto apple = SearchText::parse("apple");
    EXPECT_EQ(found({.search = apple, .unread = true}), "ba");
    EXPECT_EQ(found({.search = apple, .saved = true}), "ea");
    EXPECT_EQ(found({.saved = true}), "ea");
    EXPECT_EQ(found({.unread = true, .saved = true}), "a");
    EXPECT_EQ(found({.search = apple, .since = at(11), .before = at(21)}), "b");
    EXPECT_EQ(found({.sourceIDs = {"old", "none"}, .since = at(11)}), "cb");
    EXPECT_EQ(found({.search = SearchText::parse("-apple"), .sourceIDs = {"new"}}), "fd");
    EXPECT_EQ(found({}, 2), "fe");
    EXPECT_EQ(found({.search = apple}, 1), "e");
}

TEST_F(Reading, TheIndexFollowsRevisedAndDroppedStories) {
    merge({story("a", 10, "Apple ships the Slate")});
    EXPECT_EQ(found("homepad sold"), "");
    EXPECT_EQ(found("slate"), "a");
    store_.stories().dropPublishedBefore(at(15), at(1000));
    EXPECT_EQ(found("apple"), "e");
}

TEST_F(Reading, MarksAreKeptCountedAndToldToOtherDesks) {
    const auto before = store_.state().lastStamp();
    EXPECT_EQ(marks().markRead(IDs{"a", "zz", "b", "a"}, at(50)), (Marked{2, {"zz"}}));
    EXPECT_EQ(marks().markRead(IDs{"a"}, at(99)).changed, 0u);
    EXPECT_EQ(marks().save(IDs{"b", "c"}, at(51)).changed, 2u);
    EXPECT_EQ(changedAfter(before), "abc");
    const auto b = store_.stories().findByID("b", 1).at(0);
    EXPECT_EQ(b.readAt, at(50));
    EXPECT_EQ(b.savedAt, at(51));
    EXPECT_EQ(marks().counts().read, 2u);
    EXPECT_EQ(marks().counts().saved, 2u);

    const auto later = store_.state().lastStamp();
    EXPECT_EQ(marks().markUnread(IDs{"a", "c"}).changed, 1u);
    EXPECT_EQ(marks().unsave(IDs{"c", "a"}).changed, 1u);
    EXPECT_EQ(changedAfter(later), "ac") << "marks that have gone are a change as well";
    EXPECT_EQ(unread(), "fedca");
    EXPECT_EQ(found({.saved = true}), "b");
    store_.stories().dropPublishedBefore(at(15), at(1000));
    EXPECT_EQ(marks().counts().saved, 1u) << "saved stories outlive their time, marks others'";
    EXPECT_EQ(found(StorySelection{}), "fedb");
}

TEST_F(Reading, AllReadIsTakenBackExactly) {
    marks().markRead(IDs{"a"}, at(50));
    EXPECT_EQ(marks().markAllRead({.sourceIDs = {"old"}}, at(50)), 2u) << "at a's very moment";
    EXPECT_EQ(unread(), "fed");
    EXPECT_EQ(marks().markAllRead({.before = at(12)}, at(52)), 0u);

    // What is read anew afterwards is the reader's own, at whatever moment the clock shows.
    const auto batch = *store_.stories().findByID("c", 1).at(0).readAt;
    const auto number = store_.stories().findByID("c", 1).at(0).number;
    marks().set(Mark::read, {number}, std::nullopt, Undoable::no);
    marks().set(Mark::read, {number}, batch, Undoable::no);
    const auto stamp = store_.state().lastStamp();
    EXPECT_EQ(undo(), "unread: b");
    EXPECT_EQ(unread(), "fedb");
    EXPECT_EQ(changedAfter(stamp), "b");
    EXPECT_EQ(undo(), "nothing");
    EXPECT_EQ(store_.stories().findByID("a", 1).at(0).readAt, at(50));

    EXPECT_EQ(marks().markAllRead({}, at(60)), 4u);
    merge({story("g", 40, "News")});
    EXPECT_EQ(undo(), "unread: bdef");
    EXPECT_EQ(unread(), "gfedb");
}

TEST_F(Reading, TheLastChangeOfMarksIsTakenBackWhateverItWas) {
    const auto all = [&](const char* id) { return store_.stories().findByID(id, 1).at(0); };
    marks().save(IDs{"a", "b"}, at(50));
    EXPECT_EQ(undo(), "not saved: ab");
    marks().save(IDs{"a"}, at(51));
    marks().unsave(IDs{"a", "b"});
    EXPECT_EQ(undo(), "saved: a");
    EXPECT_EQ(all("a").savedAt, at(51)) << "since when it was";
    marks().markRead(IDs{"c"}, at(52));
    marks().markUnread(IDs{"c"});
    EXPECT_EQ(undo(), "read: c");
    EXPECT_EQ(undo(), "nothing") << "only the last one";

    marks().markRead(IDs{"d"}, at(53));
    marks().markRead(IDs{"d"}, at(54));
    marks().set(Mark::read, {all("e").number}, at(55), Undoable::no);
    EXPECT_EQ(undo(), "unread: d") << "what changed nothing, or came by itself, is not undone";
}

}  // namespace
}  // namespace app
