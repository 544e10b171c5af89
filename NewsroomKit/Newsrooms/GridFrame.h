#pragma once

#include <cstdint>
#include <limits>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/RecordHash.h"

namespace kit {

/// Columns of a newsroom's grid; its rows grow downwards without limit.
inline constexpr std::int64_t kGridColumns = 12;

/// The position and size of a panel in cells. A frame from a file can hold any numbers; they stay
/// unchanged until PanelPlacement tidies the layout.
struct GridFrame {
    std::int64_t column = 0;  ///< left edge, from 0
    std::int64_t row = 0;     ///< top edge, from 0
    std::int64_t width = 0;
    std::int64_t height = 0;

    /// The column and row just past the panel; saturating at the limits of the type.
    constexpr std::int64_t right() const { return end(column, width); }
    constexpr std::int64_t bottom() const { return end(row, height); }

    bool operator==(const GridFrame&) const = default;

private:
    static constexpr std::int64_t end(std::int64_t start, std::int64_t length) {
        using Limits = std::numeric_limits<std::int64_t>;
        if (length > 0 && start > Limits::max() - length) return Limits::max();
        if (length < 0 && start < Limits::min() - length) return Limits::min();
        return start + length;
    }
};

template <>
struct JSONFields<GridFrame> {
    static constexpr auto fields = std::tuple{
        field("column", &GridFrame::column),
        field("row", &GridFrame::row),
        field("width", &GridFrame::width),
        field("height", &GridFrame::height),
    };
};

}  // namespace kit

template <>
struct std::hash<kit::GridFrame> : kit::RecordHash<kit::GridFrame> {};
