#include "Tarnwick_Brell/Shell/LibraryMaintenance.h"

#include <chrono>
#include <utility>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace {

// The interval at which the daily backup is checked; an hour more or less is acceptable.
constexpr std::chrono::hours kBetweenLooks{1};

}  // namespace

LibraryMaintenance::LibraryMaintenance(std::filesystem::path library, kit::Clock clock)
    : library_(std::move(library)), clock_(std::move(clock)) {}

void LibraryMaintenance::start(bool lastDeskDied) {
    thread_ = std::jthread(
        [this, lastDeskDied](const std::stop_token& stop) { run(stop, lastDeskDied); });
}

void LibraryMaintenance::run(const std::stop_token& stop, bool lastDeskDied) {
    while (!stop.stop_requested()) {
        maintain(stop, std::exchange(lastDeskDied, false));
        std::unique_lock lock(mutex_);
        pause_.wait_for(lock, stop, kBetweenLooks, [] { return false; });
    }
}

void LibraryMaintenance::maintain(const std::stop_token& stop, bool lastDeskDied) {
    try {
        checkIfDue(library_, lastDeskDied, clock_(), stop);
        if (const auto backup = Backups(library_).makeIfDue(clock_(), stop)) {
            kit::log(kit::LogCategory::storage, kit::LogLevel::info, "copied the library to {}",
                     backup->file.filename().string());
        }
    } catch (const StoreError& error) {
        kit::log(kit::LogCategory::storage, kit::LogLevel::error, "{}", error.what());
        // Qt delivers the signal on the receiver's thread.
        const auto sentence = QString::fromUtf8(error.what());
        const bool isDamaged = error.reason() == StoreError::Reason::damaged;
        isDamaged ? emit libraryDamaged(sentence) : emit failed(sentence);
    }
}

}  // namespace app
