#pragma once

#include "NewsroomKit/Feeds/FeedEntry.h"
#include "NewsroomKit/Records/Codec.h"

/// The serialised form of a feed entry: its keys in this order.
namespace kit {

template <>
struct JSONFields<FeedEntry> {
    static constexpr auto fields = std::tuple{
        field("guid", &FeedEntry::guid),
        field("title", &FeedEntry::title),
        field("link", &FeedEntry::link),
        field("summaryHTML", &FeedEntry::summaryHTML),
        field("contentHTML", &FeedEntry::contentHTML),
        field("publishedAt", &FeedEntry::publishedAt),
        field("imageURL", &FeedEntry::imageURL),
        field("author", &FeedEntry::author),
        field("publisher", &FeedEntry::publisher),
        field("medium", &FeedEntry::medium),
    };
};

}  // namespace kit
