#pragma once

#include <optional>
#include <string>

#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// One item of a feed as published, with its texts still in HTML.
struct FeedEntry {
    enum class Medium { article, audio, video, post };

    std::string guid{};  ///< RSS guid or Atom id; empty when none
    std::string title{};
    std::string link{};  ///< empty when none
    std::string summaryHTML{};
    std::string contentHTML{};
    std::optional<Instant> publishedAt{};
    std::optional<std::string> imageURL{};
    std::optional<std::string> author{};
    std::optional<std::string> publisher{};  ///< the item's "source" element
    Medium medium = Medium::article;

    bool operator==(const FeedEntry&) const = default;
};

template <>
inline constexpr std::array<EnumRow<FeedEntry::Medium>, 4> enumTable<FeedEntry::Medium>{{
    {FeedEntry::Medium::article, "article", "Article"},
    {FeedEntry::Medium::audio, "audio", "Audio"},
    {FeedEntry::Medium::video, "video", "Video"},
    {FeedEntry::Medium::post, "post", "Post"},
}};

}  // namespace kit
