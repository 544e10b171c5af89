#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Backend/BackendFinding.h"

namespace kit {

/// A line of a state of a watched file.
struct StateLine {
    std::size_t number = 0;  ///< in the file; 0 where that has no meaning
    std::string text{};
    bool isChanged = false;
    bool isGap = false;  ///< stands for lines that are left out

    bool operator==(const StateLine&) const = default;
};

/// The two states that a finding rests on, as far as they tell of it.
struct FindingSides {
    std::vector<StateLine> before{};
    std::vector<StateLine> after{};

    bool operator==(const FindingSides&) const = default;
};

/// The entries of the finding, a line each with one for each field. Of lists that changed only
/// what is around the change is left.
FindingSides entryLines(const BackendFinding& finding);

/// The lines of the files as they were sent that name what the finding is about, with two lines
/// around each. A JSON document without line ends is broken behind its commas and brackets.
FindingSides fileLines(const BackendFinding& finding, std::string_view before,
                       std::string_view after);

/// Which findings are shown.
struct FindingFilter {
    std::optional<FileSubject> subject{};
    std::string words{};  ///< all of them occur in its title, its file's name or its entries
};

bool matches(const BackendFinding& finding, const FindingFilter& filter);

}  // namespace kit
