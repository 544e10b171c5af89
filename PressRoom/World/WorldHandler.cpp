#include "PressRoom/World/WorldHandler.h"

#include "PressRoom/Archive/ArchiveRequestHandler.h"
#include "PressRoom/World/PageRequestHandler.h"

namespace pressroom {

WorldHandler::WorldHandler(World world, WorldClock clock, Misbehaviours misbehaviours,
                           Answerers further)
    : world_(std::move(world), clock.anchor),
      clock_(std::move(clock)),
      answerers_(std::move(further)) {
    answerers_.push_back(std::make_unique<ArchiveRequestHandler>(world_, misbehaviours));
    answerers_.push_back(std::make_unique<FeedRequestHandler>(world_, misbehaviours));
    answerers_.push_back(std::make_unique<PageRequestHandler>(world_));
}

Response WorldHandler::operator()(const Request& request) const {
    return answerInTurn(answerers_, request, clock_.now());
}

}  // namespace pressroom
