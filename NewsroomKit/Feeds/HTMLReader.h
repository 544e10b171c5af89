#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

namespace newsroom {

/// Turns HTML into lines of plain text in one pass.
class HTMLReader {
public:
    struct Options {
        bool dropsContinueLinks = false;  ///< links named "Continue reading…"
        bool keepsLineBreaks = false;     ///< a line break of the source ends a line
        /// Reading stops soon after the text has this many bytes.
        std::size_t enough = std::numeric_limits<std::size_t>::max();
    };

    HTMLReader(std::string_view html, Options options);

    /// Lines separated by "\n". To be called once.
    std::string read();

private:
    enum class Gap { none, space, line };

    void readText();
    void readWhiteSpace();
    void readReference();
    void readWideCharacter();
    void readMarkup();
    void readTag();
    void finishLink();
    std::size_t tagEnd(std::size_t from) const;
    void widenGap(Gap gap);
    void append(std::string_view text);
    void appendCharacter(char32_t character);

    std::string_view html_;
    Options options_;
    std::size_t at_ = 0;
    std::string text_;
    Gap gap_ = Gap::none;
    std::size_t linkStart_ = 0;
    bool inLeftoverCDATA_ = false;
};

}  // namespace newsroom
