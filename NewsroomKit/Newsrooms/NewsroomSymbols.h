#pragma once

#include <algorithm>
#include <array>
#include <string_view>

/// The icons that a newsroom may carry.
namespace kit::NewsroomSymbols {

// clang-format off
inline constexpr std::array<std::string_view, 19> all{
    "square.grid.2x2", "iphone.gen3", "sparkles", "chart.line.uptrend.xyaxis", "calendar",
    "hammer", "building.columns", "vision.pro", "macbook", "applewatch", "airpods", "newspaper",
    "person.2", "globe", "shield.lefthalf.filled", "bolt", "flame", "sun.max", "app.badge"};
// clang-format on

inline constexpr std::string_view fallback = all.front();

constexpr bool contains(std::string_view symbol) {
    return std::find(all.begin(), all.end(), symbol) != all.end();
}

}  // namespace kit::NewsroomSymbols
