#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "NewsroomKit/Stories/Story.h"

namespace app {

/// Stories to announce. Above kMostOneByOne, one summary is posted and `stories` has only the
/// newest.
struct Announcement {
    static constexpr std::size_t kMostOneByOne = 20;

    /// `news` is newest first.
    static Announcement of(const std::vector<kit::Story>& news) {
        const auto shown = std::min(news.size(), kMostOneByOne);
        return {.stories = {news.begin(), news.begin() + static_cast<std::ptrdiff_t>(shown)},
                .total = news.size()};
    }

    std::vector<kit::Story> stories{};  ///< newest first
    std::size_t total = 0;

    bool isSummary() const { return total > kMostOneByOne; }
};

}  // namespace app
