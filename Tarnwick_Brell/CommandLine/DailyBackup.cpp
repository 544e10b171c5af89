#include "Tarnwick_Brell/CommandLine/DailyBackup.h"

#include <chrono>
#include <utility>

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace cli {

namespace {

void say(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const app::StoreError& error) {
        const bool isDamaged = error.reason() == app::StoreError::Reason::damaged;
        fmt::print(stderr, "brell: {}{}\n",
                   isDamaged ? "" : "No backup of the library could be made. ", error.what());
    }
}

}  // namespace

DailyBackup::DailyBackup(std::filesystem::path library, kit::Instant now)
    : library_(std::move(library)), now_(now) {
    if (!app::Backups(library_).isDue(now)) {
        hasEnded_ = true;
        return;
    }
    thread_ = std::jthread([this](const std::stop_token& stop) { make(stop); });
    std::unique_lock lock(mutex_);
    progress_.wait(lock, [this] { return isCopied_ || hasEnded_; });
    // Faults that the full check finds after the copy are reported at the end, even if it has
    // finished by now.
    if (failure_ && !isCopied_) throwIfDamaged();
}

/// Throws if the library is damaged. The command continues when there is no room for a backup.
void DailyBackup::throwIfDamaged() {
    try {
        std::rethrow_exception(failure_);
    } catch (const app::StoreError& error) {
        if (error.reason() == app::StoreError::Reason::damaged) throw;
    }
}

DailyBackup::~DailyBackup() {
    constexpr std::chrono::milliseconds patience(900);
    {
        std::unique_lock lock(mutex_);
        progress_.wait_for(lock, patience, [this] { return hasEnded_; });
    }
    thread_.request_stop();
    if (thread_.joinable()) thread_.join();
    if (failure_) say(failure_);
}

void DailyBackup::make(const std::stop_token& stop) {
    const auto onCopied = [this] {
        const std::lock_guard lock(mutex_);
        isCopied_ = true;
        progress_.notify_one();
    };
    std::exception_ptr failure;
    try {
        app::Backups(library_).makeIfDue(now_, stop, onCopied);
    } catch (const app::StoreError&) {
        failure = std::current_exception();
    }
    const std::lock_guard lock(mutex_);
    failure_ = failure;
    hasEnded_ = true;
    progress_.notify_one();
}

}  // namespace cli
