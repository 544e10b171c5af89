#include <gtest/gtest.h>

#include <fstream>

#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

TEST(Defaults, NonsenseCountsAsTheKeysRuleSays) {
    struct Case {
        const char* stored;
        int refreshMinutes;
        double retention;
    };
    const Case cases[] = {
        {"", 5, 365 * 86400.0},
        {"0", 5, 3.1536e9},
        {"1", 2, 86400},
        {"-3", 2, 3.1536e9},
        {"soon", 5, 365 * 86400.0},
        {"2.5", 5, 365 * 86400.0},
        {"30", 30, 30 * 86400.0},
        {"99999999999999999999", 5, 365 * 86400.0},
        {"9000000000000000000", 1'000'000, 3.1536e9},
    };
    for (const auto& c : cases) {
        const test::TemporaryFolder folder;
        const auto file = folder.path() / "settings.ini";
        std::ofstream(file) << "[General]\nrefreshMinutes=" << c.stored
                            << "\nstoryRetentionDays=" << c.stored << "\n";
        const Defaults defaults(file);
        EXPECT_EQ(defaults.refreshMinutes(), c.refreshMinutes) << c.stored;
        EXPECT_EQ(defaults.storyRetention(), c.retention) << c.stored;
    }
    const test::TemporaryFolder folder;
    const Defaults absent(folder.path() / "settings.ini");
    EXPECT_EQ(absent.refreshMinutes(), 5);
    EXPECT_EQ(absent.storyRetention(), 365 * 86400.0);
}

}  // namespace
}  // namespace app
