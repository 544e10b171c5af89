#pragma once

#include <string>

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// One place that stories come from.
struct NewsSource {
    /// Who runs it.
    enum class Kind { apple, publisher, firstParty, custom };
    /// Its group in the sidebar.
    enum class Category {
        apple,
        press,
        business,
        supplyChain,
        aggregators,
        podcasts,
        video,
        social,
        custom
    };
    /// How its feed is to be read.
    enum class Format { feed, googleNews };

    std::string id{};  ///< stable, lower case with "-" between words
    std::string name{};
    std::string feedURL{};
    std::string siteURL{};
    Kind kind = Kind::publisher;
    Category category = Category::press;
    Format format = Format::feed;
    bool onlyApple = false;      ///< keep only its stories about Apple
    double minimumInterval = 0;  ///< seconds between two fetches; 0: the desk's cadence
    bool enabledByDefault = false;

    bool operator==(const NewsSource&) const = default;
};

template <>
inline constexpr std::array<EnumRow<NewsSource::Kind>, 4> enumTable<NewsSource::Kind>{{
    {NewsSource::Kind::apple, "apple", "Apple"},
    {NewsSource::Kind::publisher, "publisher", "Publisher"},
    {NewsSource::Kind::firstParty, "firstParty", "Our blog"},
    {NewsSource::Kind::custom, "custom", "Added by you"},
}};

template <>
inline constexpr std::array<EnumRow<NewsSource::Category>, 9> enumTable<NewsSource::Category>{{
    {NewsSource::Category::apple, "apple", "Apple"},
    {NewsSource::Category::press, "press", "Apple press"},
    {NewsSource::Category::business, "business", "Business"},
    {NewsSource::Category::supplyChain, "supplyChain", "Supply chain"},
    {NewsSource::Category::aggregators, "aggregators", "Aggregators"},
    {NewsSource::Category::podcasts, "podcasts", "Podcasts"},
    {NewsSource::Category::video, "video", "Video"},
    {NewsSource::Category::social, "social", "Social"},
    {NewsSource::Category::custom, "custom", "Added by you"},
}};

template <>
inline constexpr std::array<EnumRow<NewsSource::Format>, 2> enumTable<NewsSource::Format>{{
    {NewsSource::Format::feed, "feed", "Feed"},
    {NewsSource::Format::googleNews, "googleNews", "Google News search"},
}};

}  // namespace kit
