#include "Tarnwick_Brell/Shell/Premises.h"

#include <utility>

#include "Tarnwick_Brell/Storage/Defaults.h"

namespace desk {

namespace {

// Its certificate is signed by an authority that systems do not know.
constexpr const char* kUpdateCatalogueHost = "gdmf.apple.com";

std::optional<std::filesystem::path> dataDir(const DeskOptions& options) {
    if (options.dataDir || !options.demo) return options.dataDir;
    return demoDataDir();
}

}  // namespace

Premises::Premises(DeskOptions options, newsroom::Instant now)
    : options_(std::move(options)), now_(now), paths_(Paths::forUser(dataDir(options_))) {
    if (options_.demo && (options_.connectTo || options_.caFile)) {
        throw OptionsClash(
            "--demo brings its own press room, so --connect-to and --ca-file can't go with it.");
    }
}

newsroom::CurlTransport::Options Premises::network() {
    newsroom::CurlTransport::Options network{.connectTo = options_.connectTo,
                                             .caFile = options_.caFile};
    if (options_.demo) {
        if (!pressRoom_)
            pressRoom_ = std::make_unique<DemoPressRoom>(paths_.library.parent_path(), now_);
        network.connectTo = pressRoom_->address();
        network.caFile = pressRoom_->authority();
    } else if (const auto authority = Defaults(paths_.settings).updateCatalogueAuthority()) {
        network.extraAuthorities.emplace(kUpdateCatalogueHost, *authority);
    }
    return network;
}

}  // namespace desk
