#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "Tarnwick_Brell/Library/SharedSettings.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

TEST(SharedSettings, EachSettingTravelsOrBelongsToOneComputer) {
    // A new setting has to be put into one of the two lists.
    const std::set<std::string_view> stay{
        "appearance",     "textSize",           "density",
        "readerPlace",    "pictures",           "closeToTray",
        "notifications",  "quietHours",         "quietFrom",
        "quietTo",        "quietWeekdays",      "serviceAddress",
        "logLevels",      "keepSavedText",      "startWithDesktop",
        "contactAddress", "courtListenerToken", "updateCatalogueAuthority"};
    for (const auto& key : Defaults::keys()) {
        const bool travels =
            std::ranges::find(kTravellingSettings, key.name) != kTravellingSettings.end();
        EXPECT_NE(travels, stay.contains(key.name)) << key.name;
    }
}

TEST(SharedSettings, AreRecordedOnceForEachChange) {
    const test::TemporaryFolder folder;
    const auto library = folder.path() / "library.sqlite";
    LocalStore store(library, Database::Access::readWrite);
    const auto rows = [&] {
        Database database(library, Database::Access::readWrite);
        Statement found(database, "SELECT key, fields FROM syncRecords WHERE kind = 't'");
        std::map<std::string, std::string> all;
        while (found.step()) all.emplace(found.text(0), found.text(1));
        return all;
    };
    recordSettings(store, {});
    EXPECT_TRUE(rows().empty());
    recordSettings(store, {{"refreshMinutes", "7"}, {"focusSymbol", "AAPL"}});
    const auto first = rows();
    ASSERT_EQ(first.size(), 2U);
    EXPECT_NE(first.at("refreshMinutes").find("\"7\""), std::string::npos);
    recordSettings(store, {{"refreshMinutes", "7"}, {"focusSymbol", "MSFT"}});
    EXPECT_EQ(rows().at("refreshMinutes"), first.at("refreshMinutes"));
    EXPECT_NE(rows().at("focusSymbol"), first.at("focusSymbol"));
    recordSettings(store, {{"focusSymbol", "MSFT"}});
    EXPECT_NE(rows().at("refreshMinutes"), first.at("refreshMinutes")) << "removed";
    EXPECT_EQ(rows().size(), 2U);
}

}  // namespace
}  // namespace app
