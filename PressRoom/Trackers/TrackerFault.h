#pragma once

#include <span>
#include <string_view>

#include <boost/json.hpp>

#include "PressRoom/Server/Message.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// What a tracker answers with, and where in it a fault can be put.
struct TrackerAnswer {
    boost::json::object document;
    std::string_view list;         ///< the key of its list, or of its object of platforms
    std::string_view requiredKey;  ///< one that each entry must have
    std::string_view dateKey;      ///< holds a date wherever it stands
    /// Apple's file for everybody is a script's call around the object.
    bool isWrapped = false;

    std::string text() const;
};

/// Takes those with one of these names out of `misbehaviours`. Throws std::runtime_error when
/// it is a way in which trackers can't misbehave.
Misbehaviours takeMisbehaviours(std::span<const std::string_view> names,
                                Misbehaviours& misbehaviours);

/// The answer of a tracker that misbehaves in a way that trackers can.
Response faultyAnswer(const Request& request, TrackerAnswer answer, Misbehaviour misbehaviour);

Response trackerResponse(const Request& request, const TrackerAnswer& answer);

}  // namespace pressroom
