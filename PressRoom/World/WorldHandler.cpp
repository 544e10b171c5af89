#include "PressRoom/World/WorldHandler.h"

#include "PressRoom/Archive/ArchiveRequestHandler.h"
#include "PressRoom/Pictures/PictureRequestHandler.h"
#include "PressRoom/World/PageRequestHandler.h"
#include "PressRoom/World/RedirectRequestHandler.h"

namespace pressroom {

WorldHandler::WorldHandler(World world, WorldClock clock, Misbehaviours misbehaviours,
                           RequestHandlers further)
    : world_(std::move(world), clock.anchor),
      clock_(std::move(clock)),
      handlers_(std::move(further)) {
    handlers_.push_back(std::make_unique<ArchiveRequestHandler>(world_, misbehaviours));
    handlers_.push_back(std::make_unique<FeedRequestHandler>(world_, misbehaviours));
    handlers_.push_back(std::make_unique<PictureRequestHandler>(world_.sources()));
    handlers_.push_back(std::make_unique<RedirectRequestHandler>(world_));
    handlers_.push_back(std::make_unique<PageRequestHandler>(world_));
}

Response WorldHandler::operator()(const Request& request) const {
    return answerInTurn(handlers_, request, clock_.now());
}

}  // namespace pressroom
