#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "NewsroomKit/Newsrooms/GridFrame.h"

namespace kit {

/// The first free row of each column while panels are placed one after the other, each below those
/// before it. Panels without a common column never touch, so only the order of panels that share
/// one matters. Frames must lie within the columns.
class Skyline {
public:
    std::int64_t floorUnder(const GridFrame& frame) {
        const auto columns = columnsOf(frame);
        return *std::max_element(columns.begin(), columns.end());
    }

    void rest(GridFrame& frame) {
        frame.row = floorUnder(frame);
        const auto columns = columnsOf(frame);
        std::fill(columns.begin(), columns.end(), frame.bottom());
    }

private:
    std::span<std::int64_t> columnsOf(const GridFrame& frame) {
        return std::span(free_).subspan(static_cast<std::size_t>(frame.column),
                                        static_cast<std::size_t>(frame.width));
    }

    std::array<std::int64_t, kGridColumns> free_{};
};

}  // namespace kit
