#pragma once

#include <map>
#include <string>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// What the user collects evidence for. Its members name it; removing a project removes none.
struct Project {
    std::string id{};  ///< a UUID
    std::string name{};
    std::string description{};
    std::string color{};  ///< "#RRGGBB", or empty for none
    bool isArchived = false;
    Instant createdAt{};
    /// The user's own order of members, by "clip:ID", "note:ID", "story:ID" or "signal:ID"; those
    /// without a rank stand where their time puts them.
    std::map<std::string, std::string> ranks{};
    /// What the user has ticked off, by the same keys.
    std::map<std::string, bool> done{};

    bool operator==(const Project&) const = default;
};

template <>
struct JSONFields<Project> {
    static constexpr auto fields = std::tuple{
        field("id", &Project::id),
        field("name", &Project::name),
        field("description", &Project::description),
        field("color", &Project::color),
        field("archived", &Project::isArchived),
        field("createdAt", &Project::createdAt),
        field("ranks", &Project::ranks),
        field("done", &Project::done),
    };
};

}  // namespace kit
