#include "NewsroomKit/Newsrooms/GridLayout.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>

namespace kit {

namespace {

using Widths = std::array<std::int64_t, 3>;

constexpr std::int64_t kTopHeight = 2;
constexpr std::int64_t kMainHeight = 4;
constexpr std::int64_t kRowHeight = 3;
constexpr std::size_t kPanelsARow = 3;
constexpr std::size_t kStackedPanels = 2;

/// A slot of the main band; only the last one may hold two panels, one above the other.
struct Slot {
    std::vector<PanelKind> kinds;
    std::int64_t width;
};

Widths topWidths(std::size_t count, bool beginsWithBrief) {
    if (count == 1) return {kGridColumns, 0, 0};
    if (count == 2) return beginsWithBrief ? Widths{7, 5, 0} : Widths{6, 6, 0};
    return beginsWithBrief ? Widths{5, 3, 4} : Widths{4, 4, 4};
}

class Packing {
public:
    explicit Packing(std::span<const PanelKind> wanted) {
        // 1. A kind is placed once, at its first occurrence.
        for (const auto kind : wanted) {
            const bool known = std::find(left_.begin(), left_.end(), kind) != left_.end();
            if (!known && kindRow(kind).isOffered) left_.push_back(kind);
        }
    }

    std::vector<PlacedPanel> frames() {
        placeTopBand();
        placeMainBand();
        placeRows();
        return std::move(placed_);
    }

private:
    bool pick(PanelKind kind) { return std::erase(left_, kind) > 0; }

    std::vector<PanelKind> pickFirst(std::size_t count, std::initializer_list<PanelKind> priority) {
        std::vector<PanelKind> picked;
        for (const auto kind : priority) {
            if (picked.size() < count && pick(kind)) picked.push_back(kind);
        }
        return picked;
    }

    void place(PanelKind kind, GridFrame frame) {
        placed_.push_back({.kind = kind, .frame = frame});
    }

    // 2. The low panels that are read first: at most three side by side.
    void placeTopBand() {
        const bool brief = pick(PanelKind::brief);
        auto band = pickFirst(brief ? 2 : 3,
                              {PanelKind::countdown, PanelKind::stock, PanelKind::suppliers});
        if (brief) band.insert(band.begin(), PanelKind::brief);
        if (band.empty()) return;
        const auto widths = topWidths(band.size(), brief);
        std::int64_t column = 0;
        for (std::size_t i = 0; i < band.size(); ++i) {
            place(band[i], {column, 0, widths[i], kTopHeight});
            column += widths[i];
        }
        top_ = kTopHeight;
    }

    std::vector<Slot> pickMainSlots() {
        std::vector<Slot> slots;
        const auto add = [&](std::vector<PanelKind> kinds, std::int64_t width) {
            if (!kinds.empty()) slots.push_back({std::move(kinds), width});
        };
        add(pickFirst(1, {PanelKind::stream}), 4);
        add(pickFirst(1, {PanelKind::claims, PanelKind::topStories, PanelKind::scoops,
                          PanelKind::backend}),
            5);
        add(pickFirst(kStackedPanels, {PanelKind::coverage, PanelKind::software, PanelKind::status,
                                       PanelKind::apple, PanelKind::records, PanelKind::countdown}),
            3);
        return slots;
    }

    // 3. Panels of stories: tall slots that share the whole width.
    void placeMainBand() {
        const auto slots = pickMainSlots();
        if (slots.empty()) return;
        std::int64_t spare = kGridColumns;
        for (const auto& slot : slots) spare -= slot.width;
        auto unserved = static_cast<std::int64_t>(slots.size());
        std::int64_t column = 0;
        for (const auto& slot : slots) {
            const auto share = spare / unserved--;
            spare -= share;
            const auto width = slot.width + share;
            const auto height = kMainHeight / static_cast<std::int64_t>(slot.kinds.size());
            std::int64_t row = top_;
            for (const auto kind : slot.kinds) {
                place(kind, {column, row, width, height});
                row += height;
            }
            column += width;
        }
        top_ += kMainHeight;
    }

    // 4. The rest, in rows of at most three; the last panel of a row fills it.
    void placeRows() {
        for (std::size_t first = 0; first < left_.size(); first += kPanelsARow) {
            const auto count =
                static_cast<std::int64_t>(std::min(kPanelsARow, left_.size() - first));
            const auto width = kGridColumns / count;
            for (std::int64_t i = 0; i < count; ++i) {
                const auto column = width * i;
                place(left_[first + static_cast<std::size_t>(i)],
                      {column, top_, i + 1 < count ? width : kGridColumns - column, kRowHeight});
            }
            top_ += kRowHeight;
        }
    }

    std::vector<PanelKind> left_;  ///< wanted and not yet placed, in their order
    std::vector<PlacedPanel> placed_;
    std::int64_t top_ = 0;  ///< where the next band begins
};

}  // namespace

std::vector<PlacedPanel> GridLayout::packed(std::span<const PanelKind> wanted) {
    return Packing(wanted).frames();
}

}  // namespace kit
