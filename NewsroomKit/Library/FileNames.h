#pragma once

#include <set>
#include <string>
#include <string_view>

namespace kit {

inline constexpr std::size_t kLongestFileStem = 100;  ///< bytes

/// A text as the name of a file on any system, without an ending: no separators, no control
/// characters or ones that turn the direction, no "." or space at either end, no name that Windows
/// keeps for devices, at most kLongestFileStem bytes. "untitled" when nothing is left. Letters of
/// all scripts stay.
std::string safeFileName(std::string_view text);

/// Names for the files of one folder, of which no two are equal for a file system that ignores
/// letter case or accents.
class DistinctNames {
public:
    /// The name with its ending, with " 2", " 3" and so on between them as far as it is taken.
    std::string take(const std::string& stem, std::string_view ending);

private:
    std::set<std::string> taken_;  ///< folded
};

}  // namespace kit
