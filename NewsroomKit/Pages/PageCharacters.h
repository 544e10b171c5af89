#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kit {

/// The text of one block while it is read: white space collapsed, invisible characters dropped,
/// letters and their accents joined.
class PageText {
public:
    void append(std::string_view text);
    /// Written only when more text follows, in place of white space.
    void appendSeparator(std::string_view separator);
    /// A line break reads as a space; the second of two in a row ends the block, which returns
    /// true.
    bool breakLine();

    bool keepsLines() const { return keepsLines_; }
    void keepLines(bool keep) { keepsLines_ = keep; }

    bool isEmpty() const { return text_.empty(); }
    /// A place for from().
    std::size_t size() const { return text_.size(); }
    /// The text written since, trimmed.
    std::string from(std::size_t place) const;
    /// The whole text, trimmed, after which it is empty.
    std::string take();

private:
    void appendGap();
    void appendCharacter(std::string_view character);
    void appendKeepingLines(std::string_view text);

    std::string text_;
    std::string_view separator_;
    bool hasGap_ = false;
    bool hasBreak_ = false;
    bool keepsLines_ = false;
};

}  // namespace kit
