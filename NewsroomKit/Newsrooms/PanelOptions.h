#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/RecordHash.h"

namespace kit {

/// Settings of a panel; each kind uses its own. A key that is missing when read takes the default
/// here.
struct PanelOptions {
    bool alerts = false;                    ///< new matching items raise notifications
    std::vector<std::string> eventTerms{};  ///< words that name the events to mark
    std::string stockRange = "1m";
    std::vector<std::string> platforms{"iOS", "iPadOS", "macOS", "watchOS", "tvOS", "visionOS"};
    std::vector<std::string> pages{};  ///< addresses of Apple's web pages to follow

    bool operator==(const PanelOptions&) const = default;
};

/// An https address on Apple's main web domain or one of its sub-hosts. Reading drops every
/// other page, so that a newsroom from elsewhere cannot make the desk visit other hosts.
bool isFollowablePage(std::string_view address);

template <>
struct JSONFields<PanelOptions> {
    static constexpr auto fields = std::tuple{
        field("alerts", &PanelOptions::alerts),
        field("eventTerms", &PanelOptions::eventTerms),
        field("stockRange", &PanelOptions::stockRange),
        field("platforms", &PanelOptions::platforms),
        field("pages", &PanelOptions::pages),
    };
};

template <>
struct Codec<PanelOptions> {
    static json::value encode(const PanelOptions& options, DateStyle dates);
    static PanelOptions decode(const json::value& value);
};

}  // namespace kit

template <>
struct std::hash<kit::PanelOptions> : kit::RecordHash<kit::PanelOptions> {};
