#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace shared {

/// Brings two edits of a text together by lines. Nothing when they changed the same or touching
/// lines in different ways, when a change could as well stand at repeated lines that the other one
/// touches, or when more than kMostChangedLines changed. Nothing that either wrote is lost.
std::optional<std::string> mergeTexts(std::string_view base, std::string_view mine,
                                      std::string_view theirs);

/// It also bounds the time: two texts of 200 KB take far less than a fifth of a second.
inline constexpr std::size_t kMostChangedLines = 5'000;

}  // namespace shared
