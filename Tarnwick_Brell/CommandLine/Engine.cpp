#include "Tarnwick_Brell/CommandLine/Engine.h"

#include "Tarnwick_Brell/CommandLine/Session.h"

namespace brell {

Engine::Engine(newsroom::CurlTransport::Options network, newsroom::Conditional conditional)
    : fetching_(std::move(network), conditional, &currentInstant) {}

}  // namespace brell
