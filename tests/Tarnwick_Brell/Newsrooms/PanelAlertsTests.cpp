#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "Tarnwick_Brell/Newsrooms/PanelAlerts.h"

namespace app {
namespace {

using kit::PanelAlert;
using kit::PanelKind;

/// Two newsrooms, the second with one panel of that kind.
NewsroomShelf shelfWith(PanelKind kind, kit::PanelOptions options) {
    NewsroomShelf shelf;
    shelf.put(kit::NewsroomSpec::builtIn());
    auto spec = kit::madeNewsroom("Desk", "bolt", std::array{kind}, {});
    spec.panels[0].options = std::move(options);
    shelf.put(spec);
    return shelf;
}

TEST(PanelsWithAlerts, AskForTheNewsOfTheirKind) {
    const std::pair<PanelKind, PanelAlert> cases[] = {
        {PanelKind::status, PanelAlert::serviceStatus}, {PanelKind::software, PanelAlert::releases},
        {PanelKind::releases, PanelAlert::releases},    {PanelKind::records, PanelAlert::signing},
        {PanelKind::backend, PanelAlert::updates},      {PanelKind::stock, PanelAlert::none},
    };
    const PanelAlert all[] = {PanelAlert::serviceStatus, PanelAlert::releases, PanelAlert::signing,
                              PanelAlert::updates};
    for (const auto& [kind, alert] : cases) {
        const auto on = shelfWith(kind, {.alerts = true});
        const auto off = shelfWith(kind, {.alerts = false});
        for (const auto asked : all) {
            EXPECT_EQ(panelsAskFor(asked, on), asked == alert) << rawValue(kind);
            EXPECT_FALSE(panelsAskFor(asked, off)) << rawValue(kind);
        }
    }
}

TEST(PanelsWithAlerts, AskForReleasesOfThePlatformsThatTheyShow) {
    const auto shelf = shelfWith(PanelKind::software, {.alerts = true, .platforms = {"tvOS"}});
    EXPECT_TRUE(panelsAskForRelease("tvOS", shelf));
    EXPECT_FALSE(panelsAskForRelease("iOS", shelf));
    EXPECT_FALSE(panelsAskForRelease("tvOS", shelfWith(PanelKind::status, {.alerts = true})));
}

}  // namespace
}  // namespace app
