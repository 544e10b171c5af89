#include "NewsroomKit/Pages/PageReader.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Pages/BlockPage.h"
#include "NewsroomKit/Pages/BlockReader.h"
#include "NewsroomKit/Pages/PageCharacters.h"
#include "NewsroomKit/Pages/PageEncoding.h"
#include "NewsroomKit/Pages/VisibleText.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

using Index = PageTree::Index;

constexpr std::uint32_t leastPageText = 400;
/// How much of the text a main element must hold for the rest to be left out.
constexpr double leastMainShare = 0.6;

bool isPageFurniture(const PageTree& tree, const PageTree::Node& node) {
    using enum PageTag;
    if (node.tag == navigation || node.tag == footer || node.tag == aside) return true;
    const auto role = tree.attribute(node, PageAttribute::role);
    if (role == "banner" || role == "navigation" || role == "contentinfo" || role == "search") {
        return true;
    }
    const auto id = tree.attribute(node, PageAttribute::id);
    for (const std::string_view known :
         {"globalnav", "globalheader", "globalfooter", "ac-globalnav", "ac-globalfooter"}) {
        if (id == known) return true;
    }
    const auto isPart = [](std::string_view name) {
        return name.starts_with("ac-gn-") || name.starts_with("ac-gf-");
    };
    return isPart(id) || anyWord(tree.attribute(node, PageAttribute::classes), isPart);
}

bool namesMainPart(const PageTree& tree, const PageTree::Node& node) {
    return node.tag == PageTag::mainContent || node.tag == PageTag::article ||
           tree.attribute(node, PageAttribute::role) == "main" ||
           tree.attribute(node, PageAttribute::id) == "main";
}

/// The first element that calls itself the main part and holds most of the text; else the root.
Index mainPart(const PageTree& tree, const VisibleText& visible) {
    for (Index i = 1; i < tree.nodes.size(); ++i) {
        const auto& node = tree.nodes[i];
        if (node.tag == PageTag::text || visible.isDropped(i)) continue;
        if (namesMainPart(tree, node) && visible.size(i) >= leastMainShare * visible.size(0)) {
            return i;
        }
    }
    return 0;
}

std::string lineOf(std::string_view text) {
    PageText line;
    line.append(text);
    return line.take();
}

void readMeta(const PageTree& tree, const PageTree::Node& node, Page& page, std::string& title) {
    using enum PageAttribute;
    auto key = tree.attribute(node, property);
    if (key.empty()) key = tree.attribute(node, name);
    if (key.empty()) key = tree.attribute(node, itemprop);
    const auto value = tree.attribute(node, content);
    if (value.empty()) return;
    if (key == "og:title" && title.empty()) title = lineOf(value);
    if ((key == "description" || key == "og:description") && page.description.empty()) {
        page.description = lineOf(value);
    }
    if ((key == "article:modified_time" || key == "og:updated_time" || key == "dateModified") &&
        !page.modified) {
        page.modified = parseISO8601(trimWhitespaceAndNewlines(value));
    }
}

/// Bytes of pictures and archives, or a document of another kind.
bool looksLikeOtherDocument(std::string_view bytes) {
    const auto head = bytes.substr(0, 1024);
    const auto isControl = [](char c) {
        return static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n' && c != '\r' &&
               c != '\f';
    };
    const bool isUTF16 = head.starts_with("\xFF\xFE") || head.starts_with("\xFE\xFF");
    if (!isUTF16 && std::count_if(head.begin(), head.end(), isControl) > 8) return true;
    for (auto at = bytes.find('<'); at != std::string_view::npos; at = bytes.find('<', at + 1)) {
        if (at + 1 == bytes.size()) break;
        if (isASCIILetter(bytes[at + 1]) || bytes[at + 1] == '!') return false;
    }
    return !isUTF16;
}

}  // namespace

PageHead readPageHead(const PageTree& tree, std::string_view url) {
    PageHead head{.page = {}, .base = std::string(url)};
    std::string socialTitle;
    for (Index i = 1; i < tree.nodes.size(); ++i) {
        const auto& node = tree.nodes[i];
        if (node.tag == PageTag::title && head.page.title.empty()) {
            head.page.title = lineOf(tree.textInside(i));
        } else if (node.tag == PageTag::meta) {
            readMeta(tree, node, head.page, socialTitle);
        } else if (node.tag == PageTag::html && head.page.language.empty()) {
            head.page.language = tree.attribute(node, PageAttribute::language);
        } else if (node.tag == PageTag::base && head.base == url) {
            const auto href = tree.attribute(node, PageAttribute::href);
            if (auto base = resolvedAddress(url, href)) head.base = std::move(*base);
        } else if (node.tag == PageTag::link && head.page.canonical.empty() &&
                   tree.attribute(node, PageAttribute::rel) == "canonical") {
            const auto href = tree.attribute(node, PageAttribute::href);
            head.page.canonical = resolvedAddress(head.base, href).value_or("");
        }
    }
    if (head.page.title.empty()) head.page.title = std::move(socialTitle);
    return head;
}

std::optional<PageProblem> problemOf(const PageAnswer& answer) {
    constexpr std::array blockStatuses{401, 403, 429, 451, 503};
    if (std::find(blockStatuses.begin(), blockStatuses.end(), answer.status) !=
        blockStatuses.end()) {
        return PageProblem::blocked;
    }
    if (answer.status != 200) return PageProblem::notHTML;
    if (answer.bytes.size() > longestPage) return PageProblem::tooLarge;
    const auto type = lowercasedASCII(answer.contentType);
    if (!type.empty() && type.find("html") == std::string::npos) return PageProblem::notHTML;
    if (looksLikeOtherDocument(answer.bytes)) return PageProblem::notHTML;
    return std::nullopt;
}

Page readPageText(const PageAnswer& answer) {
    std::string storage;
    const auto tree = parsePage(pageInUTF8(answer.bytes, answer.contentType, storage));
    VisibleText visible(tree);
    for (Index i = 1; i < tree.nodes.size(); ++i) {
        if (tree.nodes[i].tag != PageTag::text && isPageFurniture(tree, tree.nodes[i])) {
            visible.drop(i);
        }
    }
    visible.remeasure();
    auto head = readPageHead(tree, answer.url);
    head.page.blocks = readBlocks(tree, visible, mainPart(tree, visible), head.base);
    return std::move(head.page);
}

PageResult readPage(const PageAnswer& answer) {
    if (const auto problem = problemOf(answer)) return *problem;
    auto page = readPageText(answer);
    std::string text;
    for (const auto& block : page.blocks) text += block.text + '\n';
    if (isBlockPage(page.title, text)) return PageProblem::blocked;
    if (characterCount(text) < leastPageText) return PageProblem::tooShort;
    return page;
}

}  // namespace kit
