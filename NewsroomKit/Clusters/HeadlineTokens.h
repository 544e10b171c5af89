#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// A word or number of a headline.
struct HeadlineToken {
    std::string text{};       ///< folded
    std::uint64_t key = 0;    ///< wordKey of it
    char32_t currency = 0;    ///< the sign that touches it, in front or behind
    bool inBrackets = false;  ///< "(24B91)"
    bool isNumber = false;    ///< begins with a digit, or with at most two letters and a digit
};

/// Words of letters and digits. Points stay between digits ("27.1"), commas between digits go
/// ("1,299"), apostrophes inside words go too, with the "s" of a possessive; "%" and "per cent"
/// become "percent". What stands in square brackets is the outlet's label ("[Updated]") or a
/// platform's remark, not the news.
std::vector<HeadlineToken> headlineTokens(std::string_view text);

}  // namespace kit
