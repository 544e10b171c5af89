#include "Tarnwick_Brell/Shell/Premises.h"

#include <fstream>
#include <utility>

#include "NewsroomKit/Signals/SignalHosts.h"
#include "Tarnwick_Brell/Storage/Defaults.h"

namespace desk {

namespace {

std::optional<std::filesystem::path> dataDir(const DeskOptions& options) {
    if (options.dataDir || !options.demo) return options.dataDir;
    return demoDataDir();
}

bool isReadable(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && std::ifstream(file);
}

}  // namespace

Premises::Premises(DeskOptions options, newsroom::Instant now)
    : options_(std::move(options)), now_(now), paths_(Paths::forUser(dataDir(options_))) {
    if (options_.demo && (options_.connectTo || options_.caFile)) {
        throw OptionsClash(
            "--demo brings its own press room, so --connect-to and --ca-file can't go with it.");
    }
}

newsroom::CurlTransport::Options Premises::network(const Warning& warn) {
    newsroom::CurlTransport::Options network{.connectTo = options_.connectTo,
                                             .caFile = options_.caFile};
    if (options_.demo) {
        if (!pressRoom_)
            pressRoom_ = std::make_unique<DemoPressRoom>(paths_.library.parent_path(), now_);
        network.connectTo = pressRoom_->address();
        network.caFile = pressRoom_->authority();
    } else if (const auto authority = Defaults(paths_.settings).updateCatalogueAuthority()) {
        if (isReadable(*authority)) {
            network.extraAuthorities.emplace(hostOf(newsroom::SignalService::updates), *authority);
        } else {
            warn("The certificate file " + authority->string() + ", which the setting " +
                 std::string(SettingKey::kUpdateCatalogueAuthority) + " names, can't be read.");
        }
    }
    return network;
}

}  // namespace desk
