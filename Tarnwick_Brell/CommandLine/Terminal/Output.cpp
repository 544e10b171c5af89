#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <system_error>

#include "NewsroomKit/Addresses/WebAddress.h"

namespace cli {

namespace {

constexpr std::size_t kFlushAt = 64 * 1024;

/// COLUMNS takes precedence over the terminal's own width.
std::size_t terminalWidth() {
    constexpr std::size_t usual = 80;
    if (const char* columns = std::getenv("COLUMNS")) {
        const std::string_view text(columns);
        std::size_t width = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), width);
        if (error == std::errc() && end == text.data() + text.size() && width > 0) return width;
    }
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    return usual;
}

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

std::string_view valueOf(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Whether the terminal is known to support OSC 8 links. Others may print garbage.
bool terminalHasLinks() {
    for (const char* name : {"KITTY_WINDOW_ID", "KONSOLE_VERSION", "WT_SESSION", "DOMTERM"}) {
        if (isSet(name)) return true;
    }
    // Terminals based on VTE 0.50 or later, such as GNOME's.
    constexpr std::size_t digits = 4;
    const auto vte = valueOf("VTE_VERSION");
    if (vte.size() >= digits && vte >= "5000") return true;
    const auto program = valueOf("TERM_PROGRAM");
    for (const auto name : {"iTerm.app", "WezTerm", "vscode", "ghostty", "Hyper"}) {
        if (program == name) return true;
    }
    const auto term = valueOf("TERM");
    for (const auto name : {"xterm-kitty", "foot", "alacritty", "xterm-ghostty", "wezterm"}) {
        if (term.starts_with(name)) return true;
    }
    return false;
}

/// True when the link contains nothing that ends the escape sequence.
bool isSafeInEscape(std::string_view link) {
    return std::ranges::all_of(link, [](char c) { return c > ' ' && c < '\x7f'; });
}

}  // namespace

Output::Output(Styles styles)
    : width_(std::numeric_limits<std::size_t>::max()),
      terminal_(isatty(STDOUT_FILENO) == 1),
      styles_(terminal_ && styles == Styles::asTerminalShows) {
    if (terminal_) width_ = terminalWidth();
    if (isSet("NO_COLOR") || valueOf("TERM") == "dumb") styles_ = false;
    links_ = styles_ && terminalHasLinks();
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
        if (written < 0 && errno == EPIPE) {
            buffer_.clear();
            throw ReaderGone();
        }
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

std::string Output::link(std::string_view address, std::string_view text) const {
    if (!links_ || !kit::isOpenable(address) || !isSafeInEscape(address)) return std::string(text);
    return "\x1b]8;;" + std::string(address) + "\x1b\\" + std::string(text) + "\x1b]8;;\x1b\\";
}

void showProgress(std::string_view text) {
    if (isatty(STDERR_FILENO) != 1) return;
    // Carriage return and "erase line", so that one line shows the latest step.
    const std::string line = "\r\x1b[K" + std::string(text);
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
}

}  // namespace cli
