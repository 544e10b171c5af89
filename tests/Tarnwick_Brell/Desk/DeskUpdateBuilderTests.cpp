#include <gtest/gtest.h>

#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "tests/support/app/TestDesk.h"

namespace app {
namespace {

using test::TestDesk;

TEST(DeskUpdateBuilder, AnotherProgramsWriteIsNotTakenForOurOwn) {
    TestDesk bench({"a.example"});
    const std::atomic<bool> isClosing = false;
    LocalStore ours(bench.library(), Database::Access::readWrite);
    LocalStore theirs(bench.library(), Database::Access::readWrite);
    DeskUpdateBuilder backroom(ours, bench.clock(), isClosing);
    backroom.everything();
    const auto write = [&](LocalStore& store, const std::string& id) {
        auto transaction = store.transaction();
        const auto stamp = store.state().nextStamp();
        kit::Story story{.id = id,
                         .link = "https://a.example/" + id,
                         .title = id,
                         .publishedAt = bench.now(),
                         .sourceID = "a",
                         .sourceName = "A"};
        auto merged = store.merging().merge(std::vector{story}, {.seen = bench.now()}, stamp);
        transaction.commit();
        return CommittedBatch{.stamp = stamp, .added = std::move(merged.added)};
    };
    EXPECT_EQ(backroom.kept(write(ours, "1")).stories.size(), 1u);
    EXPECT_FALSE(backroom.foreignChanges().has_value());

    write(theirs, "2");
    backroom.kept({.outcomes = {{.source = TestDesk::source("a.example")}}});
    const auto step = backroom.foreignChanges();
    ASSERT_TRUE(step.has_value());
    EXPECT_EQ(step->stories.at(0)->id(), "2");
    EXPECT_EQ(step->news.size(), 1u);

    write(theirs, "3");
    backroom.kept(write(ours, "4"));
    EXPECT_EQ(backroom.foreignChanges()->stories.size(), 2u) << "rather twice than never";
    EXPECT_FALSE(backroom.foreignChanges().has_value());

    Database(bench.library(), Database::Access::readWrite)
        .execute("INSERT INTO pendingMarks VALUES ('5', 1, NULL, 1)");
    EXPECT_TRUE(backroom.kept(write(ours, "5")).news.empty()) << "it has been read elsewhere";
}

}  // namespace
}  // namespace app
