#include "NewsroomKit/Pages/VisibleText.h"

#include <algorithm>
#include <string>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// Text that is kept from screen readers only is short: icons and repeated labels. Legal texts
/// stand in panels that are hidden until they are opened.
constexpr std::uint32_t leastHiddenText = 40;

std::uint32_t lettersIn(std::string_view text) {
    std::uint32_t count = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > ' ' && (byte & 0xC0U) != 0x80) ++count;
    }
    return count;
}

bool isHiddenByStyle(std::string_view style) {
    if (style.empty()) return false;
    auto plain = lowercasedASCII(style);
    std::erase(plain, ' ');
    return plain.find("display:none") != std::string::npos ||
           plain.find("visibility:hidden") != std::string::npos;
}

bool isForScreenReadersOnly(std::string_view classes) {
    return anyWord(classes, [](std::string_view word) {
        return word == "visuallyhidden" || word == "visually-hidden" || word == "sr-only" ||
               word == "screen-reader-text" || word == "a11y" || word == "offscreen";
    });
}

}  // namespace

VisibleText::VisibleText(const PageTree& tree) : tree_(&tree) {
    const auto count = tree.nodes.size();
    dropped_.resize(count);
    own_.resize(count);
    for (PageTree::Index i = 0; i < count; ++i) {
        if (tree.nodes[i].tag == PageTag::text) own_[i] = lettersIn(tree.text(tree.nodes[i]));
    }
    remeasure();
    for (PageTree::Index i = 1; i < count; ++i) {
        const auto& node = tree.nodes[i];
        if (node.attributeCount == 0 && node.tag != PageTag::head && node.tag != PageTag::button) {
            continue;
        }
        using enum PageAttribute;
        // Some pages hide their whole body until a script has run.
        const bool isBody = node.tag == PageTag::body || node.tag == PageTag::html;
        const bool isHidden =
            node.tag == PageTag::head || node.tag == PageTag::button ||
            (!isBody &&
             (tree.has(node, hidden) || isHiddenByStyle(tree.attribute(node, style)) ||
              isForScreenReadersOnly(tree.attribute(node, classes)) ||
              (tree.attribute(node, ariaHidden) == "true" && sizes_[i] < leastHiddenText)));
        if (isHidden) dropped_[i] = 1;
    }
    remeasure();
}

void VisibleText::drop(PageTree::Index node) { dropped_[node] = 1; }

void VisibleText::remeasure() {
    const auto count = dropped_.size();
    sizes_ = own_;
    linkSizes_.assign(count, 0);
    // Descendants follow their ancestors, so that backwards each node is complete when its turn
    // comes.
    for (auto i = count; i-- > 1;) {
        const auto& node = tree_->nodes[i];
        if (dropped_[i] != 0) {
            sizes_[i] = linkSizes_[i] = 0;
            continue;
        }
        if (node.tag == PageTag::anchor) linkSizes_[i] = sizes_[i];
        sizes_[node.parent] += sizes_[i];
        linkSizes_[node.parent] += linkSizes_[i];
    }
}

}  // namespace kit
