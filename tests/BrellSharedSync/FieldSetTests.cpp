#include <gtest/gtest.h>

#include "BrellSharedSync/FieldSet.h"

namespace {

using shared::Author;
using shared::FieldSet;
using shared::Stamp;
namespace json = boost::json;

TEST(FieldSet, AnEditComesBehindWhatItsAuthorSawWhateverTheClocksSay) {
    const Author fast{"fast", 2'000'000'000'000};
    const Author slow{"slow", 5};
    FieldSet fields;
    EXPECT_TRUE(fields.set("title", "one", fast));
    const auto first = fields.find("title")->stamp;
    EXPECT_TRUE(fields.set("title", "two", slow));
    EXPECT_GT(fields.find("title")->stamp, first);
    EXPECT_EQ(fields.find("title")->stamp.machine, "slow");
    // Of the same record another field, too: one machine's stamps rise although its clock fell.
    EXPECT_TRUE(fields.set("author", "Ann", slow));
    EXPECT_GT(fields.find("author")->stamp, fields.find("title")->stamp);
}

TEST(FieldSet, ACloneWhoseClockIsBehindWritesUnderAStampOfItsOwn) {
    FieldSet fields;
    fields.set("title", "x", {"fast", 2'000'000'000'000});
    const auto first = fields.next({"cloned", 1'750'000'000'100});
    const auto second = fields.next({"cloned", 1'750'000'000'101});
    EXPECT_NE(first, second);
    EXPECT_LT(first.milliseconds, 2'000'000'002'000);
}

TEST(FieldSet, WritingWhatIsThereIsNoEdit) {
    const Author author{"m", 1000};
    FieldSet fields;
    EXPECT_FALSE(fields.set("author", nullptr, author));
    fields.set("query", json::object{{"a", 1}, {"b", 2}}, author);
    const auto before = fields;
    EXPECT_FALSE(fields.set("query", json::object{{"b", 2}, {"a", 1}}, {"m", 9000}));
    EXPECT_EQ(fields, before);
    EXPECT_TRUE(fields.set("query", nullptr, {"m", 9000}));
    EXPECT_NE(fields.find("query"), nullptr);
}

TEST(FieldSet, ATextRemembersTheLastTextsThatItGrewFrom) {
    FieldSet fields;
    for (int i = 0; i < 250; ++i) {
        fields.setText("text", json::string(std::to_string(i)), {"m", 1000 + i});
    }
    const auto* cell = fields.find("text");
    ASSERT_EQ(cell->saw.size(), shared::kMostAncestors);
    EXPECT_EQ(cell->saw.front(), (Stamp{1049, "m"}));
    EXPECT_EQ(cell->saw.back(), (Stamp{1248, "m"}));
    // Two hundred ancestors by one machine take little more than a kilobyte.
    EXPECT_LT(fields.text().size(), 1'200U);
}

TEST(FieldSet, ItsJSONReadsBackAsItWas) {
    FieldSet fields;
    fields.set("title", "Ti\"m", {"aa", 5});
    fields.set("tags/a/b", true, {"bb", 3});
    fields.setText("text", "x", {"aa", 9});
    fields.setText("text", "y", {"bb", 9});
    fields.set("size", 1.5, {"aa", 5});
    fields.set("unheard-of", json::object{{"z", json::array{1, nullptr}}, {"a", -7}}, {"cc", 1});
    const auto text = fields.text();
    EXPECT_EQ(FieldSet::parse(text), fields);
    EXPECT_EQ(FieldSet::parse(text).text(), text);
}

TEST(FieldSet, WhatIsNoRecordIsRefused) {
    for (const char* text :
         {"", "[]", "{\"a\":1}", "{\"a\":[\"5-m\"]}", "{\"a\":[\"5\",1]}", "{\"a\":[\"x-m\",1]}",
          "{\"a\":[\"-5-m\",1]}", "{\"a\":[\"5-M\",1]}", "{\"a\":[\"5-\",1]}",
          "{\"a\":[\"5 -m\",1]}", "{\"a\":[\"99999999999999999999-m\",1]}",
          "{\"a\":[\"9007199254740993-m\",1]}", "{\"a\":[\"5-m\",1,[]]}",
          "{\"a\":[\"5-m\",1,{\"m\":[-1]}]}", "{\"a\":[\"5-m\",1,{\"m\":[9007199254740991,1]}]}",
          "{\"a\":[\"5-m\",1,{},2]}"}) {
        EXPECT_THROW(FieldSet::parse(text), kit::RecordError) << text;
    }
}

}  // namespace
