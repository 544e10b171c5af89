#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "NewsroomKit/Newsrooms/PanelEditing.h"
#include "tests/NewsroomKit/Newsrooms/LayoutFaults.h"

namespace kit {
namespace {

std::string faultIn(const NewsroomSpec& spec) { return faultOf(PanelPlacement::of(spec.panels)); }

TEST(PanelEditing, EveryChangeGivesPanelsOfTheirOwnOnATidyGrid) {
    auto spec = NewsroomSpec::builtIn();
    spec.panels[4].query = StoryQuery{.anyTerms = {"orchard"}};
    spec.panels[4].frame.width = 3;

    const auto twice = PanelEditing::duplicated(spec, 4);
    ASSERT_EQ(twice.panels.size(), 8u);
    EXPECT_EQ(twice.panels[7].query, spec.panels[4].query);
    EXPECT_NE(twice.panels[7].id, spec.panels[4].id);
    EXPECT_EQ(twice.panels[7].frame, (GridFrame{5, 6, 3, 4})) << "right below, in the same size";

    const auto other = PanelEditing::received(spec, twice.panels[7]);
    EXPECT_EQ(other.panels[7].frame.width, 3);
    EXPECT_EQ(other.panels[7].query, spec.panels[4].query);

    const auto placed =
        PanelEditing::inserted(spec, {PanelKind::scoops, {.column = 0, .width = 5, .height = 4}});
    EXPECT_EQ(placed.panels[7].frame, (GridFrame{0, 0, 5, 4}));
    EXPECT_EQ(placed.panels[7].title, "Scoops");

    for (const auto& changed : {twice, other, placed, PanelEditing::added(spec, PanelKind::apple),
                                PanelEditing::removed(spec, 0)})
        EXPECT_EQ(faultIn(changed), "");
    EXPECT_THROW(PanelEditing::removed(spec, 7), std::out_of_range);
    EXPECT_THROW(PanelEditing::duplicated(spec, 7), std::out_of_range);
}

TEST(PanelEditing, APanelBeyondTheLimitIsRefused) {
    auto spec = madeNewsroom("Full", "", {}, {});
    while (spec.panels.size() < NewsroomLimits::kPanels)
        spec = PanelEditing::added(std::move(spec), PanelKind::status);
    EXPECT_EQ(faultIn(spec), "");
    EXPECT_THROW(PanelEditing::added(spec, PanelKind::status), RecordError);
    EXPECT_THROW(PanelEditing::duplicated(spec, 0), RecordError);
}

}  // namespace
}  // namespace kit
