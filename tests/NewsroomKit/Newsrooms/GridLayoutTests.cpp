#include <algorithm>

#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "tests/NewsroomKit/Newsrooms/LayoutFaults.h"

namespace kit {
namespace {

using enum PanelKind;

std::string drawn(const std::vector<PlacedPanel>& panels) {
    std::string out;
    for (const auto& [kind, f] : panels) {
        if (!out.empty()) out += ", ";
        out += std::string(rawValue(kind));
        for (const auto cell : {f.column, f.row, f.width, f.height})
            out += " " + std::to_string(cell);
    }
    return out;
}

TEST(GridLayout, WantedKindsArePackedInBands) {
    struct Case {
        std::vector<PanelKind> wanted;
        const char* frames;
    };
    const Case cases[] = {
        {{}, ""},
        {{clips, clips}, ""},
        {{stock}, "stock 0 0 12 2"},
        {{countdown, brief}, "brief 0 0 7 2, countdown 7 0 5 2"},
        {{suppliers, stock}, "stock 0 0 6 2, suppliers 6 0 6 2"},
        {{suppliers, stock, countdown}, "countdown 0 0 4 2, stock 4 0 4 2, suppliers 8 0 4 2"},
        {{suppliers, stock, countdown, brief, stock},
         "brief 0 0 5 2, countdown 5 0 3 2, stock 8 0 4 2, suppliers 0 2 12 3"},
        {{stream}, "stream 0 0 12 4"},
        {{status}, "status 0 0 12 4"},
        {{topStories, stream}, "stream 0 0 5 4, topStories 5 0 7 4"},
        {{status, stream}, "stream 0 0 6 4, status 6 0 6 4"},
        {{scoops, status, software}, "scoops 0 0 7 4, software 7 0 5 2, status 7 2 5 2"},
        {{brief, stream, backend, claims, records, apple, coverage},
         "brief 0 0 12 2, stream 0 2 4 4, claims 4 2 5 4, coverage 9 2 3 2, apple 9 4 3 2, "
         "backend 0 6 6 3, records 6 6 6 3"},
        {{releases, pageWatch, clips, scoops, records, status, software, topStories},
         "topStories 0 0 7 4, software 7 0 5 2, status 7 2 5 2, "
         "releases 0 4 4 3, pageWatch 4 4 4 3, scoops 8 4 4 3, records 0 7 12 3"},
        {{releases}, "releases 0 0 12 3"},
    };
    for (const auto& c : cases) EXPECT_EQ(drawn(GridLayout::packed(c.wanted)), c.frames);
}

TEST(GridLayout, AnyWishIsPackedTidilyWithEveryKindOnce) {
    Dice dice(1);
    for (int round = 0; round < 5000; ++round) {
        std::vector<PanelKind> wanted(static_cast<std::size_t>(dice(0, 25)));
        for (auto& kind : wanted) kind = dice.kind();
        const auto packed = GridLayout::packed(wanted);
        ASSERT_EQ(faultOf(packed), "") << drawn(packed);

        std::vector<PanelKind> placed;
        for (const auto& panel : packed) placed.push_back(panel.kind);
        std::erase(wanted, clips);
        std::sort(wanted.begin(), wanted.end());
        wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
        std::sort(placed.begin(), placed.end());
        ASSERT_EQ(placed, wanted);
    }
}

TEST(GridLayout, TheBuiltInNewsroomIsTidyAndItsFirstRowIsPacked) {
    const auto today = PanelPlacement::of(NewsroomSpec::builtIn().panels);
    EXPECT_EQ(faultOf(today), "");
    EXPECT_EQ(Placement(today.begin(), today.begin() + 3),
              GridLayout::packed(std::vector{stock, brief, countdown}));
    EXPECT_EQ(drawn(Placement(today.begin() + 3, today.end())),
              "topStories 0 2 5 4, stream 5 2 4 4, software 9 2 3 2, status 9 4 3 2");
}

}  // namespace
}  // namespace kit
