#include <gtest/gtest.h>

#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/app/TestDesk.h"

namespace app {
namespace {

using kit::Correction;
using test::TestDesk;

class CorrectionsTest : public ::testing::Test {
protected:
    static kit::Story story(const std::string& title = "Pier opens") {
        return {.id = "aa",
                .link = "https://a.example/aa",
                .title = title,
                .publishedAt = kit::parseISO8601("2026-11-20T11:00:01Z").value(),
                .sourceID = "a",
                .sourceName = "A",
                .sourcing = kit::Sourcing::report,
                .credits = {{.name = "Wired", .detail = "via"}}};
    }

    CommittedBatch fetch(const kit::Story& fetched) {
        auto transaction = store_.transaction();
        const auto stamp = store_.state().nextStamp();
        auto merged = store_.merging().merge(std::vector{fetched}, {.seen = desk_.now()}, stamp);
        transaction.commit();
        return {
            .stamp = stamp, .added = std::move(merged.added), .revised = std::move(merged.revised)};
    }

    std::int64_t put(LocalStore& store, Correction correction) {
        correction.stories = {"aa"};
        correction.madeAt = desk_.now();
        auto transaction = store.transaction();
        const auto stamp = store.corrections().put(correction);
        transaction.commit();
        return stamp;
    }

    /// "confirmed, no credit" of the only story.
    static std::string text(const DeskUpdate& update) {
        const auto& packed = update.wire ? (*update.wire)[0] : *update.stories.at(0);
        const auto story = packed.unpacked().story;
        return std::string(rawValue(story.sourcing)) + ", " +
               (story.credits.empty() ? "no credit" : story.credits[0].name);
    }

    const Correction label_{.id = "1",
                            .kind = Correction::Kind::label,
                            .instead = Correction::Instead{.sourcing = kit::Sourcing::confirmed}};
    const Correction noCredit_{.id = "2",
                               .kind = Correction::Kind::credit,
                               .instead = Correction::Instead{.name = "WIRED"}};
    TestDesk desk_{{"a.example"}};
    const std::atomic<bool> isClosing_ = false;
    LocalStore store_{desk_.library(), Database::Access::readWrite};
    DeskUpdateBuilder builder_{store_, desk_.clock(), isClosing_};
};

TEST_F(CorrectionsTest, AreInEveryUpdateAndLeaveTheRulesAnswerInTheLibrary) {
    builder_.newestStories(9);
    builder_.committed(fetch(story()));
    const auto corrected = builder_.corrected(put(store_, label_));
    EXPECT_EQ(text(corrected), "confirmed, Wired");
    EXPECT_EQ(corrected.corrections->all.size(), 1u);
    EXPECT_TRUE(corrected.news.empty());
    EXPECT_EQ(text(builder_.corrected(put(store_, noCredit_))), "confirmed, no credit");

    EXPECT_EQ(text(builder_.committed(fetch(story("Pier opens again")))), "confirmed, no credit")
        << "a new fetch";
    LocalStore reopened(desk_.library(), Database::Access::readWrite);
    DeskUpdateBuilder restarted(reopened, desk_.clock(), isClosing_);
    const auto first = restarted.newestStories(9);
    EXPECT_EQ(text(first), "confirmed, no credit");
    EXPECT_EQ(first.corrections->all.size(), 2u);
    const auto number = first.wire.value()[0].number();
    EXPECT_EQ(store_.stories().uncorrected(number)->story.sourcing, kit::Sourcing::report);
    EXPECT_EQ(store_.stories().uncorrected(number)->story.credits.size(), 1u);

    auto transaction = store_.transaction();
    const auto stamp = store_.corrections().remove("1", desk_.now());
    transaction.commit();
    EXPECT_EQ(text(builder_.corrected(stamp)), "report, no credit");
    EXPECT_EQ(store_.corrections().removed().at(0).id, "1");
}

TEST_F(CorrectionsTest, OfAnotherProgramAreFollowed) {
    builder_.newestStories(9);
    builder_.committed(fetch(story()));
    LocalStore theirs(desk_.library(), Database::Access::readWrite);
    put(theirs, label_);
    const auto update = builder_.foreignChanges();
    ASSERT_TRUE(update);
    EXPECT_EQ(text(*update), "confirmed, Wired");
    EXPECT_TRUE(update->corrections);
    Database(desk_.library(), Database::Access::readWrite)
        .execute("INSERT INTO corrections VALUES ('9', '1', '{\"kind\":\"later\"}', NULL)");
    EXPECT_EQ(store_.corrections().all().size(), 1u) << "one of a newer version is left alone";
}

}  // namespace
}  // namespace app
