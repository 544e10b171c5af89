#include "Tarnwick_Brell/CommandLine/Session.h"

#include <chrono>
#include <fstream>
#include <stdexcept>

#include <fmt/format.h>

#include "NewsroomKit/Signals/SignalHosts.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/Storage/Backups.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace brell {

namespace {

std::optional<std::filesystem::path> dataDir(const GlobalOptions& options) {
    if (options.dataDir || !options.demo) return options.dataDir;
    return demoDataDir();
}

void requireReadable(const std::filesystem::path& authority) {
    std::error_code error;
    if (std::filesystem::is_regular_file(authority, error) && std::ifstream(authority)) return;
    throw WorkFailed("The certificate file " + authority.string() + ", which the setting " +
                     std::string(desk::SettingKey::kUpdateCatalogueAuthority) +
                     " names, can't be read.");
}

/// Before anything is written, since the backup is also the day's check of the library. Without
/// room for a backup the desk goes on.
void backUpDaily(const std::filesystem::path& library, newsroom::Instant now) {
    try {
        desk::Backups(library).makeIfDue(now);
    } catch (const desk::StoreError& error) {
        if (error.reason() == desk::StoreError::Reason::damaged) throw;
        fmt::print(stderr, "brell: No backup of the library could be made. {}\n", error.what());
    }
}

}  // namespace

newsroom::Instant currentInstant() {
    return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
}

Session::Session(GlobalOptions options)
    : options_(std::move(options)),
      out_(options_.json ? Output::Styles::none : Output::Styles::asTerminalShows),
      now_(currentInstant()),
      paths_(desk::Paths::forUser(dataDir(options_))) {
    if (options_.demo && (options_.connectTo || options_.caFile)) {
        throw WrongUsage(
            "--demo brings its own press room, so --connect-to and --ca-file can't go with it.");
    }
}

desk::LocalStore& Session::store() {
    if (store_ && isForReading_)
        throw std::logic_error("the library was opened for reading before it was to be changed");
    if (!store_) {
        paths_.createFolders();
        store_ =
            std::make_unique<desk::LocalStore>(paths_.library, desk::Database::Access::readWrite);
        backUpDaily(paths_.library, now_);
    }
    return *store_;
}

desk::LocalStore& Session::storeForReading() {
    using Access = desk::Database::Access;
    if (store_) return *store_;
    isForReading_ = true;
    if (!desk::LocalStore::exists(paths_.library)) {
        store_ = std::make_unique<desk::LocalStore>(desk::Database::kInMemory, Access::readWrite);
        return *store_;
    }
    try {
        store_ = std::make_unique<desk::LocalStore>(paths_.library, Access::readOnly);
    } catch (const desk::StoreError& error) {
        if (error.reason() != desk::StoreError::Reason::olderVersion) throw;
        // The first command after an update of the program brings the library up to date.
        isForReading_ = false;
        return store();
    }
    return *store_;
}

desk::Defaults& Session::defaults() {
    if (!defaults_) defaults_ = std::make_unique<desk::Defaults>(paths_.settings);
    return *defaults_;
}

newsroom::CurlTransport::Options Session::network() {
    newsroom::CurlTransport::Options network{.connectTo = options_.connectTo,
                                             .caFile = options_.caFile};
    if (options_.demo) {
        if (store_) throw std::logic_error("the network must be asked for before the store");
        if (!pressRoom_)
            pressRoom_ = std::make_unique<DemoPressRoom>(paths_.library.parent_path(), now_);
        network.connectTo = pressRoom_->address();
        network.caFile = pressRoom_->authority();
    } else if (const auto authority = defaults().updateCatalogueAuthority()) {
        requireReadable(*authority);
        network.extraAuthorities.emplace(hostOf(newsroom::SignalService::updates), *authority);
    }
    return network;
}

}  // namespace brell
