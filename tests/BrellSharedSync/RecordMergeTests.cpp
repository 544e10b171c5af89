#include <gtest/gtest.h>

#include "BrellSharedSync/RecordFields.h"
#include "BrellSharedSync/RecordMerge.h"
#include "NewsroomKit/Library/Note.h"

namespace {

using shared::FieldSet;
using shared::mergeRecords;
namespace json = boost::json;

const auto& notes = *shared::kindOfRecord("o:1");
const auto& clips = *shared::kindOfRecord("c:1");

FieldSet noteOf(const char* text) {
    FieldSet fields;
    fields.set("title", "Chips", {"aa", 1'000});
    fields.set("tags/leaks", true, {"aa", 1'000});
    fields.setText("text", text, {"aa", 1'000});
    return fields;
}

FieldSet edited(FieldSet fields, const char* text, const shared::Author& author) {
    fields.setText("text", text, author);
    return fields;
}

TEST(RecordMerge, OneMachineTypingNeverConflictsWithItself) {
    auto fields = noteOf("a");
    const auto early = fields;
    for (int i = 0; i < 50; ++i) {
        fields.setText("text", json::string(std::to_string(i)), {"aa", 900});
    }
    for (const auto& merged : {mergeRecords("o:1", notes, fields, early, {}, {"bb", 1}),
                               mergeRecords("o:1", notes, early, fields, {}, {"bb", 1})}) {
        EXPECT_TRUE(merged.copies.empty());
        EXPECT_EQ(merged.fields, fields);
    }
}

TEST(RecordMerge, EditsOfOneTextAreWovenFromWhatBothGrewFrom) {
    const auto base = noteOf("1\n2\n3\n4\n");
    const auto mine = edited(base, "one\n2\n3\n4\n", {"aa", 2'000});
    const auto theirs = edited(base, "1\n2\n3\nfour\n", {"bb", 2'000});
    const auto texts = textsOf(notes, base);
    const auto merged = mergeRecords("o:1", notes, mine, theirs, texts, {"aa", 5});
    EXPECT_EQ(merged.fields.value("text"), "one\n2\n3\nfour\n");
    EXPECT_TRUE(merged.copies.empty());
    // Either side finds that it was seen.
    for (const auto& side : {mine, theirs}) {
        const auto again = mergeRecords("o:1", notes, side, merged.fields, texts, {"bb", 5});
        EXPECT_EQ(again.fields, merged.fields);
        EXPECT_TRUE(again.copies.empty());
    }
    // A text that they did not grow from is no base.
    const auto stranger = edited(base, "1\n2\n3\n4\n\n", {"cc", 1'500});
    const auto apart =
        mergeRecords("o:1", notes, mine, theirs, textsOf(notes, stranger), {"aa", 5});
    EXPECT_EQ(apart.copies.size(), 1U);
}

TEST(RecordMerge, EveryMachineKeepsTheLosingTextInTheSameCopy) {
    const auto base = noteOf("base");
    const auto mine = edited(base, "mine", {"aa", 2'000});
    const auto theirs = edited(base, "theirs", {"bb", 3'000});
    const auto here = mergeRecords("o:1", notes, mine, theirs, textsOf(notes, base), {"aa", 4'000});
    const auto there = mergeRecords("o:1", notes, theirs, mine, {}, {"bb", 9'000});
    EXPECT_EQ(here.fields.value("text"), "theirs");
    EXPECT_EQ(here.fields, there.fields);
    ASSERT_EQ(here.copies.size(), 1U);
    EXPECT_EQ(here.copies, there.copies);
    const auto& copy = here.copies.front();
    EXPECT_EQ(copy.fields.value("copyOf").at("id"), "o:1");
    auto record = recordJSON(notes, copy.fields);
    record["id"] = json::string(copy.id.substr(2));
    const auto note = kit::decode<kit::Note>(record);
    EXPECT_EQ(note.text, "mine");
    EXPECT_EQ(note.title, "Chips");
    EXPECT_EQ(note.tags, std::vector<std::string>{"leaks"});
    EXPECT_EQ(note.id.size(), 36U);
    // Another losing text is another copy, and the loser of the same note elsewhere too.
    const auto other = edited(base, "other", {"aa", 2'000});
    EXPECT_NE(mergeRecords("o:1", notes, other, theirs, {}, {"aa", 1}).copies.front().id, copy.id);
    EXPECT_NE(mergeRecords("o:2", notes, mine, theirs, {}, {"aa", 1}).copies.front().id, copy.id);
}

TEST(RecordMerge, EqualTextsAndEmptiedOnesMakeNoCopy) {
    const auto base = noteOf("base");
    const auto mine = edited(base, "same", {"aa", 2'000});
    const auto theirs = edited(base, "same", {"bb", 3'000});
    EXPECT_TRUE(mergeRecords("o:1", notes, mine, theirs, {}, {"aa", 1}).copies.empty());
    const auto emptied = edited(base, "", {"aa", 2'000});
    const auto merged = mergeRecords("o:1", notes, emptied, theirs, {}, {"aa", 1});
    EXPECT_TRUE(merged.copies.empty());
    EXPECT_EQ(merged.fields.value("text"), "same");
}

TEST(RecordMerge, TheSameStampOnTwoClonesKeepsBothTexts) {
    const auto base = noteOf("base");
    const auto mine = edited(base, "x", {"aa", 2'000});
    const auto theirs = edited(base, "y", {"aa", 2'000});
    const auto merged = mergeRecords("o:1", notes, mine, theirs, {}, {"cc", 1});
    EXPECT_EQ(merged.fields.value("text"), "y");
    ASSERT_EQ(merged.copies.size(), 1U);
    EXPECT_EQ(merged.copies.front().fields.value("text"), "x");
}

TEST(RecordMerge, ATextThatTheRemoverDidNotKnowOutlivesTheOneThatWasRemoved) {
    const auto base = noteOf("base");
    auto removed = edited(base, "removed", {"aa", 5'000});
    remove(removed, {"aa", 6'000});
    const auto theirs = edited(base, "kept", {"bb", 2'000});
    for (const auto& merged : {mergeRecords("o:1", notes, removed, theirs, {}, {"aa", 7'000}),
                               mergeRecords("o:1", notes, theirs, removed, {}, {"bb", 1})}) {
        EXPECT_EQ(merged.fields.value("text"), "kept");
        EXPECT_TRUE(merged.copies.empty());
        EXPECT_TRUE(merged.cameBack);
        EXPECT_FALSE(isGone(notes, merged.fields));
    }
    EXPECT_FALSE(mergeRecords("o:1", notes, base, removed, {}, {"bb", 1}).cameBack);
}

TEST(RecordMerge, TheLosingNoteOfAClipBecomesANoteOfItsStory) {
    FieldSet base;
    base.set("storyID", "4711", {"aa", 10});
    base.set("title", "A headline", {"aa", 10});
    base.setText("note", "base", {"aa", 10});
    auto mine = base;
    mine.setText("note", "mine", {"aa", 20});
    auto theirs = base;
    theirs.setText("note", "theirs", {"bb", 30});
    const auto merged = mergeRecords("c:1", clips, mine, theirs, textsOf(clips, base), {"aa", 40});
    EXPECT_EQ(merged.fields.value("note"), "theirs");
    ASSERT_EQ(merged.copies.size(), 1U);
    const auto record = recordJSON(notes, merged.copies.front().fields);
    EXPECT_EQ(record.at("text"), "mine");
    EXPECT_EQ(record.at("storyIDs"), (json::array{"4711"}));
}

}  // namespace
