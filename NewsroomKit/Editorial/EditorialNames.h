#pragma once

#include <array>
#include <string_view>

/// The people and the place that the phrase tables name. They change with the news, not with the
/// rules, so they have a file of their own. All are in lower case, like folded text.
namespace kit::EditorialNames {

inline constexpr std::string_view chiefExecutive = "john ternus";

/// Current and recent senior executives, who speak for Apple; the first is the chief executive. A
/// nickname follows the full name.
inline constexpr auto executives = std::to_array<std::string_view>({
    chiefExecutive,      "tim cook",         "craig federighi", "greg joswiak", "joz",
    "eddy cue",          "johny srouji",     "sabih khan",      "kevan parekh", "deirdre o'brien",
    "jennifer newstead", "phil schiller",    "amar subramanya", "steve lemay",  "molly anderson",
    "mike rockwell",     "susan prescott",   "bob borchers",    "kate adams",   "lisa jackson",
    "jeff williams",     "john giannandrea", "alan dye",
});

/// Executives so well known that any text naming one is about Apple.
inline constexpr auto householdNames = std::to_array<std::string_view>({
    chiefExecutive,
    "tim cook",
    "craig federighi",
    "eddy cue",
});

inline constexpr std::string_view headquartersCity = "cupertino";

inline constexpr std::string_view forecastingAnalyst = "kuo";
inline constexpr std::string_view appleReporter = "gurman";
inline constexpr std::string_view usPresident = "trump";

}  // namespace kit::EditorialNames
