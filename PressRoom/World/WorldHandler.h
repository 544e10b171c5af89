#pragma once

#include "PressRoom/RequestHandler.h"
#include "PressRoom/World/FeedRequestHandler.h"
#include "PressRoom/World/PublishedWorld.h"
#include "PressRoom/World/WorldClock.h"

namespace pressroom {

/// Answers for every host of the sample world.
///
///     WorldHandler world(readWorld(directory), {.anchor = anchor});
///     Server server(std::ref(world));
class WorldHandler {
public:
    /// `further` are tried before the world's own handlers. Throws std::runtime_error when the
    /// stories are inconsistent or a misbehaving source does not exist.
    WorldHandler(World world, WorldClock clock, Misbehaviours misbehaviours = {},
                 Answerers further = {});

    /// Thread-safe.
    Response operator()(const Request& request) const;

    const PublishedWorld& world() const { return world_; }

private:
    PublishedWorld world_;
    WorldClock clock_;
    Answerers answerers_;
};

}  // namespace pressroom
