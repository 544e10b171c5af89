#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kit {

/// Turns HTML into lines of plain text in one pass.
class HTMLReader {
public:
    struct Options {
        /// Collects links; those named "Continue reading…" are left out of the text.
        bool readsLinks = false;
        bool keepsLineBreaks = false;  ///< a line break of the source ends a line
        /// Reading stops soon after the text has this many bytes.
        std::size_t enough = std::numeric_limits<std::size_t>::max();
    };

    /// A link whose words stand from byte `begin` to `end` of the text.
    struct Link {
        std::size_t begin;
        std::size_t end;
        std::string_view tag;  ///< as tagAttribute expects it
    };

    HTMLReader(std::string_view html, Options options);

    /// The text, with lines separated by "
    /// ". Call it once.
    std::string read();

    /// The links with words in the text, in order. Call it once, after read().
    std::vector<Link> takeLinks() { return std::move(links_); }

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
    std::optional<Link> openLink_;
    std::vector<Link> links_;
    bool inLeftoverCDATA_ = false;
};

}  // namespace kit
