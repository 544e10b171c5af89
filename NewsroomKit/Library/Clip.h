#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// A passage that the user clipped from a story, with what a citation of it needs. The story need
/// not be in the library any more.
struct Clip {
    std::string id{};      ///< a UUID
    std::string quote{};   ///< never changes
    std::string prefix{};  ///< up to 32 characters before the quote, by which it is found again
    std::string suffix{};  ///< up to 32 characters behind it
    std::string storyID{};
    std::string link{};
    std::string title{};
    std::string sourceName{};
    std::optional<std::string> author{};
    std::optional<Instant> publishedAt{};
    Instant accessedAt{};
    std::string note{};
    std::vector<std::string> tags{};        ///< each once, sorted
    std::vector<std::string> projectIDs{};  ///< each once, sorted

    bool operator==(const Clip&) const = default;
};

inline constexpr std::size_t kMostBytesOfQuote = 20'000;

template <>
struct JSONFields<Clip> {
    static constexpr auto fields = std::tuple{
        field("id", &Clip::id),
        field("quote", &Clip::quote),
        field("prefix", &Clip::prefix),
        field("suffix", &Clip::suffix),
        field("storyID", &Clip::storyID),
        field("link", &Clip::link),
        field("title", &Clip::title),
        field("sourceName", &Clip::sourceName),
        field("author", &Clip::author),
        field("publishedAt", &Clip::publishedAt),
        field("accessedAt", &Clip::accessedAt),
        field("note", &Clip::note),
        field("tags", &Clip::tags),
        field("projectIDs", &Clip::projectIDs),
    };
};

}  // namespace kit
