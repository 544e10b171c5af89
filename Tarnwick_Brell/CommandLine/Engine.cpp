#include "Tarnwick_Brell/CommandLine/Engine.h"

#include "Tarnwick_Brell/CommandLine/Session.h"

namespace brell {

namespace {

// Parsing keeps up with the network on two threads; more only costs memory.
constexpr std::size_t kWorkers = 2;

}  // namespace

Engine::Engine(newsroom::CurlTransport::Options network, newsroom::Conditional conditional)
    : workers_(kWorkers),
      conversion_(links_),
      transport_(std::move(network)),
      http_(transport_),
      feeds_(http_, conversion_, workers_, &currentInstant, {.conditional = conditional}) {}

}  // namespace brell
