#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "NewsroomKit/Log/Log.h"

namespace app {

/// The file that the program's log goes to. At `kLargest` bytes it becomes "NAME.1", whose
/// predecessor goes, and a new one begins. Several programs may write to one file: each line is
/// appended in one write, and whoever finds the file renamed goes on in the new one.
class LogFile {
public:
    static constexpr std::uint64_t kLargest = 5'000'000;

    explicit LogFile(std::filesystem::path file, std::uint64_t largest = kLargest)
        : file_(std::move(file)), largest_(largest) {}
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// A line that can't be written is lost without a word: the log must never stop the desk. Not
    /// for several threads at once.
    void write(const kit::LogLine& line);

private:
    bool isOpenAtItsPlace() const;
    void open();
    void rotateWhenFull();

    std::filesystem::path file_;
    std::uint64_t largest_;
    int descriptor_ = -1;
};

/// The newest lines of the file and of the one before it, at most `most`, oldest first. Lines that
/// are no log lines are left out; no file gives none. Throws StoreError when it can't be read.
std::vector<kit::LogLine> readLogFile(const std::filesystem::path& file, std::size_t most,
                                      kit::LogLevels wanted);

}  // namespace app
