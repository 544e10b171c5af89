#pragma once

#include <map>
#include <string>

#include "PressRoom/Answerer.h"
#include "PressRoom/World/PublishedWorld.h"

namespace pressroom {

/// Serves the feeds of the world, with their faults.
class FeedAnswerer : public Answerer {
public:
    enum class SilentHosts { no, yes };

    /// `world` must outlive it.
    FeedAnswerer(const PublishedWorld& world, SilentHosts silentHosts);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    std::optional<Response> fault(const WorldSource& source, std::chrono::sys_seconds now) const;

    const PublishedWorld& world_;
    SilentHosts silentHosts_;
    std::map<std::string, const WorldSource*, std::less<>> feeds_;
    std::map<std::string, std::string, std::less<>> moved_;
};

}  // namespace pressroom
