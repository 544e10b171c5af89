#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryLock.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRepair.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRestore.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

namespace fs = std::filesystem;
using kit::Instant;
using namespace std::chrono_literals;
using Access = Database::Access;

constexpr Instant kNoon = std::chrono::sys_days(std::chrono::year(2026) / 11 / 21) + 12h;

class LibrarySafety : public ::testing::Test {
protected:
    void addStory(const std::string& id) const {
        LocalStore store(library_, Access::readWrite);
        auto transaction = store.transaction();
        const kit::Story story{.id = id,
                               .link = "https://a.example/" + id,
                               .title = "Title " + id,
                               .publishedAt = kNoon,
                               .sourceID = "a",
                               .sourceName = "A"};
        store.merging().merge(std::vector{story}, {.seen = kNoon}, store.state().nextStamp());
        transaction.commit();
    }

    static std::size_t stories(const fs::path& file) {
        return LocalStore(file, Access::readOnly).stories().count();
    }

    /// Overwrites the middle, where tables and indexes lie.
    static void damage(const fs::path& file) {
        std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
        stream.seekp(4096);
        stream << std::string(fs::file_size(file) - 4096, '\xa5');
    }

    std::vector<std::string> names(Instant now) const {
        std::vector<std::string> names;
        for (const auto& backup : backups_.all(now)) names.push_back(backup.file.filename());
        return names;
    }

    test::TemporaryFolder folder_;
    fs::path library_ = folder_.path() / "library.sqlite";
    Backups backups_{library_};
};

TEST_F(LibrarySafety, BackupsComeOncePerDayAndTheLastThreeStay) {
    EXPECT_FALSE(backups_.makeIfDue(kNoon)) << "there is no library";
    {
        LocalStore empty(library_, Access::readWrite);
    }
    EXPECT_FALSE(backups_.makeIfDue(kNoon)) << "nothing is in it";
    addStory("1");
    for (int hour : {0, 1, 23, 24, 47, 48, 72}) {
        EXPECT_EQ(backups_.makeIfDue(kNoon + hour * 1h).has_value(), hour % 24 == 0) << hour;
    }
    EXPECT_EQ(names(kNoon + 72h), (std::vector<std::string>{"library-20261124T120000Z.sqlite",
                                                            "library-20261123T120000Z.sqlite",
                                                            "library-20261122T120000Z.sqlite"}));
    EXPECT_EQ(stories(backups_.all(kNoon).front().file), 1u);
    EXPECT_FALSE(fs::exists(folder_.path() / "backups/library-20261124T120000Z.sqlite-wal"));
}

TEST_F(LibrarySafety, AClockThatWasSetBackNeitherStopsNorMultipliesBackups) {
    addStory("1");
    for (int day : {10, 11, 12}) backups_.makeIfDue(kNoon + day * 24h);
    EXPECT_TRUE(backups_.makeIfDue(kNoon));
    for (int minute : {1, 2, 3}) EXPECT_FALSE(backups_.makeIfDue(kNoon + minute * 1min));
    EXPECT_EQ(names(kNoon + 1h).front(), "library-20261121T120000Z.sqlite")
        << "the newest is the one that was made last";
    EXPECT_EQ(names(kNoon + 1h).size(), 3u);
}

TEST_F(LibrarySafety, ABackupThatFailsLeavesNothingAndTakesNoGoodOneAway) {
    addStory("1");
    for (int day : {0, 1, 2}) backups_.makeIfDue(kNoon + day * 24h);
    const auto before = names(kNoon + 72h);
    damage(library_);
    try {
        backups_.makeIfDue(kNoon + 72h);
        FAIL() << "a copy of a damaged library passed its check";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.reason(), StoreError::Reason::damaged);
        EXPECT_NE(std::string(error.what()).find("brell library restore"), std::string::npos);
    }
    EXPECT_EQ(names(kNoon + 72h), before);
    EXPECT_FALSE(fs::exists(folder_.path() / "backups/unfinished"));
}

TEST_F(LibrarySafety, AStopBreaksBackupsAndChecksOffWithoutATrace) {
    addStory("1");
    std::stop_source stop;
    stop.request_stop();
    EXPECT_FALSE(backups_.makeIfDue(kNoon, stop.get_token()));
    EXPECT_TRUE(backups_.all(kNoon).empty());
    EXPECT_FALSE(fs::exists(folder_.path() / "backups/unfinished"));
    EXPECT_TRUE(backups_.makeIfDue(kNoon, std::stop_source().get_token()));
}

TEST_F(LibrarySafety, ALibraryIsKeptAsItWasBeforeItsTablesChange) {
    addStory("1");
    {
        Database older(library_, Access::readWrite);
        older.execute("PRAGMA user_version = 1");
    }
    // The tables are those of today, so the step fails: the copy is made all the same.
    EXPECT_THROW(LocalStore(library_, Access::readWrite), StoreError);
    EXPECT_EQ(names(kNoon), std::vector<std::string>{"library-version-1.sqlite"});
    for (int day : {1, 2, 3, 4}) backups_.make(kNoon + day * 24h);
    EXPECT_EQ(backups_.all(kNoon + 99h).size(), 4u) << "daily backups don't push it out";
}

TEST_F(LibrarySafety, ChecksTellSoundDamagedNewerAndAbsentLibraries) {
    EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::absent);
    std::ofstream(library_).close();
    EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::absent);
    addStory("1");
    EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::sound);
    const auto copy = folder_.path() / "copy.sqlite";
    fs::copy_file(library_, copy);
    damage(copy);
    EXPECT_EQ(checkLibrary(copy, CheckDepth::full).state, LibraryState::damaged);
    std::ofstream(copy) << "no library at all, but some text that is long enough to be read";
    EXPECT_EQ(checkLibrary(copy, CheckDepth::full).state, LibraryState::damaged);
    Database(library_, Access::readWrite).execute("PRAGMA user_version = 99");
    EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::newerVersion);
}

/// Each leaves every page whole: only a comparison with the table shows the fault.
constexpr std::pair<const char*, const char*> kIndexFaults[]{
    {"an index of other values",
     "PRAGMA writable_schema = ON; UPDATE sqlite_schema SET sql = 'CREATE INDEX storiesByStamp ON "
     "stories (titleKey)' WHERE name = 'storiesByStamp'"},
    {"a story that the search index lacks",
     "INSERT INTO storySearch (storySearch, rowid, title, summary, author) "
     "SELECT 'delete', number, title, summary, author FROM stories WHERE id = '1'"},
    {"a headline that changed behind the search index",
     "UPDATE stories SET title = 'Other' WHERE id = '1'"},
    {"a signal that the search index lacks",
     "INSERT INTO signals (id, kind, subject, title, detail, dayOnly, seenAt, weight, evidence) "
     "VALUES ('s', 'page', 'Terms', 'Terms changed.', '', 0, 1, 'major', '{}');"
     "INSERT INTO signalSearch (signalSearch) VALUES ('delete-all')"}};

TEST_F(LibrarySafety, AFullCheckFindsWhatIndexesLackAndARepairMakesThemAnew) {
    for (const auto& [what, sql] : kIndexFaults) {
        SCOPED_TRACE(what);
        fs::remove(library_);
        addStory("1");
        addStory("2");
        Database(library_, Access::readWrite).execute(sql);
        EXPECT_EQ(checkLibrary(library_, CheckDepth::quick).state, LibraryState::sound);
        EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::damaged);
        EXPECT_THROW(backups_.makeIfDue(kNoon), StoreError);
        EXPECT_TRUE(names(kNoon).empty());

        EXPECT_EQ(previewRepair(library_, {}).stories, 2u);
        EXPECT_FALSE(fs::exists(library_.string() + ".preview"));
        const auto repair = repairLibrary(library_, kNoon);
        EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::sound);
        EXPECT_EQ(repair.stories, 2u);
        EXPECT_EQ(stories(library_), 2u);
        EXPECT_EQ(checkLibrary(repair.setAside, CheckDepth::full).state, LibraryState::damaged);
    }
}

TEST_F(LibrarySafety, ARepairReadsTablesOnlyAndChangesNothingWhenOneIsDamaged) {
    for (const std::string tree : {"storiesByTitle", "storySearch_data", "stories"}) {
        SCOPED_TRACE(tree);
        fs::remove(library_);
        addStory("1");
        std::streamoff page = 0;
        {
            Database database(library_, Access::readOnly);
            Statement root(database, "SELECT rootpage FROM sqlite_schema WHERE name = ?");
            root.bind(0, tree).step();
            page = root.number(0) - 1;
        }
        std::fstream(library_, std::ios::in | std::ios::out | std::ios::binary)
            .seekp(page * 4096)
            .write(std::string(4096, '\xa5').data(), 4096);
        if (tree == "stories") {
            EXPECT_THROW(repairLibrary(library_, kNoon), StoreError);
            EXPECT_EQ(checkLibrary(library_, CheckDepth::quick).state, LibraryState::damaged);
        } else {
            EXPECT_EQ(repairLibrary(library_, kNoon).stories, 1u);
            EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::sound);
        }
        EXPECT_FALSE(fs::exists(library_.string() + ".repairing"));
        EXPECT_FALSE(fs::exists(library_.string() + ".repairing-pages"));
    }
}

TEST_F(LibrarySafety, ABackupThatAQuickCheckOnceLetThroughIsRepairedWhenThereIsNoBetterOne) {
    addStory("1");
    const auto sound = backups_.make(kNoon).file;
    addStory("2");
    const auto faulty = backups_.make(kNoon + 1h).file;
    Database(faulty, Access::unshared).execute(kIndexFaults[0].second);
    damage(library_);
    EXPECT_EQ(restoreLibrary(library_, std::nullopt, kNoon + 2h).from, sound);
    fs::remove(sound);
    EXPECT_EQ(restoreLibrary(library_, std::nullopt, kNoon + 2h).from, faulty);
    EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::sound);
    EXPECT_EQ(stories(library_), 2u);
}

TEST_F(LibrarySafety, WorkThatIsGivenUpChangesNothing) {
    addStory("1");
    const auto backup = backups_.make(kNoon).file;
    addStory("2");
    std::stop_source stop;
    WorkWatch watch{.stop = stop.get_token(), .progress = [&](double) { stop.request_stop(); }};
    EXPECT_THROW(repairLibrary(library_, kNoon, watch), StoreError);
    EXPECT_THROW(restoreLibrary(library_, backup, kNoon, watch), StoreError);
    EXPECT_EQ(names(kNoon).size(), 1u);
    EXPECT_EQ(stories(library_), 2u);
    for (const auto& file : fs::directory_iterator(library_.parent_path()))
        EXPECT_FALSE(file.path().filename().string().starts_with("library.sqlite.re")) << file;
}

TEST_F(LibrarySafety, ADeskChecksAtItsStartAfterABreakOrADay) {
    addStory("1");
    const auto lastCheck = [&] {
        return LocalStore(library_, Access::readOnly).state().instant(kLastCheck);
    };
    checkIfDue(library_, false, kNoon);
    EXPECT_EQ(lastCheck(), kNoon) << "it was never checked";
    checkIfDue(library_, false, kNoon + 23h);
    EXPECT_EQ(lastCheck(), kNoon);
    checkIfDue(library_, true, kNoon + 23h);
    EXPECT_EQ(lastCheck(), kNoon + 23h) << "the last desk was broken off";
    checkIfDue(library_, false, kNoon - 48h);
    EXPECT_EQ(lastCheck(), kNoon - 48h) << "the clock was set back";
    damage(library_);
    EXPECT_THROW(checkIfDue(library_, true, kNoon), StoreError);
}

TEST_F(LibrarySafety, TheNewestSoundBackupTakesThePlaceOfADamagedLibrary) {
    addStory("1");
    backups_.make(kNoon);
    addStory("2");
    backups_.make(kNoon + 1h);
    const auto unsound = backups_.make(kNoon + 2h).file;
    damage(unsound);
    damage(library_);
    std::ofstream(library_.string() + "-wal") << "a log of the old library";
    std::ofstream(folder_.path() / "library.damaged-20261122T120000Z.sqlite") << "earlier";

    const auto done = restoreLibrary(library_, std::nullopt, kNoon + 24h);
    EXPECT_EQ(done.unsound, std::vector{unsound});
    EXPECT_EQ(done.from, folder_.path() / "backups/library-20261121T130000Z.sqlite");
    EXPECT_EQ(stories(library_), 2u);
    ASSERT_TRUE(done.setAside);
    EXPECT_EQ(done.setAside->filename(), "library.damaged-20261122T120000Z-2.sqlite")
        << "what was set aside before is not overwritten";
    EXPECT_EQ(checkLibrary(*done.setAside, CheckDepth::full).state, LibraryState::damaged);
    EXPECT_TRUE(fs::exists(done.setAside->string() + "-wal"));
    EXPECT_FALSE(fs::exists(library_.string() + "-wal"));

    for (const auto& backup : backups_.all(kNoon + 24h)) damage(backup.file);
    damage(library_);
    EXPECT_THROW(restoreLibrary(library_, std::nullopt, kNoon), StoreError);
    EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::damaged)
        << "left where it was";
    ASSERT_TRUE(quarantineLibrary(library_, kNoon));
    EXPECT_EQ(checkLibrary(library_, CheckDepth::full).state, LibraryState::absent);
}

TEST_F(LibrarySafety, OneDeskHoldsALibraryAndItsDeathIsNoticed) {
    {
        const LibraryLock lock(library_, "brell watch");
        EXPECT_FALSE(lock.lastHolderDied());
        try {
            const LibraryLock second(library_, "the window");
            FAIL() << "two desks hold one library";
        } catch (const LibraryInUseError& held) {
            EXPECT_EQ(held.holder(), (LockHolder{getpid(), "brell watch"}));
        }
    }
    EXPECT_FALSE(LibraryLock(library_, "brell watch").lastHolderDied());

    const pid_t child = fork();
    if (child == 0) {
        new LibraryLock(library_, "a desk that dies");
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(LibraryLock(library_, "brell watch").lastHolderDied());
    EXPECT_THROW(LibraryLock("/proc/library.sqlite", "brell watch"), StoreError);
}

}  // namespace
}  // namespace app
