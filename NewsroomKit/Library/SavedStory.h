#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// A story that the user saved, as the feed gave it then. It outlives the story and its page.
struct SavedStory {
    std::string id{};  ///< the story's
    Instant savedAt{};
    std::string link{};
    std::string title{};
    std::string excerpt{};
    std::optional<std::string> author{};
    Instant publishedAt{};
    std::string sourceID{};  ///< empty for an imported link, whose publishedAt is when it was saved
    std::string sourceName{};
    std::optional<std::string> destinationName{};
    std::optional<std::string> imageURL{};
    std::optional<std::string> articleLink{};
    std::vector<std::string> tags{};        ///< each once, sorted
    std::vector<std::string> projectIDs{};  ///< each once, sorted

    bool operator==(const SavedStory&) const = default;
};

/// The text of a saved story's page, as it was fetched once.
struct SavedText {
    std::string url{};
    Instant fetchedAt{};
    std::string sha256{};  ///< of `text`, in lower-case hexadecimal
    std::string title{};
    std::string text{};  ///< paragraphs with an empty line between them

    bool operator==(const SavedText&) const = default;
};

template <>
struct JSONFields<SavedStory> {
    static constexpr auto fields = std::tuple{
        field("id", &SavedStory::id),
        field("savedAt", &SavedStory::savedAt),
        field("link", &SavedStory::link),
        field("title", &SavedStory::title),
        field("excerpt", &SavedStory::excerpt),
        field("author", &SavedStory::author),
        field("publishedAt", &SavedStory::publishedAt),
        field("sourceID", &SavedStory::sourceID),
        field("sourceName", &SavedStory::sourceName),
        field("destinationName", &SavedStory::destinationName),
        field("imageURL", &SavedStory::imageURL),
        field("articleLink", &SavedStory::articleLink),
        field("tags", &SavedStory::tags),
        field("projectIDs", &SavedStory::projectIDs),
    };
};

template <>
struct JSONFields<SavedText> {
    static constexpr auto fields = std::tuple{
        field("url", &SavedText::url),       field("fetchedAt", &SavedText::fetchedAt),
        field("sha256", &SavedText::sha256), field("title", &SavedText::title),
        field("text", &SavedText::text),
    };
};

}  // namespace kit
