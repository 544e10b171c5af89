#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Pages/PageWatch.h"

namespace kit {

/// A page that the user follows.
struct FollowedPage {
    std::string id;
    std::string address;
    std::string name;
    Instant added{};
    bool isUrgent = false;  ///< looked at more often

    bool operator==(const FollowedPage&) const = default;
};

/// A text of a page that was seen and confirmed.
struct PageRevision {
    enum class Kind { baseline, changed, returned };

    std::int64_t number = 0;
    std::string address;
    Kind kind = Kind::baseline;
    std::string key;
    std::int64_t rules = 0;
    Instant seenAt{};
    Instant confirmedAt{};
    std::optional<Instant> unchangedAt{};  ///< when the text before it was last seen
    std::optional<Instant> statedDay{};    ///< on which the page says that it was changed
    std::string url;                       ///< where it came from in the end
    std::string contentType;
    std::optional<std::string> entityTag{};
    std::optional<std::string> lastModified{};
    std::string count;     ///< "9 changes"; empty for the first one
    std::string sentence;  ///< the count with the heaviest change

    bool operator==(const PageRevision&) const = default;
};

/// A followed page and how its watch goes.
struct PageStatus {
    FollowedPage page;
    bool isOfPanel = false;  ///< only panels follow it
    PageWatchState state;    ///< without a rules version before the first look
    std::optional<Instant> lookedAt{};
    std::optional<Instant> nextLook{};
    std::optional<PageRevision> lastChange{};

    bool operator==(const PageStatus&) const = default;
};

inline constexpr std::chrono::minutes kPageInterval{30};
inline constexpr std::chrono::minutes kUrgentPageInterval{10};

/// Pages worth following, which are suggested and only followed when the user adds them.
struct SuggestedPage {
    std::string_view name;
    std::string_view address;
};

inline constexpr std::array kSuggestedPages{
    SuggestedPage{"App Store Review Guidelines",
                  "https://developer.apple.com/app-store/review/guidelines/"},
    SuggestedPage{"Upcoming requirements",
                  "https://developer.apple.com/news/upcoming-requirements/"},
    SuggestedPage{"App Store adoption figures", "https://developer.apple.com/support/app-store/"},
    SuggestedPage{"Marketing guidelines",
                  "https://developer.apple.com/app-store/marketing/guidelines/"},
    SuggestedPage{"Privacy policy", "https://www.apple.com/legal/privacy/"},
    SuggestedPage{"iCloud terms of service",
                  "https://www.apple.com/legal/internet-services/icloud/"},
    SuggestedPage{"Security releases", "https://support.apple.com/en-us/100100"},
    SuggestedPage{"Security acknowledgements", "https://support.apple.com/en-us/102774"},
    SuggestedPage{"Enterprise notes for macOS", "https://support.apple.com/en-us/124963"},
    SuggestedPage{"Update notes for macOS", "https://support.apple.com/en-us/122868"},
};

template <>
inline constexpr std::array<EnumRow<PageRevision::Kind>, 3> enumTable<PageRevision::Kind>{{
    {PageRevision::Kind::baseline, "baseline", "First look"},
    {PageRevision::Kind::changed, "changed", "Changed"},
    {PageRevision::Kind::returned, "returned", "Went back"},
}};

template <>
struct JSONFields<FollowedPage> {
    static constexpr auto fields =
        std::tuple{field("id", &FollowedPage::id), field("address", &FollowedPage::address),
                   field("name", &FollowedPage::name), field("added", &FollowedPage::added),
                   field("urgent", &FollowedPage::isUrgent)};
};

template <>
struct JSONFields<PageRevision> {
    static constexpr auto fields = std::tuple{
        field("number", &PageRevision::number),
        field("address", &PageRevision::address),
        field("kind", &PageRevision::kind),
        field("key", &PageRevision::key),
        field("rules", &PageRevision::rules),
        field("seenAt", &PageRevision::seenAt),
        field("confirmedAt", &PageRevision::confirmedAt),
        field("unchangedAt", &PageRevision::unchangedAt),
        field("statedDay", &PageRevision::statedDay),
        field("url", &PageRevision::url),
        field("contentType", &PageRevision::contentType),
        field("entityTag", &PageRevision::entityTag),
        field("lastModified", &PageRevision::lastModified),
        field("count", &PageRevision::count),
        field("sentence", &PageRevision::sentence),
    };
};

}  // namespace kit
