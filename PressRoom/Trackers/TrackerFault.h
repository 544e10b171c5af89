#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <boost/json.hpp>

#include "PressRoom/Server/Message.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// A tracker's answer and the places in it where a fault can be inserted.
struct TrackerAnswer {
    boost::json::object document;
    /// The key of its list, or of its object of platforms, at any depth.
    std::string_view list;
    std::string_view requiredKey;  ///< a required key of each entry
    std::string_view dateKey;      ///< has a date as its value everywhere
    /// Apple's consumer file wraps the object in a script's call.
    bool isWrapped = false;

    std::string text() const;
};

/// The misbehaviour of some trackers.
class TrackerFaults {
public:
    /// Removes the entries of `misbehaviours` with these names. Throws std::runtime_error when a
    /// tracker can't misbehave in that way.
    TrackerFaults(const std::vector<std::string_view>& names, Misbehaviours& misbehaviours);

    /// The answer of the tracker of that name, altered by its fault if it has one.
    Response served(std::string_view name, const Request& request, TrackerAnswer answer) const;

private:
    Misbehaviours misbehaviours_;
};

}  // namespace pressroom
