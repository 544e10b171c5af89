#include <gtest/gtest.h>

#include "BrellSharedSync/Merge.h"
#include "BrellSharedSync/Rank.h"
#include "BrellSharedSync/RecordFields.h"
#include "NewsroomKit/Library/Clip.h"
#include "NewsroomKit/Library/Note.h"
#include "NewsroomKit/Library/Project.h"
#include "NewsroomKit/Library/SavedStory.h"
#include "NewsroomKit/Newsrooms/Beat.h"
#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "NewsroomKit/Pages/FollowedPage.h"
#include "tests/BrellSharedSync/RandomFields.h"

namespace {

using shared::Author;
using shared::FieldSet;
using shared::recordJSON;
using shared::writeRecord;
namespace json = boost::json;

template <class R>
R readBack(const shared::RecordKind& kind, const FieldSet& fields, const std::string& id) {
    auto record = recordJSON(kind, fields);
    record["id"] = json::string(id);
    return kit::decode<R>(record);
}

/// Written as fields, sent as text and read again it is the record, and its kind knows its keys.
template <class R>
void expectWhole(const char* prefix, const R& record, const std::string& id) {
    const auto& kind = *shared::kindOfRecord(prefix);
    FieldSet fields;
    const auto written = kit::encode(record).as_object();
    EXPECT_TRUE(writeRecord(kind, fields, written, {"aa", 1})) << prefix;
    EXPECT_FALSE(writeRecord(kind, fields, written, {"aa", 2})) << prefix;
    EXPECT_EQ(readBack<R>(kind, FieldSet::parse(fields.text()), id), record) << prefix;
    std::vector<std::string_view> keys;
    std::apply([&](const auto&... f) { (keys.push_back(f.key), ...); }, kit::JSONFields<R>::fields);
    for (const auto key : keys) EXPECT_TRUE(key == "id" || kind.lists(key)) << prefix << key;
}

kit::Instant at(int seconds) { return kit::Instant(std::chrono::seconds(seconds)); }

TEST(RecordFields, EveryRecordIsTheSameAsFieldsAndBack) {
    expectWhole<kit::Clip>("c:",
                           {.id = "C",
                            .quote = "q",
                            .title = "t",
                            .author = "Ann",
                            .publishedAt = at(5),
                            .accessedAt = at(7),
                            .note = "n",
                            .tags = {"a", "b/c"},
                            .projectIDs = {"P"}},
                           "C");
    expectWhole<kit::Note>("o:",
                           {.id = "N",
                            .title = "t",
                            .text = "x\ny",
                            .createdAt = at(1),
                            .changedAt = at(2),
                            .storyIDs = {"1"},
                            .tags = {"a"}},
                           "N");
    expectWhole<kit::Project>("p:",
                              {.id = "P",
                               .name = "n",
                               .isArchived = true,
                               .createdAt = at(1),
                               .ranks = {{"clip:C", "i"}},
                               .done = {{"note:N", false}}},
                              "P");
    expectWhole<kit::SavedStory>("s:",
                                 {.id = "S",
                                  .savedAt = at(9),
                                  .link = "l",
                                  .title = "t",
                                  .publishedAt = at(3),
                                  .imageURL = "i",
                                  .tags = {"a"}},
                                 "S");
    expectWhole<kit::FollowedPage>(
        "g:", {.id = "G", .address = "https://x", .name = "n", .added = at(2), .isUrgent = true},
        "G");
    const auto id = kit::UUID::random();
    expectWhole<kit::Beat>("b:", {.id = id, .name = "n", .alerts = true}, id.text());
    auto today = kit::NewsroomSpec::builtIn();
    today.id = id;
    expectWhole<kit::NewsroomSpec>("n:", today, id.text());
}

TEST(RecordFields, OnlyWhatChangedIsStampedAndWhatIsMissingIsEmptied) {
    const auto& kind = *shared::kindOfRecord("c:");
    kit::Clip clip{.id = "C", .quote = "q", .title = "t", .author = "Ann", .tags = {"a", "b"}};
    FieldSet fields;
    fields.set("invented later", 1, {"bb", 1});
    fields.set("rank", "i", {"bb", 1});
    writeRecord(kind, fields, kit::encode(clip).as_object(), {"aa", 1'000});
    const auto before = fields;
    clip.author.reset();
    clip.tags = {"b", "c"};
    clip.quote = "another";
    EXPECT_TRUE(writeRecord(kind, fields, kit::encode(clip).as_object(), {"aa", 2'000}));
    std::vector<std::string> changed;
    for (const auto& [name, cell] : fields.cells()) {
        const auto* old = before.find(name);
        if (!old || old->stamp != cell.stamp) changed.push_back(name);
    }
    EXPECT_EQ(changed, (std::vector<std::string>{"author", "tags/a", "tags/c"}));
    EXPECT_EQ(recordJSON(kind, fields).at("quote"), "q");
    EXPECT_EQ(fields.value("invented later"), 1);
    EXPECT_EQ(fields.value("rank"), "i");
}

TEST(RecordFields, MovingAPanelHereAndRenamingItThereBothHold) {
    const auto& kind = *shared::kindOfRecord("n:");
    auto newsroom = kit::NewsroomSpec::builtIn();
    ASSERT_GE(newsroom.panels.size(), 3U);
    FieldSet first;
    writeRecord(kind, first, kit::encode(newsroom).as_object(), {"aa", 1'000});

    auto here = newsroom;
    here.panels[0].frame.row = 40;
    std::rotate(here.panels.begin(), here.panels.begin() + 2, here.panels.end());
    auto mine = first;
    writeRecord(kind, mine, kit::encode(here).as_object(), {"aa", 2'000});
    EXPECT_EQ(readBack<kit::NewsroomSpec>(kind, mine, here.id.text()), here);

    auto there = newsroom;
    there.panels[0].title = "Renamed";
    there.panels.erase(there.panels.begin() + 1);
    auto theirs = first;
    writeRecord(kind, theirs, kit::encode(there).as_object(), {"bb", 2'000});
    EXPECT_EQ(readBack<kit::NewsroomSpec>(kind, theirs, there.id.text()), there);

    // The second panel was moved here, so that its removal there does not hold.
    const auto merged =
        readBack<kit::NewsroomSpec>(kind, merge(kind, mine, theirs), newsroom.id.text());
    ASSERT_EQ(merged.panels.size(), newsroom.panels.size());
    const auto panel = std::ranges::find(merged.panels, newsroom.panels[0].id, &kit::PanelSpec::id);
    EXPECT_EQ(panel->title, "Renamed");
    EXPECT_EQ(panel->frame.row, 40);
}

TEST(RecordFields, ARecordOfAnotherFormIsRefused) {
    const auto& kind = *shared::kindOfRecord("n:");
    for (const char* text : {R"({"panels":3})", R"({"panels":[1]})"}) {
        FieldSet fields;
        EXPECT_THROW(writeRecord(kind, fields, kit::parseJSON(text).as_object(), {"aa", 1}),
                     kit::RecordError);
    }
}

TEST(Rank, ThereIsAlwaysRoomBetweenTwo) {
    std::vector<std::string> ranks{shared::rankBetween("", "")};
    shared::random::Dice dice(3);
    for (int i = 0; i < 2'000; ++i) {
        const auto place = i < 500 ? 0 : i < 1'000 ? ranks.size() : dice.below(ranks.size() + 1);
        const auto before = place == 0 ? std::string() : ranks[place - 1];
        const auto after = place == ranks.size() ? std::string() : ranks[place];
        const auto rank = shared::rankBetween(before, after);
        ASSERT_GT(rank, before);
        ASSERT_TRUE(after.empty() || rank < after);
        ranks.insert(ranks.begin() + static_cast<std::ptrdiff_t>(place), rank);
    }
    // What another program may have written.
    EXPECT_GT(shared::rankBetween("a", "a0"), "a");
    EXPECT_GT(shared::rankBetween("b", "a"), "b");
    EXPECT_GT(shared::rankBetween("~~", ""), "");
}

}  // namespace
