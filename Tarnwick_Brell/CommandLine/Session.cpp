#include "Tarnwick_Brell/CommandLine/Session.h"

#include <stdexcept>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Hints.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace brell {

Session::Session(GlobalOptions options)
    : options_(std::move(options)),
      out_(options_.json ? Output::Styles::none : Output::Styles::asTerminalShows),
      now_(currentInstant()),
      premises_(options_, now_),
      log_(premises_.log()) {}

void Session::advise(const std::string& sentence) {
    out_.line(wrapped(withGivenOptions(sentence, options_), out_.width(), ""));
}

desk::LocalStore& Session::store() {
    if (store_ && isForReading_)
        throw std::logic_error("the library was opened for reading before it was to be changed");
    if (!store_) {
        paths().createFolders();
        store_ =
            std::make_unique<desk::LocalStore>(paths().library, desk::Database::Access::readWrite);
        backup_ = std::make_unique<DailyBackup>(paths().library, now_);
    }
    return *store_;
}

desk::LocalStore& Session::storeForReading() {
    using Access = desk::Database::Access;
    if (store_) return *store_;
    isForReading_ = true;
    if (!desk::LocalStore::exists(paths().library)) {
        store_ = std::make_unique<desk::LocalStore>(desk::Database::kInMemory, Access::readWrite);
        return *store_;
    }
    try {
        store_ = std::make_unique<desk::LocalStore>(paths().library, Access::readOnly);
    } catch (const desk::StoreError& error) {
        if (error.reason() != desk::StoreError::Reason::olderVersion) throw;
        // The first command after an update of the program brings the library up to date.
        isForReading_ = false;
        return store();
    }
    return *store_;
}

void Session::warnNothingStored(const desk::StoreError& error) {
    using Reason = desk::StoreError::Reason;
    if (error.reason() != Reason::diskFull && error.reason() != Reason::readOnly) throw;
    fmt::print(stderr, "brell: What is fetched is shown but not stored. {}\n", error.what());
}

desk::Defaults& Session::defaults() {
    if (!defaults_) defaults_ = std::make_unique<desk::Defaults>(paths().settings);
    return *defaults_;
}

newsroom::CurlTransport::Options Session::network() {
    if (options_.demo && store_)
        throw std::logic_error("the network must be asked for before the store");
    return premises_.network(
        [](const std::string& sentence) { fmt::print(stderr, "brell: {}\n", sentence); });
}

}  // namespace brell
