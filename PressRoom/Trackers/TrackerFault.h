#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <boost/json.hpp>

#include "PressRoom/Server/Message.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// What a tracker answers with, and where in it a fault can be put.
struct TrackerAnswer {
    boost::json::object document;
    /// The key of its list, or of its object of platforms, wherever that stands.
    std::string_view list;
    std::string_view requiredKey;  ///< one that each entry must have
    std::string_view dateKey;      ///< holds a date wherever it stands
    /// Apple's file for everybody is a script's call around the object.
    bool isWrapped = false;

    std::string text() const;
};

/// How some trackers misbehave.
class TrackerFaults {
public:
    /// Takes those out of `misbehaviours` that bear one of the names. Throws std::runtime_error
    /// when a tracker can't misbehave in that way.
    TrackerFaults(const std::vector<std::string_view>& names, Misbehaviours& misbehaviours);

    /// The answer of the tracker of that name, or what its fault makes of it.
    Response served(std::string_view name, const Request& request, TrackerAnswer answer) const;

private:
    Misbehaviours misbehaviours_;
};

}  // namespace pressroom
