#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "PressRoom/Backend/BackendWorld.h"
#include "PressRoom/RequestHandler.h"
#include "PressRoom/World/Misbehaviour.h"

namespace pressroom {

/// Serves Apple's public files, whose entries change places in every answer.
class BackendRequestHandler : public RequestHandler {
public:
    /// Removes its own entry "backend" from `misbehaviours`. Throws std::runtime_error when it
    /// can't misbehave in that way.
    BackendRequestHandler(WorldPublicFiles files, std::chrono::sys_seconds anchor,
                          Misbehaviours& misbehaviours);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    std::string document(const WorldPublicFile& file, std::chrono::sys_seconds now) const;

    WorldPublicFiles files_;
    std::chrono::sys_seconds anchor_;
    std::optional<Misbehaviour> misbehaviour_;
};

}  // namespace pressroom
