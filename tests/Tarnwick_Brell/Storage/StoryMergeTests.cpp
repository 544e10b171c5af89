#include <gtest/gtest.h>

#include <map>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using kit::Instant;
using kit::Story;

Instant at(int minute) { return Instant(std::chrono::minutes(minute)); }

/// A story of source "a" whose id is its link's.
Story story(const std::string& id, const std::string& title, int minute) {
    return {.id = id,
            .link = "https://a.example/" + id,
            .title = title,
            .publishedAt = at(minute),
            .sourceID = "a",
            .sourceName = "A"};
}

class StoryMergeTest : public ::testing::Test {
protected:
    Merged fetch(const std::vector<Story>& stories, StoryMerge::Fetch terms) {
        auto transaction = store_.transaction();
        auto merged = store_.merging().merge(stories, terms, store_.state().nextStamp());
        transaction.commit();
        return merged;
    }

    StoredStory kept(const std::string& id) { return store_.stories().findByID(id, 1).at(0); }

    std::string wordings(const std::string& id) {
        std::string titles;
        for (const auto& wording : store_.stories().earlierWordings(kept(id).number)) {
            titles += wording.title + ";";
        }
        return titles;
    }

    test::TemporaryFolder folder_;
    LocalStore store_{folder_.path() / "library.sqlite", Database::Access::readWrite};
};

TEST_F(StoryMergeTest, EntriesThatShareALinkAreOneStoryAndDoNotTakeTurns) {
    const std::vector feed{story("1", "First", 1), story("1", "Second", 1), story("2", "Other", 1)};
    const auto first = fetch(feed, {.seen = at(5)});
    EXPECT_EQ(first.count.added, 2u);
    EXPECT_EQ(first.count.collapsed, 1u);
    EXPECT_EQ(fetch(feed, {.seen = at(10)}).count.revised, 0u);
    EXPECT_EQ(kept("1").story.title, "First");
}

TEST_F(StoryMergeTest, OnlyTheSourceThatBroughtAStoryRevisesIt) {
    fetch({story("1", "Ours", 1)}, {.seen = at(5)});
    Story theirs = story("1", "Theirs", 1);
    theirs.sourceID = "b";
    EXPECT_EQ(fetch({theirs}, {.seen = at(6)}).count.revised, 0u);
    EXPECT_EQ(kept("1").story.title, "Ours");
    EXPECT_EQ(kept("1").story.sourceID, "a");
}

TEST_F(StoryMergeTest, AChangedHeadlineKeepsItsFirstAndItsLatestWordings) {
    fetch({story("1", "Launch (0)", 1)}, {.seen = at(5)});
    for (int i = 1; i <= 30; ++i) {
        const auto merged =
            fetch({story("1", "Launch (" + std::to_string(i) + ")", 1)}, {.seen = at(5 + i)});
        EXPECT_EQ(merged.revised.at(0).firstSeen, at(5));
    }
    const auto earlier = store_.stories().earlierWordings(kept("1").number);
    EXPECT_EQ(earlier.size(), 20u);
    EXPECT_EQ(earlier.front().title, "Launch (0)");
    EXPECT_EQ(earlier.back().title, "Launch (29)");
    EXPECT_EQ(earlier.back().replacedAt, at(35));
    EXPECT_EQ(kept("1").story.title, "Launch (30)");

    fetch({story("2", "A", 1)}, {.seen = at(40)});
    for (const char* title : {"B", "A", "B"}) fetch({story("2", title, 1)}, {.seen = at(41)});
    EXPECT_EQ(wordings("2"), "A;") << "what it says now is no earlier wording";
}

TEST_F(StoryMergeTest, AStoryUnderAChangedLinkIsKnownByItsHeadline) {
    const auto titled = [](const std::string& prefix, int minute) {
        return std::vector{story(prefix + "1", "One thing", minute),
                           story(prefix + "2", "Another thing", minute),
                           story(prefix + "3", "A third thing", minute)};
    };
    fetch(titled("old", 100), {.seen = at(105)});
    struct Case {
        const char* what;
        std::vector<Story> feed;
        std::size_t added;
        std::size_t moved;
    };
    const Case cases[] = {
        {"an edited slug keeps its date", {story("e1", " ONE  thing", 130)}, 0, 1},
        {"next day's column has the same headline",
         {story("e2", "One thing", 100 + 24 * 60)},
         1,
         0},
        {"both are in the feed",
         {story("old2", "Another thing", 100), story("e3", "Another thing", 110)},
         1,
         0},
        {"all links rotate, and nothing is dated", titled("new", 5000), 0, 3},
        {"two headlines alone are no rotation",
         {story("e4", "A third thing", 9000), story("e5", "Another thing", 9000)},
         2,
         0},
    };
    for (const auto& [what, feed, added, moved] : cases) {
        const auto count = fetch(feed, {.seen = at(9001)}).count;
        EXPECT_EQ(count.added, added) << what;
        EXPECT_EQ(count.moved, moved) << what;
    }
    Story other = story("e6", "One thing", 100);
    other.sourceID = "b";
    EXPECT_EQ(fetch({other}, {.seen = at(105)}).count.added, 1u) << "another source's headline";
}

TEST_F(StoryMergeTest, ACrowdOfNewsIsMarkedUnlessItIsTheFirstFetch) {
    const auto crowd = [](const std::string& prefix, int size) {
        std::vector<Story> stories;
        for (int i = 0; i < size; ++i) {
            const auto id = prefix + std::to_string(i);
            stories.push_back(story(id, id, i * 100));
        }
        return stories;
    };
    fetch(crowd("a", 50), {.seen = at(1), .isFirst = true});
    EXPECT_TRUE(fetch(crowd("b", 41), {.seen = at(2)}).count.bulk);
    EXPECT_FALSE(fetch(crowd("c", 40), {.seen = at(3)}).count.bulk);
    EXPECT_EQ(kept("a7").arrival, Arrival::seeded);
    EXPECT_EQ(kept("b7").arrival, Arrival::bulk);
    EXPECT_EQ(kept("c7").arrival, Arrival::fresh);
}

TEST_F(StoryMergeTest, AnyNumberOfStoriesOfOneMomentKeepTheirOrder) {
    std::vector<Story> stories;
    for (int i = 0; i < 3000; ++i) {
        const auto id = std::to_string(10000 + i);
        stories.push_back(story(id, id, 1));
    }
    fetch(stories, {.seen = at(1)});
    fetch({story("0", "later", 1)}, {.seen = at(2)});
    std::vector<std::string> order;
    store_.stories().eachInWireOrder(std::nullopt, [&](const StoredStory& stored) {
        order.push_back(stored.story.id);
        return true;
    });
    ASSERT_EQ(order.size(), 3001u);
    EXPECT_EQ(order.front(), "0") << "what came later stands before";
    EXPECT_TRUE(std::is_sorted(order.begin() + 1, order.end()));
}

TEST_F(StoryMergeTest, RetentionAndCeilingSpareWhatIsSaved) {
    std::vector<Story> stories;
    for (int i = 0; i < 10; ++i) {
        const auto id = std::to_string(i);
        stories.push_back(story(id, id, i));
    }
    fetch(stories, {.seen = at(20)});
    store_.marks().save(std::vector<std::string>{"0", "5"}, at(21));
    EXPECT_EQ(store_.stories().dropPublishedBefore(at(2), at(30)).size(), 1u);
    EXPECT_EQ(store_.stories().dropBeyond(6, at(30)).size(), 3u);
    std::string left;
    store_.stories().eachInWireOrder(std::nullopt, [&](const StoredStory& stored) {
        left += stored.story.id;
        return true;
    });
    EXPECT_EQ(left, "987650");
    EXPECT_TRUE(store_.stories().dropBeyond(6, at(30)).empty());
}

TEST_F(StoryMergeTest, MarksOutliveTheirStoriesForASeasonAndCountNowhereMeanwhile) {
    const int day = 24 * 60;
    const std::vector feed{story("1", "Read", 1), story("2", "Read as well", 2),
                           story("3", "Unread", 3)};
    fetch(feed, {.seen = at(5)});
    store_.marks().markRead(std::vector<std::string>{"1", "2"}, at(7));
    const auto dropAll = [&](int minute) {
        store_.stories().dropPublishedBefore(at(2), at(minute));
        store_.stories().dropBeyond(0, at(minute));
        EXPECT_EQ(store_.marks().counts().read, 0u);
    };
    dropAll(10);
    const auto back = fetch(feed, {.seen = at(20)});
    for (const auto& stored : back.added) {
        EXPECT_EQ(stored.readAt.has_value(), stored.story.id != "3") << stored.story.id;
        EXPECT_EQ(kept(stored.story.id).readAt, stored.readAt);
    }
    EXPECT_EQ(store_.marks().counts().read, 2u);
    EXPECT_EQ(kept("1").readAt, at(7));

    dropAll(30);
    store_.stories().dropPublishedBefore(at(2), at(80 * day));
    fetch({feed[0]}, {.seen = at(80 * day)});
    store_.stories().dropPublishedBefore(at(0), at(30 + 91 * day));
    fetch({feed[1]}, {.seen = at(91 * day)});
    EXPECT_TRUE(kept("1").readAt);
    EXPECT_FALSE(kept("2").readAt);
}

TEST_F(StoryMergeTest, AnUndoTakesBackMarksOfDroppedStoriesToo) {
    const std::vector feed{story("1", "One", 1), story("2", "Two", 2)};
    fetch(feed, {.seen = at(5)});
    store_.marks().markAllRead({}, at(7));
    store_.stories().dropPublishedBefore(at(2), at(10));
    EXPECT_EQ(store_.marks().undoLastChange(at(15))->numbers.size(), 1u);
    fetch(feed, {.seen = at(20)});
    EXPECT_FALSE(kept("1").readAt);
}

TEST_F(StoryMergeTest, AnUndoneChangeOfADroppedStoryHoldsWhenItReturns) {
    const std::vector feed{story("1", "One", 1), story("2", "Two", 1)};
    const std::vector<std::string> first{"1"}, second{"2"};
    for (const auto mark : {Mark::read, Mark::saved}) {
        fetch(feed, {.seen = at(5)});
        store_.marks().markRead(first, at(6));
        mark == Mark::read ? store_.marks().markRead(second, at(7))
                           : store_.marks().save(second, at(7));
        mark == Mark::read ? store_.marks().markUnread(second) : store_.marks().unsave(second);
        store_.stories().dropPublishedBefore(at(2), at(10));
        const auto undone = store_.marks().undoLastChange(at(15)).value();
        EXPECT_TRUE(undone.numbers.empty());
        EXPECT_EQ(undone.pendingCount, 1u);
        EXPECT_EQ(store_.marks().counts().read, 0u);

        // The first to return gets the number that the second story had.
        fetch({feed[1], feed[0]}, {.seen = at(20)});
        EXPECT_EQ(kept("1").readAt, at(6));
        EXPECT_EQ(mark == Mark::read ? kept("2").readAt : kept("2").savedAt, at(7));
        store_.marks().markUnread(second);
    }
}

TEST_F(StoryMergeTest, AMarkThatComesBeforeItsStoryWaitsForIt) {
    const int day = 24 * 60;
    Database(folder_.path() / "library.sqlite", Database::Access::readWrite)
        .execute("INSERT INTO pendingMarks VALUES ('1', NULL, 420000000, 0)");
    EXPECT_EQ(store_.marks().counts().saved, 0u);
    store_.stories().dropPublishedBefore(at(0), at(200 * day));
    fetch({story("1", "Saved elsewhere", 1)}, {.seen = at(200 * day)});
    EXPECT_EQ(kept("1").savedAt, at(7)) << "what is saved is never forgotten";
    EXPECT_TRUE(store_.stories().dropPublishedBefore(at(5), at(200 * day)).empty());
}

TEST_F(StoryMergeTest, AnUndatedStoryThatWasDroppedDoesNotComeBackAsNews) {
    const int day = 24 * 60;
    fetch({story("1", "Undated", 10), story("2", "Dated", 5)}, {.seen = at(10)});
    store_.stories().dropPublishedBefore(at(day), at(day));
    EXPECT_EQ(fetch({story("1", "Undated", day)}, {.seen = at(day)}).count.added, 0u);
    EXPECT_EQ(fetch({story("2", "Dated", day - 30)}, {.seen = at(day)}).count.added, 1u)
        << "its feed says that it is of today";
    store_.stories().dropPublishedBefore(at(day), at(92 * day));
    EXPECT_EQ(fetch({story("1", "Undated", 92 * day)}, {.seen = at(92 * day)}).count.added, 1u);
}

TEST_F(StoryMergeTest, WhatAPageCreditsStaysWithItsStoryThroughLaterFetches) {
    Story ours = story("1", "Ours", 1);
    ours.credits = {{.name = "Harbor Post", .detail = "according to"}};
    fetch({ours}, {.seen = at(5)});
    const std::vector<kit::SourceCredit> ofPage{{.name = "Quay Times", .detail = "reported by"}};
    const auto add = [&](const std::string& id) {
        auto transaction = store_.transaction();
        const auto stamp = store_.state().nextStamp();
        const auto revised = store_.stories().addCredits(id, ofPage, stamp);
        transaction.commit();
        return revised.has_value();
    };
    const auto names = [&] {
        std::string text;
        for (const auto& credit : kept("1").story.credits) text += credit.name + ";";
        return text;
    };
    EXPECT_TRUE(add("1"));
    EXPECT_FALSE(add("1")) << "the same again";
    EXPECT_FALSE(add("2")) << "no such story";
    EXPECT_EQ(names(), "Harbor Post;Quay Times;");
    EXPECT_EQ(fetch({ours}, {.seen = at(6)}).count.revised, 0U);
    ours.credits = {};
    EXPECT_EQ(fetch({ours}, {.seen = at(7)}).count.revised, 1U);
    EXPECT_EQ(names(), "Quay Times;") << "only the feed has taken its credit back";
    {
        auto transaction = store_.transaction();
        store_.stories().dropPublishedBefore(at(2), at(8));
        transaction.commit();
    }
    fetch({ours}, {.seen = at(9)});
    EXPECT_EQ(names(), "") << "they went with the story";
}

}  // namespace
}  // namespace app
