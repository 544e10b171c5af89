#include "NewsroomKit/Pages/BlockReader.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Pages/PageCharacters.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

using Index = PageTree::Index;
using Kind = PageBlock::Kind;

/// A cell with more text than this belongs to a table that only places things on the page.
constexpr std::uint32_t longestCell = 600;
constexpr std::size_t longestFootnoteMark = 3;
constexpr std::size_t mostLinksOfABlock = 500;

class BlockReader {
public:
    BlockReader(const PageTree& tree, const VisibleText& visible, std::string_view base)
        : tree_(tree), visible_(visible), base_(base) {}

    std::vector<PageBlock> read(Index root) {
        readNode(root);
        finishBlock();
        return std::move(blocks_);
    }

private:
    struct Heading {
        int level;
        std::string text;
    };

    void readNode(Index index);
    void readChildren(Index index);
    void readBlockElement(Index index);
    void readTable(Index index);
    void readRow(Index index);
    void readAnchor(Index index);
    void readSuperscript(Index index);
    bool isDataTable(Index table) const;
    Kind kindInside(PageTag tag) const;
    void breakLine();
    void finishBlock();
    void finishLink();
    void placeUnderHeadings(PageBlock& block);

    const PageTree& tree_;
    const VisibleText& visible_;
    std::string_view base_;
    std::vector<PageBlock> blocks_;
    std::vector<Heading> headings_;
    PageText text_;
    std::vector<PageLink> links_;
    Kind kind_ = Kind::text;
    int level_ = 0;
    std::string_view href_;  ///< of the open link
    std::size_t linkBegin_ = 0;
    bool isInRow_ = false;
};

void BlockReader::readChildren(Index index) {
    const auto end = tree_.nodes[index].end;
    for (Index child = index + 1; child < end; child = tree_.nodes[child].end) readNode(child);
}

void BlockReader::readNode(Index index) {
    if (visible_.isDropped(index)) return;
    const auto& node = tree_.nodes[index];
    switch (node.tag) {
        case PageTag::text: text_.append(tree_.text(node)); break;
        case PageTag::lineBreak: breakLine(); break;
        case PageTag::anchor: readAnchor(index); break;
        case PageTag::superscript: readSuperscript(index); break;
        case PageTag::table: readTable(index); break;
        default:
            if (isBlockLevel(node.tag)) {
                readBlockElement(index);
            } else {
                readChildren(index);
            }
    }
}

Kind BlockReader::kindInside(PageTag tag) const {
    switch (tag) {
        case PageTag::item: return Kind::item;
        case PageTag::term:
        case PageTag::description: return Kind::term;
        case PageTag::quote: return Kind::quote;
        case PageTag::preformatted: return Kind::code;
        case PageTag::caption:
        case PageTag::figureCaption: return Kind::caption;
        default: break;
    }
    if (isHeading(tag)) return Kind::heading;
    // A paragraph of a list's item or of a quotation belongs to it.
    const bool isContained = kind_ != Kind::paragraph && kind_ != Kind::text;
    if (isContained) return kind_;
    return tag == PageTag::paragraph ? Kind::paragraph : Kind::text;
}

void BlockReader::readBlockElement(Index index) {
    const auto tag = tree_.nodes[index].tag;
    finishBlock();
    const auto outerKind = std::exchange(kind_, kindInside(tag));
    const auto outerLevel = isHeading(tag) ? std::exchange(level_, headingLevel(tag)) : level_;
    const bool wasKeepingLines = text_.keepsLines();
    if (tag == PageTag::preformatted && !isInRow_) text_.keepLines(true);
    readChildren(index);
    finishBlock();
    text_.keepLines(wasKeepingLines);
    level_ = outerLevel;
    kind_ = outerKind;
}

bool BlockReader::isDataTable(Index table) const {
    const auto& node = tree_.nodes[table];
    const auto role = tree_.attribute(node, PageAttribute::role);
    if (role == "presentation" || role == "none") return false;
    bool hasWideRow = false;
    Index row = 0;
    int cells = 0;
    for (Index i = table + 1; i < node.end; ++i) {
        const auto tag = tree_.nodes[i].tag;
        if (tag == PageTag::table || isHeading(tag) || tag == PageTag::article) return false;
        if (tag != PageTag::cell && tag != PageTag::headerCell) continue;
        if (visible_.size(i) == 0) continue;
        if (visible_.size(i) > longestCell) return false;
        cells = tree_.nodes[i].parent == row ? cells + 1 : 1;
        row = tree_.nodes[i].parent;
        hasWideRow = hasWideRow || cells > 1;
    }
    return hasWideRow;
}

void BlockReader::readTable(Index index) {
    if (isInRow_ || !isDataTable(index)) return readBlockElement(index);
    finishBlock();
    const auto end = tree_.nodes[index].end;
    for (Index i = index + 1; i < end;) {
        const auto tag = tree_.nodes[i].tag;
        if (visible_.isDropped(i)) {
            i = tree_.nodes[i].end;
        } else if (tag == PageTag::row) {
            readRow(i);
            i = tree_.nodes[i].end;
        } else if (tag == PageTag::division) {
            ++i;  // a group of rows
        } else {
            readNode(i);
            i = tree_.nodes[i].end;
        }
    }
    finishBlock();
}

void BlockReader::readRow(Index index) {
    finishBlock();
    isInRow_ = true;
    const auto outerKind = std::exchange(kind_, Kind::row);
    const auto end = tree_.nodes[index].end;
    for (Index cell = index + 1; cell < end; cell = tree_.nodes[cell].end) {
        if (visible_.size(cell) == 0) continue;
        if (!text_.isEmpty()) text_.appendSeparator(" · ");
        readNode(cell);
    }
    isInRow_ = false;
    finishBlock();
    kind_ = outerKind;
}

void BlockReader::readAnchor(Index index) {
    const auto href =
        trimWhitespaceAndNewlines(tree_.attribute(tree_.nodes[index], PageAttribute::href));
    if (href.empty() || !href_.empty()) return readChildren(index);
    href_ = href;
    linkBegin_ = text_.size();
    readChildren(index);
    finishLink();
    href_ = {};
}

/// Adds the words of the open link that belong to the current block.
void BlockReader::finishLink() {
    if (href_.empty() || links_.size() >= mostLinksOfABlock) return;
    const auto words = text_.from(linkBegin_);
    linkBegin_ = text_.size();
    if (words.empty()) return;
    auto address = resolvedAddress(base_, href_);
    if (!address || !isOpenable(*address)) return;
    links_.push_back({words, std::move(*address)});
}

void BlockReader::readSuperscript(Index index) {
    if (visible_.size(index) > longestFootnoteMark) return readChildren(index);
    const auto inside = tree_.textInside(index);
    const auto mark = trimWhitespaceAndNewlines(inside);
    const bool isNumber = !mark.empty() && std::all_of(mark.begin(), mark.end(), isASCIIDigit);
    if (!isNumber) return readChildren(index);
    text_.append("[");
    readChildren(index);
    text_.append("]");
}

void BlockReader::breakLine() {
    if (text_.keepsLines()) {
        text_.append("\n");
    } else if (text_.breakLine() && !isInRow_) {
        finishBlock();
    }
}

void BlockReader::finishBlock() {
    if (isInRow_) return text_.append(" ");
    finishLink();
    auto text = text_.take();
    linkBegin_ = 0;
    auto links = std::exchange(links_, {});
    if (text.empty()) return;
    PageBlock block{.kind = kind_,
                    .level = std::nullopt,
                    .headings = {},
                    .text = std::move(text),
                    .links = std::move(links)};
    placeUnderHeadings(block);
    blocks_.push_back(std::move(block));
}

void BlockReader::placeUnderHeadings(PageBlock& block) {
    if (block.kind == Kind::heading) {
        block.level = level_;
        while (!headings_.empty() && headings_.back().level >= level_) headings_.pop_back();
    }
    for (const auto& heading : headings_) block.headings.push_back(heading.text);
    if (block.kind == Kind::heading) headings_.push_back({level_, block.text});
}

}  // namespace

std::vector<PageBlock> readBlocks(const PageTree& tree, const VisibleText& visible,
                                  PageTree::Index root, std::string_view base) {
    return BlockReader(tree, visible, base).read(root);
}

}  // namespace kit
