#pragma once

#include <chrono>
#include <optional>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/AppleData/AppleData.h"
#include "PressRoom/Trackers/TrackerFault.h"

namespace pressroom {

/// Serves the device-firmware service, Apple's update catalogue and the App Store's charts.
///
/// Answers depend only on the anchor and the moment.
class AppleDataRequestHandler : public RequestHandler {
public:
    /// Removes its own entries from `misbehaviours`: "signing", "updates" and "charts". Throws
    /// std::runtime_error when one of them can't misbehave in that way.
    AppleDataRequestHandler(AppleData files, std::chrono::sys_seconds anchor,
                            Misbehaviours& misbehaviours);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    std::optional<Response> signing(const Request& request, std::chrono::sys_seconds now) const;
    std::optional<Response> updates(const Request& request, std::chrono::sys_seconds now) const;
    std::optional<Response> chart(const Request& request, std::chrono::sys_seconds now) const;

    AppleData files_;
    std::chrono::sys_seconds anchor_;
    TrackerFaults faults_;
};

}  // namespace pressroom
