#include "Tarnwick_Brell/CommandLine/Output.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace brell {

namespace {

constexpr std::size_t kFlushAt = 64 * 1024;

std::size_t terminalWidth() {
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    return 80;
}

}  // namespace

Output::Output(Styles styles)
    : width_(std::numeric_limits<std::size_t>::max()),
      terminal_(isatty(STDOUT_FILENO) == 1),
      styles_(terminal_ && styles == Styles::asTerminalShows) {
    if (terminal_) width_ = terminalWidth();
    if (const char* plain = std::getenv("NO_COLOR"); plain && *plain) styles_ = false;
}

void Output::write(std::string_view text) {
    buffer_ += text;
    if (buffer_.size() >= kFlushAt) flush();
}

void Output::line(std::string_view text) {
    buffer_ += text;
    write("\n");
}

void Output::flush() {
    std::string_view rest = buffer_;
    while (!rest.empty()) {
        const auto written = ::write(STDOUT_FILENO, rest.data(), rest.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) {
            const auto reason = std::generic_category().message(errno);
            buffer_.clear();
            throw OutputError("The output could not be written (" + reason + ").");
        }
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    buffer_.clear();
}

std::string Output::styled(std::string_view code, std::string_view text) const {
    if (!styles_) return std::string(text);
    return "\x1b[" + std::string(code) + "m" + std::string(text) + "\x1b[0m";
}

void showProgress(std::string_view text) {
    if (isatty(STDERR_FILENO) != 1) return;
    // Carriage return and "erase the line", so that one line shows the latest step.
    const std::string line = "\r\x1b[K" + std::string(text);
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
}

}  // namespace brell
