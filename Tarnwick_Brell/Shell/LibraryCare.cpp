#include "Tarnwick_Brell/Shell/LibraryCare.h"

#include <chrono>
#include <utility>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Storage/Backups.h"
#include "Tarnwick_Brell/Storage/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace desk {

namespace {

// The day's backup is due at some time of it; an hour more or less is the same.
constexpr std::chrono::hours kBetweenLooks{1};

}  // namespace

LibraryCare::LibraryCare(std::filesystem::path library, newsroom::FeedClient::Clock clock)
    : library_(std::move(library)), clock_(std::move(clock)) {}

void LibraryCare::start(bool lastDeskDied) {
    thread_ = std::jthread(
        [this, lastDeskDied](const std::stop_token& stop) { run(stop, lastDeskDied); });
}

void LibraryCare::run(const std::stop_token& stop, bool lastDeskDied) {
    while (!stop.stop_requested()) {
        lookAfter(stop, std::exchange(lastDeskDied, false));
        std::unique_lock lock(mutex_);
        pause_.wait_for(lock, stop, kBetweenLooks, [] { return false; });
    }
}

void LibraryCare::lookAfter(const std::stop_token& stop, bool lastDeskDied) {
    try {
        checkIfDue(library_, lastDeskDied, clock_(), stop);
        if (const auto backup = Backups(library_).makeIfDue(clock_(), stop)) {
            newsroom::log(newsroom::LogCategory::storage, newsroom::LogLevel::info,
                          "copied the library to {}", backup->file.filename().string());
        }
    } catch (const StoreError& error) {
        newsroom::log(newsroom::LogCategory::storage, newsroom::LogLevel::error, "{}",
                      error.what());
        // Qt carries it to the receiver's thread.
        const auto sentence = QString::fromUtf8(error.what());
        const bool isDamaged = error.reason() == StoreError::Reason::damaged;
        isDamaged ? emit libraryDamaged(sentence) : emit failed(sentence);
    }
}

}  // namespace desk
