#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "PressRoom/Pages/PagesWorld.h"
#include "PressRoom/RequestHandler.h"

namespace pressroom {

/// Serves web pages that change over time, as their world file says, and sends block pages, old
/// copies and halves of them in between.
class PagesRequestHandler : public RequestHandler {
public:
    PagesRequestHandler(WorldWebPages pages, std::chrono::sys_seconds anchor)
        : pages_(std::move(pages)), anchor_(anchor) {}

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    const WorldPageFault* faultAt(const WorldWebPage& page, std::chrono::sys_seconds now) const;

    WorldWebPages pages_;
    std::chrono::sys_seconds anchor_;
};

}  // namespace pressroom
