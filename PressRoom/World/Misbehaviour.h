#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/EnumTable.h"

namespace pressroom {

/// Ways in which a feed or a tracker can misbehave from the start; README.md describes each.
enum class MisbehaviourKind {
    silent,
    busy,
    unavailable,
    page,
    missing,
    empty,
    partial,
    incomplete,
    huge,
    broken,
    slow,
    rotating,
    retitled,
    samelink,
    republished,
    undated,
    future,
    undeclared,
    threshold
};

struct Misbehaviour {
    MisbehaviourKind kind = MisbehaviourKind::silent;
    /// Seconds of Retry-After for busy and unavailable, milliseconds before the answer for slow.
    std::int64_t amount = 0;

    bool operator==(const Misbehaviour&) const = default;
};

/// Reads "busy", "busy:30", "slow:1500". Nothing for an unknown kind, or for a number where the
/// kind has none.
std::optional<Misbehaviour> readMisbehaviour(std::string_view text);

/// By source id, or by the name of a tracker or of a part of the archive.
using Misbehaviours = std::map<std::string, Misbehaviour, std::less<>>;

}  // namespace pressroom

template <>
inline constexpr std::array<kit::EnumRow<pressroom::MisbehaviourKind>, 19>
    kit::enumTable<pressroom::MisbehaviourKind>{{
        {pressroom::MisbehaviourKind::silent, "silent", "takes requests and never answers"},
        {pressroom::MisbehaviourKind::busy, "busy", "429 with Retry-After"},
        {pressroom::MisbehaviourKind::unavailable, "unavailable", "503 with Retry-After"},
        {pressroom::MisbehaviourKind::page, "page", "a web page instead"},
        {pressroom::MisbehaviourKind::missing, "missing", "404"},
        {pressroom::MisbehaviourKind::empty, "empty", "an empty list"},
        {pressroom::MisbehaviourKind::partial, "partial", "half of the list"},
        {pressroom::MisbehaviourKind::incomplete, "incomplete", "a required part missing"},
        {pressroom::MisbehaviourKind::huge, "huge", "about 5 MB"},
        {pressroom::MisbehaviourKind::broken, "broken", "cut off half-way"},
        {pressroom::MisbehaviourKind::slow, "slow", "answers late"},
        {pressroom::MisbehaviourKind::rotating, "rotating", "different links on every fetch"},
        {pressroom::MisbehaviourKind::retitled, "retitled", "different headlines on every fetch"},
        {pressroom::MisbehaviourKind::samelink, "samelink", "one link for all items, no guid"},
        {pressroom::MisbehaviourKind::republished, "republished", "its archive as news"},
        {pressroom::MisbehaviourKind::undated, "undated", "no dates, or unreadable ones"},
        {pressroom::MisbehaviourKind::future, "future", "dates in the future"},
        {pressroom::MisbehaviourKind::undeclared, "undeclared",
         "403 for programs that name no mail address"},
        {pressroom::MisbehaviourKind::threshold, "threshold", "403 after too many requests"},
    }};
