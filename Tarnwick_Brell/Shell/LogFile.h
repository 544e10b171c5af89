#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "NewsroomKit/Log/Log.h"

namespace app {

/// The file of the program's log. At `kLargest` bytes it is renamed to "NAME.1", replacing an older
/// one, and a new file begins. Several programs may write to one file: each line is appended in one
/// write, and a program that finds the file renamed continues in the new one.
class LogFile {
public:
    static constexpr std::uint64_t kLargest = 5'000'000;

    explicit LogFile(std::filesystem::path file, std::uint64_t largest = kLargest)
        : file_(std::move(file)), largest_(largest) {}
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// A line that can't be written is dropped silently: the log must never stop the desk. Not
    /// thread-safe.
    void write(const kit::LogLine& line);

private:
    bool isOpenAtItsPlace() const;
    void open();
    void rotateWhenFull();

    std::filesystem::path file_;
    std::uint64_t largest_;
    int descriptor_ = -1;
};

/// The newest lines of the file and its predecessor, at most `most`, oldest first. Other text is
/// left out; without a file there are none. Throws StoreError when the file can't be read.
std::vector<kit::LogLine> readLogFile(const std::filesystem::path& file, std::size_t most,
                                      kit::LogLevels wanted);

}  // namespace app
