#include "Tarnwick_Brell/CommandLine/Session.h"

#include <stdexcept>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace cli {

Session::Session(GlobalOptions options)
    : options_(std::move(options)),
      out_(options_.json ? Output::Styles::none : Output::Styles::asTerminalShows),
      now_(currentInstant()),
      launch_(options_, now_),
      log_(launch_.log()) {}

void Session::advise(const std::string& sentence) {
    out_.line(wrapped(withGivenOptions(sentence, options_), out_.width(), ""));
}

app::LocalStore& Session::store() {
    if (store_ && isForReading_)
        throw std::logic_error("the library was opened for reading before it was to be changed");
    if (!store_) {
        paths().createFolders();
        store_ =
            std::make_unique<app::LocalStore>(paths().library, app::Database::Access::readWrite);
        backup_ = std::make_unique<DailyBackup>(paths().library, now_);
    }
    return *store_;
}

app::LocalStore& Session::storeForReading() {
    using Access = app::Database::Access;
    if (store_) return *store_;
    isForReading_ = true;
    if (!app::LocalStore::exists(paths().library)) {
        store_ = std::make_unique<app::LocalStore>(app::Database::kInMemory, Access::readWrite);
        return *store_;
    }
    try {
        store_ = std::make_unique<app::LocalStore>(paths().library, Access::readOnly);
    } catch (const app::StoreError& error) {
        if (error.reason() != app::StoreError::Reason::olderVersion) throw;
        // The first command after an update of the program migrates the library.
        isForReading_ = false;
        return store();
    }
    return *store_;
}

void Session::warnNothingStored(const app::StoreError& error) {
    using Reason = app::StoreError::Reason;
    if (error.reason() != Reason::diskFull && error.reason() != Reason::readOnly) throw;
    fmt::print(stderr, "brell: What is fetched is shown but not stored. {}\n", error.what());
}

app::Defaults& Session::defaults() {
    if (!defaults_) defaults_ = std::make_unique<app::Defaults>(paths().settings);
    return *defaults_;
}

kit::CurlTransport::Options Session::network() {
    if (options_.demo && store_)
        throw std::logic_error("the network must be asked for before the store");
    return launch_.network(
        [](const std::string& sentence) { fmt::print(stderr, "brell: {}\n", sentence); });
}

}  // namespace cli
