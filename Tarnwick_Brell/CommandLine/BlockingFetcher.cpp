#include "Tarnwick_Brell/CommandLine/BlockingFetcher.h"

#include "Tarnwick_Brell/CommandLine/Session.h"

namespace cli {

BlockingFetcher::BlockingFetcher(kit::CurlTransport::Options network, kit::Conditional conditional)
    : fetching_(std::move(network), conditional, &currentInstant) {}

}  // namespace cli
