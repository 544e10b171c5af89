#pragma once

#include <map>
#include <memory>
#include <string>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/World/Misbehaviour.h"
#include "PressRoom/World/MisbehavingFeed.h"
#include "PressRoom/World/PublishedWorld.h"

namespace pressroom {

/// Serves the feeds of the world, with their faults.
class FeedRequestHandler : public RequestHandler {
public:
    /// `world` must outlive it. An entry of `misbehaviours` replaces the source's own fault. Throws
    /// std::runtime_error when there is no such source.
    FeedRequestHandler(const PublishedWorld& world, const Misbehaviours& misbehaviours);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    std::optional<Response> fault(const WorldSource& source, std::chrono::sys_seconds now) const;

    const PublishedWorld& world_;
    std::map<std::string, const WorldSource*, std::less<>> feeds_;
    std::map<std::string, std::string, std::less<>> moved_;
    std::map<const WorldSource*, std::unique_ptr<MisbehavingFeed>> misbehaving_;
};

}  // namespace pressroom
