#include <gtest/gtest.h>

#include "BrellSharedSync/RecordMerge.h"
#include "tests/BrellSharedSync/RandomFields.h"

namespace {

using shared::Author;
using shared::FieldSet;
using shared::kindOfRecord;
using shared::merge;

const auto& noteKind = *kindOfRecord("o:1");
const auto& storyKind = *kindOfRecord("s:1");
const auto& newsroomKind = *kindOfRecord("n:1");

TEST(Merge, GivesTheSameInWhateverOrderAndHoweverOften) {
    for (std::uint64_t seed = 0; seed < 3'000; ++seed) {
        shared::random::Dice dice(seed);
        const auto kinds = shared::recordKinds();
        const auto& kind = kinds[dice.below(kinds.size())];
        const auto a = shared::random::fields(kind, dice);
        const auto b = shared::random::fields(kind, dice);
        const auto c = shared::random::fields(kind, dice);
        const auto ab = merge(kind, a, b);
        ASSERT_EQ(ab, merge(kind, b, a)) << "seed " << seed;
        ASSERT_EQ(ab, merge(kind, ab, b)) << "seed " << seed;
        ASSERT_EQ(a, merge(kind, a, a)) << "seed " << seed;
        ASSERT_EQ(merge(kind, ab, c), merge(kind, a, merge(kind, b, c))) << "seed " << seed;
    }
}

TEST(Merge, ForgetsAncestorsAlikeInWhateverOrder) {
    const auto withAncestors = [](std::int64_t from, std::int64_t step) {
        shared::Cell cell{{from + 300 * step, "aa"}, "x", {}};
        for (std::int64_t i = 0; i < 150; ++i) cell.saw.push_back({from + i * step, "aa"});
        FieldSet fields;
        fields.put("text", cell);
        return fields;
    };
    const auto a = withAncestors(1, 3);
    const auto b = withAncestors(100, 2);
    const auto c = withAncestors(50, 5);
    const auto merged = merge(noteKind, merge(noteKind, a, b), c);
    EXPECT_EQ(merged, merge(noteKind, a, merge(noteKind, b, c)));
    EXPECT_EQ(merged.find("text")->saw.size(), shared::kMostAncestors);
}

TEST(Merge, WhatAVersionDoesNotKnowSurvivesIt) {
    for (std::uint64_t seed = 0; seed < 500; ++seed) {
        shared::random::Dice dice(seed);
        auto mine = shared::random::fields(noteKind, dice);
        auto theirs = shared::random::fields(noteKind, dice);
        const shared::Cell unknown{{9, "cc"}, shared::random::value(dice), {{4, "dd"}}};
        (dice.oneIn(2) ? mine : theirs).put("invented later/x/y", unknown);
        const auto merged = FieldSet::parse(merge(noteKind, mine, theirs).text());
        ASSERT_EQ(*merged.find("invented later/x/y"), unknown);
    }
}

TEST(Merge, OfASnapshotTheFirstStaysOfOtherFieldsTheLatest) {
    FieldSet early;
    FieldSet late;
    early.set("title", "as published", {"bb", 10});
    late.set("title", "as changed", {"aa", 20});
    EXPECT_EQ(merge(storyKind, early, late).value("title"), "as published");
    EXPECT_EQ(merge(noteKind, early, late).value("title"), "as changed");
}

TEST(Merge, MembersOfASetAreAddedAndRemovedEachByItself) {
    FieldSet mine;
    mine.set("tags/a", true, {"aa", 1});
    mine.set("tags/b", true, {"aa", 1});
    auto theirs = mine;
    mine.set("tags/a", false, {"aa", 5});
    theirs.set("tags/c", true, {"bb", 5});
    const auto merged = merge(noteKind, mine, theirs);
    EXPECT_EQ(merged.value("tags/a"), false);
    EXPECT_EQ(merged.value("tags/b"), true);
    EXPECT_EQ(merged.value("tags/c"), true);
}

/// What two machines did to a record that both had, with clocks that may be wrong.
struct Removal {
    const char* id;
    std::int64_t editorsClock;
    std::int64_t removersClock;
    bool removerSawTheEdit;
    bool isGone;
};

TEST(Merge, AnEditUnknownToTheRemoverBringsContentBackAndNothingElse) {
    const Removal table[] = {
        {"o:1", 50, 100, false, false}, {"o:1", 100, 50, false, false},
        {"o:1", 50, 100, true, true},   {"o:1", 100, 50, true, true},
        {"c:1", 50, 100, false, false}, {"p:1", 50, 100, false, false},
        {"g:1", 50, 100, false, false}, {"p:1", 100, 50, true, true},
        {"f:1", 50, 100, false, true},  {"f:1", 100, 50, false, true},
        {"n:1", 100, 50, false, true},  {"b:1", 100, 50, false, true},
        {"s:1", 100, 50, false, true},
    };
    for (const auto& row : table) {
        const auto& kind = *kindOfRecord(row.id);
        FieldSet first;
        first.set("name", "first", {"aa", 10});
        auto edited = first;
        edited.set("name", "edited", {"aa", row.editorsClock});
        auto removed = row.removerSawTheEdit ? merge(kind, first, edited) : first;
        shared::remove(removed, {"bb", row.removersClock});
        EXPECT_TRUE(isGone(kind, removed)) << row.id;
        EXPECT_EQ(isGone(kind, merge(kind, edited, removed)), row.isGone)
            << row.id << " " << row.editorsClock << " " << row.removersClock;
        EXPECT_TRUE(isGone(kind, merge(kind, first, removed))) << row.id;
    }
}

TEST(Merge, ARemovalThatWasTakenBackStaysSoAndCanBeRepeated) {
    for (const auto* id : {"o:1", "f:1"}) {
        const auto& kind = *kindOfRecord(id);
        FieldSet fields;
        fields.set("name", "x", {"aa", 10});
        remove(fields, {"aa", 11});
        const auto removed = fields;
        bringBack(fields, {"bb", 5});
        EXPECT_FALSE(isGone(kind, merge(kind, removed, fields)));
        remove(fields, {"aa", 5});
        EXPECT_TRUE(isGone(kind, merge(kind, removed, fields)));
    }
}

TEST(Merge, TwoRemovalsKnowWhatEitherKnew) {
    FieldSet first;
    first.set("title", "x", {"aa", 10});
    auto edited = first;
    edited.set("tags/a", true, {"aa", 20});
    auto knowing = edited;
    remove(knowing, {"aa", 30});
    auto unknowing = first;
    remove(unknowing, {"bb", 40});
    EXPECT_FALSE(isGone(noteKind, merge(noteKind, edited, unknowing)));
    EXPECT_TRUE(isGone(noteKind, merge(noteKind, knowing, unknowing)));
}

TEST(Merge, ATextThatAMachineWoveFromWhatWasRemovedBringsNothingBack) {
    FieldSet first;
    first.setText("text", "a\nb\nc\n", Author{"aa", 10});
    auto mine = first;
    mine.setText("text", "1\nb\nc\n", Author{"aa", 20});
    auto theirs = first;
    theirs.setText("text", "a\nb\n3\n", Author{"bb", 20});
    const auto base = textsOf(noteKind, first);
    const auto woven = mergeRecords("o:1", noteKind, mine, theirs, base, {"cc", 30}).fields;
    ASSERT_EQ(woven.value("text"), "1\nb\n3\n");
    remove(mine, {"aa", 40});
    EXPECT_FALSE(isGone(noteKind, merge(noteKind, woven, mine)));
    remove(theirs, {"bb", 40});
    EXPECT_TRUE(isGone(noteKind, merge(noteKind, merge(noteKind, woven, mine), theirs)));
}

TEST(Merge, APanelThatIsMovedHereWhileItIsRemovedThereStays) {
    FieldSet first;
    first.set("panels/p/frame", 1, {"aa", 10});
    auto moved = first;
    moved.set("panels/p/frame", 2, {"aa", 20});
    auto removed = first;
    removeEntry(removed, "panels/p", {90, "bb"});
    EXPECT_TRUE(isEntryGone(merge(newsroomKind, first, removed), "panels/p"));
    EXPECT_FALSE(isEntryGone(merge(newsroomKind, moved, removed), "panels/p"));
}

}  // namespace
