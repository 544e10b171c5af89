#pragma once

#include <string_view>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/Trackers/TrackerFault.h"
#include "PressRoom/Trackers/TrackerFiles.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// Serves Apple's two status files with the page that belongs to them, and the maker's service
/// of releases, events and quotes. Other addresses of those hosts are none of its own.
///
/// For the same anchor, the same moment always has the same bytes.
class TrackerRequestHandler : public RequestHandler {
public:
    /// Takes those out of `misbehaviours` that bear a tracker's name. Throws
    /// std::runtime_error when a tracker can't misbehave in that way.
    TrackerRequestHandler(TrackerFiles files, std::chrono::sys_seconds anchor,
                          Misbehaviours& misbehaviours);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    Response statusPage(std::chrono::sys_seconds now) const;
    Response status(bool isDeveloper, const Request& request, std::chrono::sys_seconds now) const;
    Response quoteOf(const Request& request, std::chrono::sys_seconds now) const;

    TrackerFiles files_;
    std::chrono::sys_seconds anchor_;
    TrackerFaults faults_;
};

}  // namespace pressroom
