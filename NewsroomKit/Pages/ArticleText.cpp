#include "NewsroomKit/Pages/ArticleText.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_set>

#include "NewsroomKit/Pages/ArticleFurniture.h"
#include "NewsroomKit/Pages/ArticleRoot.h"
#include "NewsroomKit/Pages/BlockPage.h"
#include "NewsroomKit/Pages/BlockReader.h"
#include "NewsroomKit/Pages/PageEncoding.h"
#include "NewsroomKit/Pages/PageTree.h"
#include "NewsroomKit/Pages/VisibleText.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

using Index = PageTree::Index;

bool hasWords(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto decoded = decodeUTF8(text, at);
        if (isLetter(decoded.value)) return true;
        at += decoded.length;
    }
    return false;
}

/// Counters and marks of galleries stand between paragraphs: "6", "0 : 0", "•".
bool isCounter(const PageBlock& block) {
    constexpr std::size_t longestCounter = 8;
    return (block.kind == PageBlock::Kind::text || block.kind == PageBlock::Kind::paragraph) &&
           block.text.size() <= longestCounter && block.text.find('$') == std::string::npos &&
           !hasWords(block.text);
}

/// A line that is a single link in capitals leads to other stories.
bool isTeaser(const PageBlock& block) {
    if (block.kind != PageBlock::Kind::paragraph && block.kind != PageBlock::Kind::text)
        return false;
    if (block.links.size() != 1 || block.links.front().text != block.text) return false;
    return std::none_of(block.text.begin(), block.text.end(),
                        [](char c) { return c >= 'a' && c <= 'z'; }) &&
           std::count(block.text.begin(), block.text.end(), ' ') >= 2;
}

/// Captions say nothing without their pictures, unless an article is made of them.
void dropCaptions(std::vector<PageBlock>& blocks) {
    std::size_t all = 0;
    std::size_t captions = 0;
    for (const auto& block : blocks) {
        all += block.text.size();
        if (block.kind == PageBlock::Kind::caption) captions += block.text.size();
    }
    if (captions * 3 > all) return;
    std::erase_if(blocks,
                  [](const PageBlock& block) { return block.kind == PageBlock::Kind::caption; });
}

/// Publishers tell search engines which texts are for subscribers: "isAccessibleForFree":false.
bool saysItIsPaywalled(std::string_view html) {
    constexpr std::string_view key = "isAccessibleForFree";
    for (auto at = html.find(key); at != std::string_view::npos; at = html.find(key, at + 1)) {
        auto value = html.substr(at + key.size(), std::size_t{16});
        const auto begin = value.find_first_not_of("\"': \t\r\n");
        if (begin == std::string_view::npos) continue;
        if (standsAt(value, begin, "false")) return true;
    }
    return html.find("\"article:content_tier\" content=\"locked\"") != std::string_view::npos;
}

/// Headings under which nothing is left.
void dropEmptySections(std::vector<PageBlock>& blocks) {
    std::vector<PageBlock> kept;
    for (auto block = blocks.rbegin(); block != blocks.rend(); ++block) {
        const bool isEmpty = block->kind == PageBlock::Kind::heading &&
                             (kept.empty() || (kept.back().kind == PageBlock::Kind::heading &&
                                               *kept.back().level < *block->level));
        if (!isEmpty) kept.push_back(std::move(*block));
    }
    blocks.assign(std::make_move_iterator(kept.rbegin()), std::make_move_iterator(kept.rend()));
}

std::vector<PageLink> linksIn(const std::vector<PageBlock>& blocks) {
    std::vector<PageLink> links;
    std::unordered_set<std::string_view> seen;
    for (const auto& block : blocks) {
        for (const auto& link : block.links) {
            if (seen.insert(link.url).second) links.push_back(link);
        }
    }
    return links;
}

void appendEscaped(std::string_view text, std::string& html) {
    for (const char c : text) {
        switch (c) {
            case '&': html += "&amp;"; break;
            case '<': html += "&lt;"; break;
            case '"': html += "&quot;"; break;
            default: html += c;
        }
    }
}

}  // namespace

ArticleResult readArticle(const PageAnswer& answer) {
    if (const auto problem = problemOf(answer)) return *problem;
    std::string storage;
    const auto tree = parsePage(pageInUTF8(answer.bytes, answer.contentType, storage));
    const auto head = readPageHead(tree, answer.url);
    VisibleText visible(tree);
    dropFurniture(tree, visible);
    const auto root = articleRoot(tree, visible);
    dropInsertions(tree, visible, root, head.page.title);

    Article article{.title = head.page.title,
                    .blocks = readBlocks(tree, visible, root, head.base),
                    .links = {}};
    dropCaptions(article.blocks);
    std::erase_if(article.blocks,
                  [](const PageBlock& block) { return isCounter(block) || isTeaser(block); });
    dropEmptySections(article.blocks);
    std::string text;
    for (const auto& block : article.blocks) text += block.text + '\n';
    if (isBlockPage(article.title, text)) return PageProblem::blocked;
    if (text.empty()) return PageProblem::tooShort;
    article.links = linksIn(article.blocks);
    article.isPaywalled = saysItIsPaywalled(answer.bytes);
    return article;
}

std::string articleHTML(const Article& article) {
    std::string html;
    for (const auto& block : article.blocks) {
        html += block.kind == PageBlock::Kind::quote ? "<blockquote>" : "<p>";
        std::string_view rest = block.text;
        for (const auto& link : block.links) {
            const auto at = rest.find(link.text);
            if (at == std::string_view::npos) continue;
            appendEscaped(rest.substr(0, at), html);
            html += "<a href=\"";
            appendEscaped(link.url, html);
            html += "\">";
            appendEscaped(link.text, html);
            html += "</a>";
            rest = rest.substr(at + link.text.size());
        }
        appendEscaped(rest, html);
        html += block.kind == PageBlock::Kind::quote ? "</blockquote>\n" : "</p>\n";
    }
    return html;
}

}  // namespace kit
