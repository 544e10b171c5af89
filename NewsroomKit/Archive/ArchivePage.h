#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Archive/ServerCredits.h"

namespace kit {

/// A story in the archive.
struct ArchivedStory {
    std::string source{};  ///< id of the source that published it
    std::string sourceName{};
    std::string url{};
    std::string title{};
    Instant publishedAt{};
    std::optional<LenientBool> dayOnly{};  ///< only the day of publishedAt is known; absent: no
    std::optional<std::string> author{};
    std::optional<std::string> lead{};  ///< the beginning of the article
    std::optional<std::vector<ServerCredit>> credits{};

    bool isDayOnly() const { return dayOnly.value_or(LenientBool()).value; }

    bool operator==(const ArchivedStory&) const = default;
};

/// A part of the stories of a period. All keys are required.
struct ArchivePage {
    LenientInt total{};   ///< stories of the period
    LenientInt offset{};  ///< position of the first item, as asked
    std::vector<ArchivedStory> items{};

    bool operator==(const ArchivePage&) const = default;
};

template <>
struct JSONFields<ArchivedStory> {
    static constexpr auto fields = std::tuple{
        field("source", &ArchivedStory::source),
        field("source_name", &ArchivedStory::sourceName),
        field("url", &ArchivedStory::url),
        field("title", &ArchivedStory::title),
        field("published_at", &ArchivedStory::publishedAt),
        field("day_only", &ArchivedStory::dayOnly),
        field("author", &ArchivedStory::author),
        field("lead", &ArchivedStory::lead),
        field("credits", &ArchivedStory::credits),
    };
};

template <>
struct JSONFields<ArchivePage> {
    static constexpr auto fields = std::tuple{
        field("total", &ArchivePage::total),
        field("offset", &ArchivePage::offset),
        field("items", &ArchivePage::items),
    };
};

}  // namespace kit
