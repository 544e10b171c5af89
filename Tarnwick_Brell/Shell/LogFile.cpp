#include "Tarnwick_Brell/Shell/LogFile.h"

#include <cerrno>
#include <deque>
#include <fstream>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace {

std::filesystem::path predecessor(const std::filesystem::path& file) {
    auto older = file;
    older += ".1";
    return older;
}

void readLines(const std::filesystem::path& file, std::size_t most, const kit::LogLevels& wanted,
               std::deque<kit::LogLine>& lines) {
    std::error_code error;
    if (!std::filesystem::exists(file, error)) return;
    std::ifstream stream(file);
    if (!stream) {
        throw StoreError(StoreError::Reason::readOnly,
                         "The log " + file.string() + " can't be read.");
    }
    for (std::string text; std::getline(stream, text);) {
        auto line = kit::parseLogLine(text);
        if (!line || line->level > wanted.of(line->category)) continue;
        lines.push_back(*std::move(line));
        if (lines.size() > most) lines.pop_front();
    }
}

}  // namespace

LogFile::~LogFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

bool LogFile::isOpenAtItsPlace() const {
    struct stat opened{};
    struct stat named{};
    return descriptor_ >= 0 && ::fstat(descriptor_, &opened) == 0 &&
           ::stat(file_.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
}

void LogFile::open() {
    if (descriptor_ >= 0) ::close(descriptor_);
    std::error_code error;
    std::filesystem::create_directories(file_.parent_path(), error);
    descriptor_ = ::open(file_.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
}

void LogFile::rotateWhenFull() {
    struct stat opened{};
    if (descriptor_ < 0 || ::fstat(descriptor_, &opened) != 0 ||
        static_cast<std::uint64_t>(opened.st_size) < largest_) {
        return;
    }
    // When several programs find the file full, the first to get the lock renames it.
    if (::flock(descriptor_, LOCK_EX) != 0) return;
    if (isOpenAtItsPlace()) ::rename(file_.c_str(), predecessor(file_).c_str());
    open();
}

void LogFile::write(const kit::LogLine& line) {
    if (!isOpenAtItsPlace()) open();
    rotateWhenFull();
    if (descriptor_ < 0) return;
    const auto text = kit::logLineText(line) + "\n";
    while (::write(descriptor_, text.data(), text.size()) < 0 && errno == EINTR) {
    }
}

std::vector<kit::LogLine> readLogFile(const std::filesystem::path& file, std::size_t most,
                                      kit::LogLevels wanted) {
    std::deque<kit::LogLine> lines;
    readLines(predecessor(file), most, wanted, lines);
    readLines(file, most, wanted, lines);
    return {lines.begin(), lines.end()};
}

}  // namespace app
