#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Archive/OpenValues.h"

namespace newsroom {

/// How complete the archive is. `complete` and `sources` are required.
struct ArchiveStatus {
    /// The service's figures for one source. Absent: it does not know.
    struct Source {
        std::string id{};
        std::string name{};
        std::optional<OpenCount> listed{};   ///< stories that it knows to exist
        std::optional<OpenCount> stored{};   ///< of these, stories in the archive
        std::optional<OpenCount> waiting{};  ///< and stories that it has yet to read

        bool operator==(const Source&) const = default;
    };

    OpenTruth complete{};  ///< nothing is waiting
    std::vector<Source> sources{};

    bool operator==(const ArchiveStatus&) const = default;
};

template <>
struct RecordShape<ArchiveStatus::Source> {
    using Source = ArchiveStatus::Source;
    static constexpr auto fields = std::tuple{
        field("id", &Source::id),           field("name", &Source::name),
        field("listed", &Source::listed),   field("stored", &Source::stored),
        field("waiting", &Source::waiting),
    };
};

template <>
struct RecordShape<ArchiveStatus> {
    static constexpr auto fields = std::tuple{
        field("complete", &ArchiveStatus::complete),
        field("sources", &ArchiveStatus::sources),
    };
};

}  // namespace newsroom
