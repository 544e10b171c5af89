#include <gtest/gtest.h>

#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/app/TestDesk.h"

namespace app {
namespace {

using test::TestDesk;

TEST(DeskUpdateBuilder, AnotherProgramsWriteIsNotTakenForOurOwn) {
    TestDesk desk({"a.example"});
    const std::atomic<bool> isClosing = false;
    LocalStore ours(desk.library(), Database::Access::readWrite);
    LocalStore theirs(desk.library(), Database::Access::readWrite);
    DeskUpdateBuilder builder(ours, desk.clock(), isClosing);
    builder.wholeWire();
    const auto write = [&](LocalStore& store, const std::string& id) {
        auto transaction = store.transaction();
        const auto stamp = store.state().nextStamp();
        kit::Story story{.id = id,
                         .link = "https://a.example/" + id,
                         .title = id,
                         .publishedAt = desk.now(),
                         .sourceID = "a",
                         .sourceName = "A"};
        auto merged = store.merging().merge(std::vector{story}, {.seen = desk.now()}, stamp);
        transaction.commit();
        return CommittedBatch{.stamp = stamp, .added = std::move(merged.added)};
    };
    EXPECT_EQ(builder.committed(write(ours, "1")).stories.size(), 1u);
    EXPECT_FALSE(builder.foreignChanges().has_value());

    write(theirs, "2");
    builder.committed({.outcomes = {{.source = TestDesk::source("a.example")}}});
    const auto update = builder.foreignChanges();
    ASSERT_TRUE(update.has_value());
    EXPECT_EQ(update->stories.at(0)->id(), "2");
    EXPECT_EQ(update->news.size(), 1u);

    write(theirs, "3");
    builder.committed(write(ours, "4"));
    EXPECT_EQ(builder.foreignChanges()->stories.size(), 2u) << "both are read again";
    EXPECT_FALSE(builder.foreignChanges().has_value());

    Database(desk.library(), Database::Access::readWrite)
        .execute("INSERT INTO pendingMarks VALUES ('5', 1, NULL, 1)");
    EXPECT_TRUE(builder.committed(write(ours, "5")).news.empty()) << "it has been read elsewhere";
}

}  // namespace
}  // namespace app
