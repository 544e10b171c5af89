#pragma once

#include <condition_variable>
#include <exception>
#include <filesystem>
#include <mutex>
#include <thread>

#include "NewsroomKit/Records/Instant.h"

namespace cli {

/// The day's backup of the library, where it is due, made by a short command. The copy and its
/// quick check come before the command's work, so that nothing is written into a damaged library.
/// The full check runs beside the work. At the command's end it gets a second at most: what it
/// has not reached by then, the quick check has seen.
class DailyBackup {
public:
    /// Throws app::StoreError when the quick check finds the library damaged.
    DailyBackup(std::filesystem::path library, kit::Instant now);
    /// Says on standard error why there is no backup, when there is none.
    ~DailyBackup();
    DailyBackup(const DailyBackup&) = delete;
    DailyBackup& operator=(const DailyBackup&) = delete;

private:
    void make(const std::stop_token& stop);
    void throwIfDamaged();

    std::filesystem::path library_;
    kit::Instant now_;
    std::mutex mutex_;
    std::condition_variable progress_;
    bool isCopied_ = false;
    bool hasEnded_ = false;
    std::exception_ptr failure_;
    std::jthread thread_;
};

}  // namespace cli
