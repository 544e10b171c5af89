#include "Tarnwick_Brell/Shell/LaunchContext.h"

#include <chrono>
#include <fstream>
#include <utility>

#include "NewsroomKit/Log/Log.h"
#include "NewsroomKit/Trackers/TrackerHosts.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

kit::Instant currentInstant() {
    return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
}

namespace {

constexpr std::string_view kDemoContact = "reader@example.org";

std::optional<std::filesystem::path> dataDir(const DeskOptions& options) {
    if (options.dataDir || !options.demo) return options.dataDir;
    return demoDataDir();
}

std::string kindOf(std::filesystem::file_type type) {
    using std::filesystem::file_type;
    switch (type) {
        case file_type::regular: return "a file";
        case file_type::fifo: return "a pipe";
        case file_type::character:
        case file_type::block: return "a device";
        case file_type::socket: return "a socket";
        default: return "something else";
    }
}

/// Refuses a path that is not a folder, because reading a library there would find none and treat
/// it as empty. A missing folder is created when it is needed. Throws StoreError.
void requireFolder(const std::filesystem::path& folder) {
    std::error_code error;
    const auto type = std::filesystem::status(folder, error).type();
    using std::filesystem::file_type;
    if (type == file_type::directory || type == file_type::not_found) return;
    const auto reason = error == std::errc::too_many_symbolic_link_levels
                            ? std::string("its symbolic links form a loop")
                        : error ? error.message()
                                : "it is " + kindOf(type) + ", not a folder";
    throw StoreError(StoreError::Reason::unreadable,
                     "The desk's data can't be stored in " + folder.string() + ": " + reason + ".");
}

bool isReadable(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && std::ifstream(file);
}

}  // namespace

LaunchContext::LaunchContext(DeskOptions options, kit::Instant now)
    : options_(std::move(options)), now_(now), paths_(Paths::forUser(dataDir(options_))) {
    if (options_.demo && (options_.connectTo || options_.caFile)) {
        throw OptionsClash(
            "--demo uses its own press room, so --connect-to and --ca-file can't be given with "
            "it.");
    }
    const auto folder = paths_.library.parent_path();
    requireFolder(folder);
    if (options_.demo) claimForDemo(folder, now_);
}

ProgramLog::Options LaunchContext::log() const {
    auto levels = options_.log;
    if (!levels) levels = Defaults(paths_.settings).text(SettingKey::kLogLevels);
    // The settings file may have been edited by hand.
    if (!levels || !kit::LogLevels::parseError(*levels).empty()) levels = "info";
    return {.file = paths_.log, .levels = *levels, .toStandardError = options_.log.has_value()};
}

kit::CurlTransport::Options LaunchContext::network(const Warning& warn) {
    kit::CurlTransport::Options network{.connectTo = options_.connectTo, .caFile = options_.caFile};
    if (options_.demo) {
        if (!pressRoom_)
            pressRoom_ = std::make_unique<DemoPressRoom>(paths_.library.parent_path(), now_);
        network.connectTo = pressRoom_->address();
        network.caFile = pressRoom_->authority();
        // The press room's filings are for programs that name an address, as the SEC's are.
        Defaults settings(paths_.settings);
        if (settings.contactAddress().empty())
            settings.set(SettingKey::kContactAddress, kDemoContact);
    } else if (const auto authority = Defaults(paths_.settings).updateCatalogueAuthority()) {
        if (isReadable(*authority)) {
            network.extraAuthorities.emplace(hostOf(kit::TrackerHost::updates), *authority);
        } else {
            warn("The certificate file " + authority->string() + ", which the setting " +
                 std::string(SettingKey::kUpdateCatalogueAuthority) + " names, can't be read.");
        }
    }
    return network;
}

}  // namespace app
