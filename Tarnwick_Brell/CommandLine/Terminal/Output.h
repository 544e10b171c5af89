#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace cli {

/// Writing to standard output failed.
class OutputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The program that reads standard output has ended, as head does after its lines.
class ReaderGone : public OutputError {
public:
    ReaderGone() : OutputError("Nobody reads the output any more.") {}
};

/// Standard output, buffered. Throws OutputError when the reader is gone or the disk full.
class Output {
public:
    enum class Styles { asTerminalShows, none };

    explicit Output(Styles styles = Styles::asTerminalShows);

    void write(std::string_view text);
    void line(std::string_view text = {});
    void flush();

    /// Columns of the terminal, from COLUMNS or the terminal itself. Lines for a file or a pipe are
    /// never cut, so that they do not depend on where brell was started.
    std::size_t width() const { return width_; }
    bool isTerminal() const { return terminal_; }

    /// `text` in bold or dimmed letters, if colours are enabled on a terminal.
    std::string bold(std::string_view text) const { return styled("1", text); }
    std::string dim(std::string_view text) const { return styled("2", text); }
    // The same in colours, for what a mark or a sign says already.
    std::string red(std::string_view text) const { return styled("31", text); }
    std::string green(std::string_view text) const { return styled("32", text); }

    /// `text` as a link to `address`, if the terminal is known to support links.
    std::string link(std::string_view address, std::string_view text) const;

private:
    std::string styled(std::string_view code, std::string_view text) const;

    std::string buffer_;
    std::size_t width_;
    bool terminal_;
    bool styles_;
    bool links_ = false;
};

/// Shows a step of long work on standard error, only when that is a terminal.
void showProgress(std::string_view text);

}  // namespace cli
