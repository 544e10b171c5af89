#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomTemplates.h"
#include "tests/NewsroomKit/Newsrooms/LayoutFaults.h"

namespace kit {
namespace {

TEST(NewsroomTemplates, EachIsWellPlacedAndFillsTheGridWithKindsThatAreOffered) {
    for (const auto& one : newsroomTemplates()) {
        SCOPED_TRACE(one.name);
        const auto spec = madeNewsroom(one, "Harbour", std::string(one.symbol), one.focusQuery());
        EXPECT_EQ(spec.symbol, one.symbol) << "one of those that a newsroom may carry";
        EXPECT_EQ(faultOf(PanelPlacement::of(spec.panels)), "");
        std::int64_t cells = 0;
        for (const auto& panel : spec.panels) {
            cells += panel.frame.width * panel.frame.height;
            EXPECT_TRUE(kindRow(panel.kind).isOffered) << rawValue(panel.kind);
        }
        EXPECT_EQ(cells, kGridColumns * spec.rowsUsed()) << "without holes";
    }
}

}  // namespace
}  // namespace kit
