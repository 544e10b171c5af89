#pragma once

#include <condition_variable>
#include <exception>
#include <filesystem>
#include <mutex>
#include <thread>

#include "NewsroomKit/Records/Instant.h"

namespace cli {

/// Makes the daily backup of the library, when it is due, in a short command. The copy and its
/// quick check come before the command's work, so that nothing is written into a damaged library.
/// The full check runs in parallel with the work. At the end of the command it gets at most one
/// more second; the quick check covers the rest.
class DailyBackup {
public:
    /// Throws app::StoreError when the quick check finds the library damaged.
    DailyBackup(std::filesystem::path library, kit::Instant now);
    /// Reports on standard error why there is no backup, if it failed.
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
