#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/PageBlock.h"

namespace kit {

/// The day on which a page says that it was changed, and where in the text it says so.
struct StatedDate {
    Instant day{};
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// "Last Updated: March 5, 2024", "Published Date: 5 March 2024", "Updated 2024-03-05"; nothing for
/// dates that stand for something else.
std::optional<StatedDate> statedDate(std::string_view text);

/// The latest that any of the blocks states.
std::optional<Instant> statedDay(const std::vector<PageBlock>& blocks);

/// Whether the two texts are the same but for the date that both state.
bool differInDateOnly(std::string_view before, std::string_view after);

}  // namespace kit
