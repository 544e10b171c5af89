#include "Tarnwick_Brell/CommandLine/DailyBackup.h"

#include <chrono>
#include <utility>

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/Backups.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace brell {

DailyBackup::DailyBackup(std::filesystem::path library, newsroom::Instant now)
    : library_(std::move(library)),
      now_(now),
      thread_([this](const std::stop_token& stop) { make(stop); }) {}

DailyBackup::~DailyBackup() {
    constexpr std::chrono::milliseconds patience(900);
    {
        std::unique_lock lock(mutex_);
        ended_.wait_for(lock, patience, [this] { return hasEnded_; });
    }
    thread_.request_stop();
    thread_.join();
    if (!failure_.empty()) fmt::print(stderr, "brell: {}\n", failure_);
}

void DailyBackup::make(const std::stop_token& stop) {
    std::string failure;
    try {
        desk::Backups(library_).makeIfDue(now_, stop);
    } catch (const desk::StoreError& error) {
        const bool isDamaged = error.reason() == desk::StoreError::Reason::damaged;
        failure = (isDamaged ? "" : "No backup of the library could be made. ") +
                  std::string(error.what());
    }
    const std::lock_guard lock(mutex_);
    failure_ = std::move(failure);
    hasEnded_ = true;
    ended_.notify_one();
}

}  // namespace brell
