#pragma once

#include <random>
#include <string>

#include "NewsroomKit/Newsrooms/PanelPlacement.h"

namespace kit {

/// What keeps a layout from being tidy, for a failing test's message; empty when nothing does.
inline std::string faultOf(const Placement& panels) {
    for (std::size_t i = 0; i < panels.size(); ++i) {
        const auto& frame = panels[i].frame;
        const auto& least = kindRow(panels[i].kind).least;
        const auto name = std::string(rawValue(panels[i].kind)) + " #" + std::to_string(i);
        if (frame.column < 0 || frame.row < 0 || frame.right() > kGridColumns)
            return name + " is outside the grid";
        if (frame.width < least.width || frame.height < least.height || frame.height > 24)
            return name + " has a size that its kind cannot have";
        bool stands = frame.row == 0;
        for (std::size_t j = 0; j < panels.size(); ++j) {
            const auto& other = panels[j].frame;
            if (i == j || frame.column >= other.right() || other.column >= frame.right()) continue;
            if (frame.row < other.bottom() && other.row < frame.bottom())
                return name + " overlaps #" + std::to_string(j);
            stands = stands || other.bottom() == frame.row;
        }
        if (!stands) return name + " hangs in the air";
    }
    return "";
}

/// Draws that are the same on every machine, whatever its standard library.
class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}

    /// From `low` to `high`, both included.
    std::int64_t operator()(std::int64_t low, std::int64_t high) {
        return low +
               static_cast<std::int64_t>(engine_() % static_cast<std::uint64_t>(high - low + 1));
    }
    PanelKind kind() {
        return static_cast<PanelKind>((*this)(0, std::ssize(enumTable<PanelKind>) - 1));
    }

private:
    std::mt19937 engine_;
};

}  // namespace kit
