#pragma once

#include <string>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// One entry of Apple's calendar of events and releases.
struct AppleCalendarEvent {
    std::string id{};
    std::string title{};
    Instant starts{};
    std::string window{};  ///< the time of it, as the service words it
    std::string status{};
    std::string source{};
    std::string publisher{};

    bool isAnniversary() const;
    bool isReleased() const { return status == "released"; }
    /// Nobody has announced it; the calendar only passes a rumour on.
    bool isRumored() const;
    /// Whether it is under way at `now`, when events take `length`. Anniversaries, what has been
    /// released and what is only rumoured never are.
    bool isOn(Instant now, Instant::duration length) const;

    bool operator==(const AppleCalendarEvent&) const = default;
};

template <>
struct JSONFields<AppleCalendarEvent> {
    static constexpr auto fields = std::tuple{
        field("id", &AppleCalendarEvent::id),
        field("title", &AppleCalendarEvent::title),
        field("starts", &AppleCalendarEvent::starts),
        field("window", &AppleCalendarEvent::window),
        field("status", &AppleCalendarEvent::status),
        field("source", &AppleCalendarEvent::source),
        field("publisher", &AppleCalendarEvent::publisher),
    };
};

}  // namespace kit
