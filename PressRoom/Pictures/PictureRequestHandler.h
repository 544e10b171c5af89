#pragma once

#include <set>
#include <string>

#include "PressRoom/RequestHandler.h"
#include "PressRoom/World/WorldFile.h"

namespace pressroom {

/// Serves the pictures that stories name, and the icons of the apps in the charts. All are drawn
/// from their addresses.
class PictureRequestHandler : public RequestHandler {
public:
    explicit PictureRequestHandler(const World& world);

    std::optional<Response> answer(const Request& request,
                                   std::chrono::sys_seconds now) const override;

private:
    std::set<std::string, std::less<>> pictures_;  ///< lookup keys
};

}  // namespace pressroom
