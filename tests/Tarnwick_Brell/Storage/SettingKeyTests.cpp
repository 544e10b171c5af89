#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

TEST(SettingKey, TakesWhatSuitsItAndSaysWhatElseItNeeds) {
    struct Case {
        std::string_view key;
        std::string_view value;
        std::string_view stored;  ///< empty: refused
        std::string_view reason{};
    };
    const std::string tooLong(25, 'A');
    const Case cases[] = {
        {"alertSound", "on", "true"},
        {"alertSound", "NO", "false"},
        {"alertSound", "loud", "", "\"true\" or \"false\""},
        {"quoteRange", "1y", "1y"},
        {"quoteRange", "5y", "", "one of 1d, 1w, 1m, 1y"},
        {"appearance", "dark", "dark"},
        {"appearance", "Dim", "", "one of system, light, dark"},
        {"focusSymbol", "^GSPC", "^GSPC"},
        {"focusSymbol", "005930.KS", "005930.KS"},
        {"focusSymbol", "brk.b", "BRK.B"},
        {"focusSymbol", "A B", "", "the symbol of a share"},
        {"focusSymbol", tooLong, "", "the symbol of a share"},
        {"serviceAddress", "https://press.example/", "https://press.example/"},
        {"serviceAddress", "http://press.example/", "", "https://"},
        {"serviceAddress", "https://press.example/?q=1", "", "https://"},
        {"serviceAddress", "press.example", "", "https://"},
        {"quietFrom", "7:00", "07:00"},
        {"quietFrom", "00:00", "00:00"},
        {"quietFrom", "24:00", "", "\"22:30\""},
        {"quietFrom", "22", "", "\"22:30\""},
        {"quietWeekdays", "Sunday, MON,sun", "mon, sun"},
        {"quietWeekdays", "mo", "", "\"mon, tue\""},
        {"quietWeekdays", "mon,", "", "\"mon, tue\""},
    };
    for (const auto& c : cases) {
        const auto& key = *SettingKey::named(c.key);
        try {
            EXPECT_EQ(key.stored(c.value), c.stored) << c.value;
        } catch (const std::invalid_argument& error) {
            EXPECT_TRUE(c.stored.empty()) << error.what();
            EXPECT_NE(std::string_view(error.what()).find(c.reason), std::string_view::npos)
                << error.what();
        }
    }
}

TEST(SettingKey, NonsenseInTheFileCountsAsAbsent) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "settings.ini";
    std::ofstream(file)
        << "[General]\nalertSound=perhaps\nalertReleases=off\nquoteRange=5y\n"
           "focusSymbol=\nappearance=3\nserviceAddress=ftp://x/\nknownBuilds=[1, 2]\n";
    Defaults defaults(file);
    EXPECT_FALSE(defaults.isOn(SettingKey::kAlertSound));
    EXPECT_FALSE(defaults.isOn(SettingKey::kAlertReleases));
    EXPECT_TRUE(defaults.isOn(SettingKey::kNotifications));
    EXPECT_EQ(defaults.quoteRange(), kit::QuoteRange::month);
    EXPECT_EQ(defaults.focusSymbol(), "AAPL");
    EXPECT_EQ(defaults.choice(SettingKey::kAppearance), 0);
    EXPECT_EQ(defaults.serviceAddress(), "https://tarnwick-brell.example/");
    EXPECT_EQ(defaults.memory(Defaults::kKnownBuilds), std::nullopt);

    const Defaults::Memory memory{{"Mail, \"iCloud\"|\n1.5", "Mail; = %20"}, {"é", ""}};
    defaults.remember(Defaults::kKnownBuilds, memory);
    EXPECT_EQ(Defaults(file).memory(Defaults::kKnownBuilds), memory);
}

}  // namespace
}  // namespace app
