#include "NewsroomKit/Newsrooms/DraggedPanel.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <span>
#include <tuple>

#include "NewsroomKit/Newsrooms/Skyline.h"

namespace kit {

namespace {

bool shareColumns(const GridFrame& a, const GridFrame& b) {
    return a.column < b.right() && b.column < a.right();
}

/// Columns below panels that have been pushed down.
class BlockedColumns {
public:
    bool holdUp(const GridFrame& frame) {
        const auto columns = columnsOf(frame);
        return std::find(columns.begin(), columns.end(), true) != columns.end();
    }
    void block(const GridFrame& frame) {
        const auto columns = columnsOf(frame);
        std::fill(columns.begin(), columns.end(), true);
    }

private:
    std::span<bool> columnsOf(const GridFrame& frame) {
        return std::span(blocked_).subspan(static_cast<std::size_t>(frame.column),
                                           static_cast<std::size_t>(frame.width));
    }

    std::array<bool, kGridColumns> blocked_{};
};

}  // namespace

std::vector<std::size_t> readingOrder(const Placement& panels) {
    std::vector<std::size_t> order(panels.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        const auto& left = panels[a].frame;
        const auto& right = panels[b].frame;
        return std::tie(left.row, left.column) < std::tie(right.row, right.column);
    });
    return order;
}

void compact(Placement& panels, const std::vector<std::size_t>& order) {
    Skyline skyline;
    for (const auto index : order) skyline.rest(panels[index].frame);
}

DraggedPanel::DraggedPanel(Placement tidy, std::size_t panel)
    : before_(std::move(tidy)), hand_(panel), others_(readingOrder(before_)), closed_(before_) {
    std::erase(others_, hand_);
    compact(closed_, others_);
}

Placement DraggedPanel::drop(const GridFrame& wanted, std::int64_t lowest) const {
    Placement after = closed_;
    Skyline skyline;
    BlockedColumns blocked;
    std::vector<std::size_t> pushed;
    for (const auto index : others_) {
        const auto& frame = closed_[index].frame;
        const bool isAbove =
            frame.bottom() <= wanted.row && before_[index].frame.bottom() <= lowest;
        const bool isInTheWay = shareColumns(frame, wanted) && !isAbove;
        // A panel that rests on a pushed one shares a column with it and comes later in the order.
        if (isInTheWay || blocked.holdUp(frame)) {
            blocked.block(frame);
            pushed.push_back(index);
        } else {
            skyline.rest(after[index].frame);
        }
    }
    after[hand_].frame = wanted;
    skyline.rest(after[hand_].frame);
    for (const auto index : pushed) skyline.rest(after[index].frame);
    return after;
}

Placement DraggedPanel::movedTo(std::int64_t column, std::int64_t row) const {
    GridFrame wanted = frame();
    wanted.column = std::clamp(column, std::int64_t{0}, kGridColumns - wanted.width);
    wanted.row = row;
    return drop(wanted, wanted.bottom());
}

std::int64_t DraggedPanel::nextRowDown() const {
    std::optional<std::int64_t> next;
    for (const auto index : others_) {
        const auto& below = before_[index].frame;
        if (below.row < frame().bottom() || !shareColumns(below, frame())) continue;
        // Both conditions of drop() for staying above must hold.
        const auto swap = std::max(closed_[index].frame.bottom(), below.bottom() - frame().height);
        next = std::min(next.value_or(swap), swap);
    }
    return next.value_or(frame().row);
}

Placement DraggedPanel::without() const {
    Placement without = closed_;
    without.erase(without.begin() + static_cast<std::ptrdiff_t>(hand_));
    return without;
}

}  // namespace kit
