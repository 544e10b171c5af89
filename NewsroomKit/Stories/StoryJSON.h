#pragma once

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Stories/Story.h"

/// The serialised form of a story: its keys in this order.
namespace kit {

template <>
struct JSONFields<SourceCredit> {
    static constexpr auto fields = std::tuple{
        field("kind", &SourceCredit::kind),         field("platform", &SourceCredit::platform),
        field("name", &SourceCredit::name),         field("url", &SourceCredit::url),
        field("postedAt", &SourceCredit::postedAt), field("detail", &SourceCredit::detail),
    };
};

template <>
struct JSONFields<Story> {
    static constexpr auto fields = std::tuple{
        field("id", &Story::id),
        field("link", &Story::link),
        field("title", &Story::title),
        field("summary", &Story::summary),
        field("author", &Story::author),
        field("publishedAt", &Story::publishedAt),
        field("imageURL", &Story::imageURL),
        field("sourceID", &Story::sourceID),
        field("sourceName", &Story::sourceName),
        field("destinationName", &Story::destinationName),
        field("isAppleSource", &Story::isAppleSource),
        field("kind", &Story::kind),
        field("sourcing", &Story::sourcing),
        field("wordpressID", &Story::wordpressID),
        field("articleLink", &Story::articleLink),
        field("credits", &Story::credits),
    };
};

}  // namespace kit
