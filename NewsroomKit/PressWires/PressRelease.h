#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// A company's press release as a wire or the company itself lists it.
struct PressRelease {
    std::string title{};
    std::optional<std::string> company{};
    std::optional<std::string> symbol{};
    std::optional<std::string> exchange{};  ///< as the wire writes it
    std::optional<Instant> published{};
    std::optional<std::string> link{};
    std::string summary{};

    bool operator==(const PressRelease&) const = default;
};

template <>
struct JSONFields<PressRelease> {
    static constexpr auto fields = std::tuple{
        field("title", &PressRelease::title),         field("company", &PressRelease::company),
        field("symbol", &PressRelease::symbol),       field("exchange", &PressRelease::exchange),
        field("published", &PressRelease::published), field("link", &PressRelease::link),
        field("summary", &PressRelease::summary),
    };
};

/// What one feed of releases lists.
struct PressSheet {
    std::string channel{};                 ///< the feed's own name
    std::vector<PressRelease> releases{};  ///< in document order
    std::size_t dropped = 0;               ///< law firms' notices to investors

    bool operator==(const PressSheet&) const = default;
};

}  // namespace kit
