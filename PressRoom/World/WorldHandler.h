#pragma once

#include <chrono>
#include <functional>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/World/FeedRequestHandler.h"
#include "PressRoom/World/PublishedWorld.h"

namespace pressroom {

/// The time of the sample world: it equals the real time at the anchor and then runs
/// `speed` times as fast.
struct WorldClock {
    std::chrono::sys_seconds anchor;
    double speed = 1;
    std::function<std::chrono::system_clock::time_point()> realTime =
        std::chrono::system_clock::now;

    std::chrono::sys_seconds now() const {
        const std::chrono::duration<double> passed = realTime() - anchor;
        return anchor + std::chrono::floor<std::chrono::seconds>(passed * speed);
    }
};

/// Answers for every host of the sample world.
///
///     WorldHandler world(readWorld(directory), {.anchor = anchor});
///     Server server(std::ref(world));
class WorldHandler {
public:
    /// `further` are tried before the world's own handlers. Throws std::runtime_error when the
    /// stories are inconsistent or a misbehaving source does not exist.
    WorldHandler(World world, WorldClock clock, Misbehaviours misbehaviours = {},
                 RequestHandlers further = {});

    /// Thread-safe.
    Response operator()(const Request& request) const;

    const PublishedWorld& world() const { return world_; }

private:
    PublishedWorld world_;
    WorldClock clock_;
    RequestHandlers handlers_;
};

}  // namespace pressroom
