#pragma once

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>

#include "NewsroomKit/Records/Instant.h"

namespace brell {

/// The day's backup of the library, made beside the work of a short command. The command ends at
/// most a second later because of it: what the full check has not reached by then, the quick
/// one has seen, and a copy that is not yet whole is left to the next command.
class DailyBackup {
public:
    DailyBackup(std::filesystem::path library, newsroom::Instant now);
    /// Says on standard error why there is no backup, when there is none.
    ~DailyBackup();
    DailyBackup(const DailyBackup&) = delete;
    DailyBackup& operator=(const DailyBackup&) = delete;

private:
    void make(const std::stop_token& stop);

    std::filesystem::path library_;
    newsroom::Instant now_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool hasEnded_ = false;
    std::string failure_;
    std::jthread thread_;
};

}  // namespace brell
