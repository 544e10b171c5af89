#pragma once

#include <string_view>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/Trackers/TrackerFault.h"
#include "PressRoom/Trackers/TrackerFiles.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// Serves Apple's two status files with their page, and the vendor's service of releases, events
/// and quotes. Leaves other addresses of those hosts to other handlers.
///
/// Answers depend only on the anchor and the moment.
class TrackerRequestHandler : public RequestHandler {
public:
    /// Removes the entries of `misbehaviours` with a tracker's name. Throws std::runtime_error when
    /// a tracker can't misbehave in that way.
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
