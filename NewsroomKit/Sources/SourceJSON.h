#pragma once

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Sources/NewsSource.h"

/// The serialised form of a source: its keys in this order.
namespace kit {

template <>
struct JSONFields<NewsSource> {
    static constexpr auto fields = std::tuple{
        field("id", &NewsSource::id),
        field("name", &NewsSource::name),
        field("feedURL", &NewsSource::feedURL),
        field("siteURL", &NewsSource::siteURL),
        field("kind", &NewsSource::kind),
        field("category", &NewsSource::category),
        field("format", &NewsSource::format),
        field("onlyApple", &NewsSource::onlyApple),
        field("minimumInterval", &NewsSource::minimumInterval),
        field("enabledByDefault", &NewsSource::enabledByDefault),
    };
};

}  // namespace kit
