#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

namespace kit {

/// Of an even count the mean of the middle two; nothing of none.
inline std::optional<double> median(std::vector<double> values) {
    if (values.empty()) return std::nullopt;
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

}  // namespace kit
