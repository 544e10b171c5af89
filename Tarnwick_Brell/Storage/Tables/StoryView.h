#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

namespace app {

/// A stored story whose texts lie elsewhere, for those who read very many and keep them in
/// a form of their own.
struct StoryView {
    std::string_view id{};
    std::string_view link{};
    std::string_view title{};
    std::string_view summary{};
    std::optional<std::string_view> author{};
    kit::Instant publishedAt{};
    std::optional<std::string_view> imageURL{};
    std::string_view sourceID{};
    std::string_view sourceName{};
    std::optional<std::string_view> destinationName{};
    bool isAppleSource = false;
    kit::StoryKind kind = kit::StoryKind::coverage;
    kit::Sourcing sourcing = kit::Sourcing::unlabeled;
    std::optional<std::int64_t> wordpressID{};
    std::optional<std::string_view> articleLink{};
    std::string_view credits{};  ///< serialised; empty when there are none
    kit::Instant firstSeen{};
    Arrival arrival = Arrival::fresh;
    std::int64_t number = 0;
    std::optional<kit::Instant> readAt{};
    std::optional<kit::Instant> savedAt{};

    StoredStory stored() const;
};

}  // namespace app
