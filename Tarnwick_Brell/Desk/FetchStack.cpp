#include "Tarnwick_Brell/Desk/FetchStack.h"

namespace app {

namespace {

// Parsing keeps up with the network on two threads; more only costs memory.
constexpr std::size_t kWorkers = 2;

}  // namespace

FetchStack::FetchStack(kit::CurlTransport::Options network, kit::Conditional conditional,
                       kit::Clock clock)
    : workers_(kWorkers),
      conversion_(links_),
      isPaced_(!network.connectTo),
      transport_(std::move(network)),
      http_(transport_, {.isPaced = isPaced_}),
      feeds_(http_, conversion_, workers_, std::move(clock), {.conditional = conditional}),
      conditional_(conditional) {}

}  // namespace app
