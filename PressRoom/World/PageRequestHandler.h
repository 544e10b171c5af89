#pragma once

#include <map>
#include <string>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/World/PublishedWorld.h"

namespace pressroom {

/// Serves web pages: one per story, and the home page of every source, which names its feed in a
/// link element.
class PageRequestHandler : public RequestHandler {
public:
    /// `world` must outlive it.
    explicit PageRequestHandler(const PublishedWorld& world);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    std::optional<Response> page(const std::string& key, std::chrono::sys_seconds now) const;
    Response home(const WorldSource& source, std::chrono::sys_seconds now) const;

    const PublishedWorld& world_;
    std::map<std::string, const WorldSource*, std::less<>> homes_;
    std::map<std::string, const Item*, std::less<>> stories_;
};

}  // namespace pressroom
