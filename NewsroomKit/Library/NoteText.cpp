#include "NewsroomKit/Library/NoteText.h"

#include <md4c.h>

#include <algorithm>

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Library/Note.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

// The parser looks for the end of a bare address again and again within a word.
constexpr std::size_t kLongestWordWithAddresses = 4'000;

/// The start of the text, cut between characters.
std::string_view boundedNote(std::string_view text) {
    if (text.size() <= kMostBytesOfNote) return text;
    auto end = kMostBytesOfNote;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) --end;
    return text.substr(0, end);
}

std::size_t longestWord(std::string_view text) {
    std::size_t longest = 0, begin = 0;
    for (std::size_t at = 0; at <= text.size(); ++at) {
        if (at < text.size() && text[at] != ' ' && text[at] != '\n' && text[at] != '\t') continue;
        longest = std::max(longest, at - begin);
        begin = at + 1;
    }
    return longest;
}

bool isShownLink(std::string_view link) {
    return (standsAt(link, 0, "mailto:") && link.size() > 7) || isWebLink(link);
}

bool looksAlike(const NoteSpan& left, const NoteSpan& right) {
    return left.isEmphasised == right.isEmphasised && left.isStrong == right.isStrong &&
           left.isCode == right.isCode && left.isStruck == right.isStruck &&
           left.link == right.link;
}

/// Builds the blocks from the parser's events.
class NoteBuilder {
public:
    void enterBlock(MD_BLOCKTYPE type, void* detail);
    void leaveBlock(MD_BLOCKTYPE type);
    void enterSpan(MD_SPANTYPE type, void* detail);
    void leaveSpan(MD_SPANTYPE type);
    void addText(MD_TEXTTYPE type, std::string_view text);

    std::vector<NoteBlock> take() { return std::move(blocks_); }

private:
    /// A list or a quote that is open.
    struct Container {
        MD_BLOCKTYPE type;
        unsigned next = 0;  ///< number of the next item
    };

    void beginItem(const MD_BLOCK_LI_DETAIL& item);
    NoteBlock& beginBlock(NoteBlockKind kind);
    void endBlock();
    void append(std::string_view text);

    std::vector<NoteBlock> blocks_;
    std::vector<Container> containers_;
    std::size_t quotes_ = 0;
    std::size_t lists_ = 0;
    NoteMark mark_ = NoteMark::none;  ///< of an item whose first block has not come yet
    unsigned number_ = 0;
    bool isOpen_ = false;
    NoteSpan look_;  ///< of the text that comes next, without its text
    std::size_t emphasis_ = 0, strong_ = 0, struck_ = 0;
};

void NoteBuilder::enterBlock(MD_BLOCKTYPE type, void* detail) {
    switch (type) {
        case MD_BLOCK_QUOTE:
            endBlock();
            ++quotes_;
            break;
        case MD_BLOCK_UL:
        case MD_BLOCK_OL:
            endBlock();
            ++lists_;
            containers_.push_back(
                {type, type == MD_BLOCK_OL ? static_cast<MD_BLOCK_OL_DETAIL*>(detail)->start : 0});
            break;
        case MD_BLOCK_LI: beginItem(*static_cast<MD_BLOCK_LI_DETAIL*>(detail)); break;
        case MD_BLOCK_HR: beginBlock(NoteBlockKind::rule); break;
        case MD_BLOCK_H:
            beginBlock(NoteBlockKind::heading).level =
                static_cast<std::uint8_t>(static_cast<MD_BLOCK_H_DETAIL*>(detail)->level);
            break;
        case MD_BLOCK_CODE: beginBlock(NoteBlockKind::code); break;
        case MD_BLOCK_P: beginBlock(NoteBlockKind::paragraph); break;
        default: break;
    }
}

void NoteBuilder::leaveBlock(MD_BLOCKTYPE type) {
    if (type == MD_BLOCK_DOC) return;
    // An item without text is an empty paragraph with its mark.
    if (type == MD_BLOCK_LI && mark_ != NoteMark::none) beginBlock(NoteBlockKind::paragraph);
    if (type == MD_BLOCK_CODE && isOpen_ && !blocks_.back().spans.empty()) {
        auto& code = blocks_.back().spans.back().text;
        if (code.ends_with('\n')) code.pop_back();
    }
    endBlock();
    if (type == MD_BLOCK_QUOTE) --quotes_;
    if (type == MD_BLOCK_UL || type == MD_BLOCK_OL) {
        --lists_;
        containers_.pop_back();
    }
}

void NoteBuilder::beginItem(const MD_BLOCK_LI_DETAIL& item) {
    endBlock();
    auto& list = containers_.back();
    mark_ = list.type == MD_BLOCK_OL ? NoteMark::number : NoteMark::bullet;
    number_ = list.type == MD_BLOCK_OL ? list.next++ : 0;
    if (item.is_task != 0) mark_ = item.task_mark == ' ' ? NoteMark::unchecked : NoteMark::checked;
}

NoteBlock& NoteBuilder::beginBlock(NoteBlockKind kind) {
    const auto depth = [](std::size_t count) {
        return static_cast<std::uint8_t>(std::min<std::size_t>(count, kDeepestNoteBlock));
    };
    blocks_.push_back({.kind = kind,
                       .mark = mark_,
                       .quoteDepth = depth(quotes_),
                       .listDepth = depth(lists_),
                       .number = number_});
    mark_ = NoteMark::none;
    number_ = 0;
    isOpen_ = true;
    return blocks_.back();
}

void NoteBuilder::endBlock() { isOpen_ = false; }

void NoteBuilder::enterSpan(MD_SPANTYPE type, void* detail) {
    if (type == MD_SPAN_EM) look_.isEmphasised = ++emphasis_ > 0;
    if (type == MD_SPAN_STRONG) look_.isStrong = ++strong_ > 0;
    if (type == MD_SPAN_DEL) look_.isStruck = ++struck_ > 0;
    if (type == MD_SPAN_CODE) look_.isCode = true;
    if (type != MD_SPAN_A) return;
    const auto& href = static_cast<MD_SPAN_A_DETAIL*>(detail)->href;
    const auto link = safeLink(decodedEntities({href.text, href.size}));
    look_.link = isShownLink(link) ? link : "";
}

void NoteBuilder::leaveSpan(MD_SPANTYPE type) {
    if (type == MD_SPAN_EM) look_.isEmphasised = --emphasis_ > 0;
    if (type == MD_SPAN_STRONG) look_.isStrong = --strong_ > 0;
    if (type == MD_SPAN_DEL) look_.isStruck = --struck_ > 0;
    if (type == MD_SPAN_CODE) look_.isCode = false;
    if (type == MD_SPAN_A) look_.link.clear();
}

void NoteBuilder::addText(MD_TEXTTYPE type, std::string_view text) {
    switch (type) {
        case MD_TEXT_BR: return append("\n");
        case MD_TEXT_SOFTBR: return append(" ");
        case MD_TEXT_NULLCHAR: return;
        case MD_TEXT_ENTITY: return append(withoutControls(decodedEntities(text)));
        default: return append(text);
    }
}

void NoteBuilder::append(std::string_view text) {
    // The text of an item in a tight list comes without a paragraph.
    if (!isOpen_) beginBlock(NoteBlockKind::paragraph);
    auto& spans = blocks_.back().spans;
    if (spans.empty() || !looksAlike(spans.back(), look_)) spans.push_back(look_);
    spans.back().text += text;
}

MD_PARSER parserOf(std::string_view source) {
    MD_PARSER parser{};
    parser.flags = MD_FLAG_NOHTML | MD_FLAG_TASKLISTS | MD_FLAG_STRIKETHROUGH;
    if (longestWord(source) <= kLongestWordWithAddresses)
        parser.flags |= MD_FLAG_PERMISSIVEURLAUTOLINKS;
    parser.enter_block = [](MD_BLOCKTYPE type, void* detail, void* builder) {
        static_cast<NoteBuilder*>(builder)->enterBlock(type, detail);
        return 0;
    };
    parser.leave_block = [](MD_BLOCKTYPE type, void*, void* builder) {
        static_cast<NoteBuilder*>(builder)->leaveBlock(type);
        return 0;
    };
    parser.enter_span = [](MD_SPANTYPE type, void* detail, void* builder) {
        static_cast<NoteBuilder*>(builder)->enterSpan(type, detail);
        return 0;
    };
    parser.leave_span = [](MD_SPANTYPE type, void*, void* builder) {
        static_cast<NoteBuilder*>(builder)->leaveSpan(type);
        return 0;
    };
    parser.text = [](MD_TEXTTYPE type, const MD_CHAR* text, MD_SIZE size, void* builder) {
        static_cast<NoteBuilder*>(builder)->addText(type, {text, size});
        return 0;
    };
    return parser;
}

}  // namespace

std::vector<NoteBlock> noteBlocks(std::string_view markdown) {
    const auto source = withoutControls(boundedNote(markdown));
    const auto parser = parserOf(source);
    NoteBuilder builder;
    md_parse(source.data(), static_cast<MD_SIZE>(source.size()), &parser, &builder);
    return builder.take();
}

}  // namespace kit
