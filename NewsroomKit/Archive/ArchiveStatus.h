#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Archive/LenientValues.h"

namespace kit {

/// How complete the archive is. `complete` and `sources` are required.
struct ArchiveStatus {
    /// The service's figures for one source. Absent figures are unknown.
    struct Source {
        std::string id{};
        std::string name{};
        std::optional<LenientInt> listed{};   ///< stories known to exist
        std::optional<LenientInt> stored{};   ///< of these, stories in the archive
        std::optional<LenientInt> waiting{};  ///< stories not yet read

        bool operator==(const Source&) const = default;
    };

    LenientBool complete{};  ///< nothing is waiting
    std::vector<Source> sources{};

    bool operator==(const ArchiveStatus&) const = default;
};

template <>
struct JSONFields<ArchiveStatus::Source> {
    using Source = ArchiveStatus::Source;
    static constexpr auto fields = std::tuple{
        field("id", &Source::id),           field("name", &Source::name),
        field("listed", &Source::listed),   field("stored", &Source::stored),
        field("waiting", &Source::waiting),
    };
};

template <>
struct JSONFields<ArchiveStatus> {
    static constexpr auto fields = std::tuple{
        field("complete", &ArchiveStatus::complete),
        field("sources", &ArchiveStatus::sources),
    };
};

}  // namespace kit
