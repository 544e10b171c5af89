#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "PressRoom/Court/CourtWorld.h"
#include "PressRoom/RequestHandler.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// Serves CourtListener's feeds of dockets, the courts' own feeds, and the wires.
///
/// Answers depend only on the anchor and the moment.
class CourtRequestHandler : public RequestHandler {
public:
    /// Removes its own entries from `misbehaviours`: "court" for CourtListener, "court-feeds" and
    /// "press". Throws std::runtime_error when one of them can't misbehave in that way.
    CourtRequestHandler(CourtWorld world, std::chrono::sys_seconds anchor,
                        Misbehaviours& misbehaviours);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    std::optional<Response> docketFeed(const Request& request, std::chrono::sys_seconds now) const;
    Response search(const Request& request, std::chrono::sys_seconds now) const;
    std::optional<Response> courtFeed(const Request& request, std::chrono::sys_seconds now) const;
    std::optional<Response> wire(const Request& request, std::chrono::sys_seconds now) const;
    Response served(std::string_view name, const Request& request, std::string feed) const;

    CourtWorld world_;
    std::chrono::sys_seconds anchor_;
    Misbehaviours misbehaviours_;
};

}  // namespace pressroom
