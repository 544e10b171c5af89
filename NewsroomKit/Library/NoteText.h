#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// A run of characters that look alike.
struct NoteSpan {
    std::string text{};  ///< a forced line break is "\n"
    bool isEmphasised = false;
    bool isStrong = false;
    bool isCode = false;
    bool isStruck = false;
    std::string link{};  ///< http, https or mailto; empty for none

    bool operator==(const NoteSpan&) const = default;
};

enum class NoteBlockKind : std::uint8_t { paragraph, heading, code, rule };

/// What stands before the first block of a list's item.
enum class NoteMark : std::uint8_t { none, bullet, number, unchecked, checked };

/// A block of a text, from top to bottom. Items of lists and quotes are blocks with a depth.
struct NoteBlock {
    NoteBlockKind kind = NoteBlockKind::paragraph;
    NoteMark mark = NoteMark::none;
    std::uint8_t level = 0;       ///< of a heading, 1 to 6
    std::uint8_t quoteDepth = 0;  ///< how many quotes it stands in
    std::uint8_t listDepth = 0;   ///< how many lists it stands in; 1 for a plain list
    unsigned number = 0;          ///< of an item in a numbered list
    std::vector<NoteSpan> spans{};

    bool operator==(const NoteBlock&) const = default;
};

inline constexpr std::uint8_t kDeepestNoteBlock = 32;  ///< deeper ones are shown at this depth

/// Markdown (CommonMark with check boxes and struck text) as blocks to draw or print. Raw HTML is
/// text; bare web addresses are links; links elsewhere than to the web and to mail are text, and
/// pictures their words. Any bytes are read, up to kMostBytesOfNote of them; control characters are
/// left out. Time grows with the size of the text only.
std::vector<NoteBlock> noteBlocks(std::string_view markdown);

}  // namespace kit
