#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/EventLoop.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace app;

const kit::Instant kNow{std::chrono::seconds(1'790'000'000)};

kit::Beat beat(const std::string& name) {
    return kit::madeBeat(name, "bolt", {.anyTerms = {name}}, false);
}

class NewsroomStoreTest : public testing::Test {
protected:
    static void SetUpTestSuite() { ::test::beApplication(); }

    NewsroomStoreTest() {
        QObject::connect(&store, &NewsroomStore::failed, [this](const QString&) { ++failures; });
    }

    /// What another program would see.
    LocalStore other() { return LocalStore(library, Database::Access::readWrite); }
    BeatRecords stored() {
        auto theirs = other();
        return BeatRecords::read(theirs.beats());
    }

    ::test::TemporaryFolder folder;
    std::filesystem::path library = folder.path() / "library.sqlite";
    DeskWorker worker{library, {}, [] { return kNow; }};
    NewsroomStore store{worker, [] { return kNow; }};
    int failures = 0;
};

TEST_F(NewsroomStoreTest, HoldsChangesAtOnceAndWritesThem) {
    store.load();
    ASSERT_TRUE(::test::until([&] { return store.isLoaded(); }));
    EXPECT_EQ(store.newsrooms().entries().size(), 1u);

    store.put(beat("glass"));
    store.put(beat("chips"));
    const auto glass = store.beats().entries()[0].id;
    store.moveBeat(glass, 1);
    store.removeBeat(glass);
    store.restoreBeat(glass);
    ASSERT_EQ(store.beats().entries().size(), 2u);
    EXPECT_EQ(store.beats().entries()[1].name, "glass");
    EXPECT_TRUE(::test::until([&] { return stored() == store.beats(); }));
    EXPECT_EQ(failures, 0);
}

TEST_F(NewsroomStoreTest, FollowsAnotherProgramButNotOverWhatTheUserJustChanged) {
    store.load();
    ASSERT_TRUE(::test::until([&] { return store.isLoaded(); }));
    {
        auto theirs = other();
        auto records = BeatRecords::read(theirs.beats());
        records.put(beat("theirs")).applyTo(theirs.beats(), kNow);
    }
    int changes = 0;
    QObject::connect(&store, &NewsroomStore::beatsChanged, [&] { ++changes; });
    store.load();
    store.put(beat("mine"));
    EXPECT_EQ(store.beats().entries().size(), 1u);
    ASSERT_TRUE(::test::until([&] { return store.beats().entries().size() == 2; }));
    EXPECT_EQ(changes, 2) << "one for each";
    EXPECT_EQ(stored(), store.beats());
}

TEST_F(NewsroomStoreTest, GoesBackWhenAChangeCannotBeWritten) {
    store.load();
    ASSERT_TRUE(::test::until([&] { return store.isLoaded(); }));
    Database(library, Database::Access::readWrite)
        .execute("CREATE TRIGGER no BEFORE INSERT ON beats BEGIN SELECT raise(FAIL, 'no'); END");
    store.put(beat("glass"));
    EXPECT_EQ(store.beats().entries().size(), 1u);
    ASSERT_TRUE(::test::until([&] { return store.beats().entries().empty(); }));
    EXPECT_EQ(failures, 1);
}

}  // namespace
