#include <gtest/gtest.h>

#include <sys/stat.h>

#include <fstream>
#include <string>

#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryLock.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRestore.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

namespace fs = std::filesystem;

constexpr kit::Instant kNow = std::chrono::sys_days(std::chrono::year(2026) / 11 / 21);

/// Every file and folder below `folder` that another user may touch, with itself.
std::string openToOthers(const fs::path& folder) {
    std::string names;
    const auto look = [&](const fs::path& path) {
        struct stat found{};
        if (stat(path.c_str(), &found) == 0 && (found.st_mode & 077) != 0) {
            names += path.filename().string() + " ";
        }
    };
    look(folder);
    for (const auto& entry : fs::recursive_directory_iterator(folder)) look(entry.path());
    return names;
}

class Privacy : public ::testing::Test {
protected:
    Privacy() { umask(022); }

    /// Uses a desk in all ways that make files, and leaves its log in place.
    void useDesk() {
        paths_.createFolders();
        const LibraryLock lock(paths_.library, "brell watch");
        LocalStore store(paths_.library, Database::Access::readWrite);
        store.sources().setEnabled("macrumors", false);
        Backups(paths_.library).make(kNow);
        Defaults(paths_.settings).set("refreshMinutes", "7");
        EXPECT_TRUE(fs::exists(paths_.library.string() + "-wal"));
        EXPECT_EQ(openToOthers(home()), "");
    }

    fs::path home() const { return paths_.library.parent_path(); }

    test::TemporaryFolder folder_;
    Paths paths_ = Paths::forUser(folder_.path() / "desk");
};

TEST_F(Privacy, WhatTheDeskMakesIsTheUsersAlone) {
    useDesk();
    restoreLibrary(paths_.library, Backups(paths_.library).all(kNow).front().file, kNow);
    Defaults(paths_.settings).set("refreshMinutes", "8");
    EXPECT_EQ(openToOthers(home()), "");
}

TEST_F(Privacy, ASettingIsPrivateThoughNothingElseHasBeenMadeYet) {
    Defaults(paths_.settings).set("refreshMinutes", "7");
    EXPECT_EQ(openToOthers(home()), "");
    EXPECT_EQ(Defaults(paths_.settings).refreshMinutes(), 7);
}

TEST_F(Privacy, WhatEarlierVersionsMadeWithWiderRightsLosesThem) {
    useDesk();
    for (const auto& entry : fs::recursive_directory_iterator(home())) {
        fs::permissions(entry.path(), fs::perms(entry.is_directory() ? 0755 : 0664));
    }
    fs::permissions(home(), fs::perms(0755));
    ASSERT_NE(openToOthers(home()), "");
    useDesk();
}

TEST_F(Privacy, AFolderThatHoldsOtherThingsKeepsItsRightsAndSoDoThey) {
    fs::create_directories(home());
    std::ofstream(home() / "letter.txt") << "to a friend";
    paths_.createFolders();
    {
        LocalStore store(paths_.library, Database::Access::readWrite);
    }
    EXPECT_EQ(openToOthers(home()), "desk letter.txt ");
}

TEST_F(Privacy, AFolderIsMadeThatIsNamedWithoutItsParents) {
    const auto before = fs::current_path();
    fs::current_path(folder_.path());
    Paths::forUser("beside").createFolders();
    EXPECT_EQ(openToOthers("beside"), "");
    fs::current_path(before);
}

}  // namespace
}  // namespace app
