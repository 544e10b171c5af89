#pragma once

#include "PressRoom/RequestHandler.h"
#include "PressRoom/Archive/References.h"
#include "PressRoom/Archive/TraceTree.h"
#include "PressRoom/Trackers/TrackerFault.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// Serves the archive of the world's stories. The world must outlive it.
class ArchiveRequestHandler : public RequestHandler {
public:
    /// Removes the entries of `misbehaviours` that name a part of the archive. Throws
    /// std::runtime_error when it can't misbehave in that way.
    ArchiveRequestHandler(const PublishedWorld& world, Misbehaviours& misbehaviours);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    using Time = std::chrono::sys_seconds;

    Response stories(const Request& request, Time now) const;
    Response status(const Request& request, Time now) const;
    Response credits(const Request& request, Time now) const;
    Response trace(const Request& request, Time now) const;

    boost::json::object story(const Item& item) const;
    boost::json::array creditsOf(const Item& item) const;

    const PublishedWorld& world_;
    References references_;
    Outlets outlets_;
    TrackerFaults faults_;
};

}  // namespace pressroom
