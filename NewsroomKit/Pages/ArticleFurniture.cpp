#include "NewsroomKit/Pages/ArticleFurniture.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <vector>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

using Index = PageTree::Index;
using NameWords = std::unordered_set<std::string_view>;

/// An element with more of the page's text than this is no furniture, whatever it is called.
constexpr double mostFurnitureShare = 0.5;
/// Lists whose text is links for the most part lead elsewhere.
constexpr double linkListShare = 0.6;

/// Words of classes and ids. A class is taken apart at "-", "_" and capitals: "js-shareBar" has the
/// word "share".
const NameWords& furnitureWords() {
    static const NameWords words{
        "ad",
        "ads",
        "advert",
        "advertisement",
        "advertising",
        "banner",
        "breadcrumb",
        "breadcrumbs",
        "comment",
        "comments",
        "commentlist",
        "consent",
        "cookie",
        "cookies",
        "disqus",
        "dfp",
        "footer",
        "gdpr",
        "hidden",
        "livefyre",
        "login",
        "masthead",
        "menu",
        "modal",
        "nav",
        "navbar",
        "navigation",
        "newsletter",
        "newsletters",
        "outbrain",
        "overlay",
        "pager",
        "pagination",
        "paywall",
        "popup",
        "promo",
        "promos",
        "recirc",
        "recirculation",
        "recommend",
        "recommended",
        "recommendations",
        "related",
        "relatedposts",
        "reply",
        "respond",
        "share",
        "sharing",
        "sharedaddy",
        "sidebar",
        "signup",
        "skip",
        "social",
        "sponsor",
        "sponsored",
        "subscribe",
        "subscription",
        "taboola",
        "tags",
        "teaser",
        "toolbar",
        "tooltip",
        "trending",
        "widget",
        "zergnet",
        "toc",
        "noprint",
        "editsection",
        "catlinks",
        "jumptonav",
        "topnav",
        "subnav",
        "jp",
        "donate",
        "poll",
        "rating",
        "adsense",
        "shares",
        "addtoany",
        "whatsapp",
        "upsell",
        "cta",
    };
    return words;
}

/// Words of the lines above and below an article.
const NameWords& bylineWords() {
    static const NameWords words{"byline",    "author",    "authors",    "dateline", "timestamp",
                                 "pubdate",   "published", "meta",       "metadata", "postmeta",
                                 "kicker",    "eyebrow",   "bio",        "credit",   "credits",
                                 "copyright", "permalink", "readtime",   "date",     "posted",
                                 "updated",   "category",  "categories", "tag"};
    return words;
}

const NameWords& textWords() {
    static const NameWords words{"article", "body",  "content", "entry", "main",
                                 "post",    "story", "text",    "blog",  "page"};
    return words;
}

/// Calls `accepts` with each word of a class or id in lower case until it returns true.
template <class Accepts>
bool anyNamePart(std::string_view names, Accepts accepts) {
    std::string word;
    for (std::size_t at = 0; at <= names.size(); ++at) {
        const char c = at < names.size() ? names[at] : ' ';
        const bool isCapital = c >= 'A' && c <= 'Z';
        const bool isLetter = isASCIILetter(c);
        const bool beginsWord =
            isCapital && at > 0 && !(names[at - 1] >= 'A' && names[at - 1] <= 'Z');
        if (!isLetter || beginsWord) {
            if (!word.empty() && accepts(std::string_view(word))) return true;
            word.clear();
        }
        if (isLetter) word += lowercaseASCII(c);
    }
    return false;
}

bool hasName(const PageTree& tree, const PageTree::Node& node, const NameWords& words) {
    const auto isKnown = [&](std::string_view word) { return words.contains(word); };
    return anyNamePart(tree.attribute(node, PageAttribute::classes), isKnown) ||
           anyNamePart(tree.attribute(node, PageAttribute::id), isKnown);
}

bool isFurnitureByRole(const PageTree& tree, const PageTree::Node& node) {
    using enum PageTag;
    if (node.tag == navigation || node.tag == footer || node.tag == aside) return true;
    const auto role = tree.attribute(node, PageAttribute::role);
    for (const std::string_view known : {"navigation", "banner", "contentinfo", "complementary",
                                         "search", "dialog", "alertdialog", "menu", "menubar"}) {
        if (role == known) return true;
    }
    return false;
}

bool holdsMainPart(const PageTree& tree, Index index) {
    const auto tag = tree.nodes[index].tag;
    return tag == PageTag::html || tag == PageTag::body || tag == PageTag::mainContent;
}

std::string lettersOf(std::string_view text) {
    std::string letters;
    for (const char c : text) {
        if (isASCIIAlphanumeric(c) || static_cast<unsigned char>(c) >= 0x80) {
            letters += lowercaseASCII(c);
        }
    }
    return letters;
}

/// "post-body", "articleText": what publishers call the element with the text.
bool callsItselfText(const PageTree& tree, const PageTree::Node& node) {
    if (tree.attribute(node, PageAttribute::itemprop) == "articleBody") return true;
    bool isOfArticle = false;
    bool isOfText = false;
    anyNamePart(tree.attribute(node, PageAttribute::classes), [&](std::string_view word) {
        isOfArticle = isOfArticle || word == "article" || word == "post" || word == "entry" ||
                      word == "story";
        isOfText = isOfText || word == "body" || word == "content" || word == "text";
        return false;
    });
    return isOfArticle && isOfText;
}

/// The ancestors of elements that call themselves the article's text. Templates of pages are made
/// of widgets, and the article is in one of them.
std::vector<bool> elementsAroundText(const PageTree& tree, const VisibleText& visible) {
    std::vector<Index> texts;
    std::uint32_t largest = 0;
    for (Index i = 1; i < tree.nodes.size(); ++i) {
        if (tree.nodes[i].attributeCount == 0 || !callsItselfText(tree, tree.nodes[i])) continue;
        texts.push_back(i);
        largest = std::max(largest, visible.size(i));
    }
    std::vector<bool> around(tree.nodes.size());
    for (const auto text : texts) {
        // The same words name teasers of other stories, which are shorter.
        if (visible.size(text) * 2 < largest) continue;
        for (auto at = text; !around[at]; at = tree.nodes[at].parent) around[at] = true;
    }
    return around;
}

bool isListOfLinks(const PageTree& tree, const VisibleText& visible, Index index) {
    using enum PageTag;
    const auto tag = tree.nodes[index].tag;
    const bool isContainer = tag == division || tag == section || tag == table || tag == form ||
                             tag == header || tag == definitions;
    return isContainer && visible.linkShare(index) > linkListShare;
}

}  // namespace

bool namesArticleText(const PageTree& tree, const PageTree::Node& node) {
    return hasName(tree, node, textWords());
}

void dropFurniture(const PageTree& tree, VisibleText& visible) {
    const auto whole = visible.size(0);
    const auto isAroundText = elementsAroundText(tree, visible);
    for (Index i = 1; i < tree.nodes.size();) {
        const auto& node = tree.nodes[i];
        if (visible.isDropped(i)) {
            i = node.end;
            continue;
        }
        const bool mayGo = node.tag != PageTag::text && !holdsMainPart(tree, i) &&
                           visible.size(i) < mostFurnitureShare * whole;
        if (mayGo && (isFurnitureByRole(tree, node) ||
                      (!isAroundText[i] && hasName(tree, node, furnitureWords())))) {
            visible.drop(i);
            i = node.end;
        } else {
            ++i;
        }
    }
    visible.remeasure();
}

void dropInsertions(const PageTree& tree, VisibleText& visible, Index root,
                    std::string_view title) {
    constexpr std::uint32_t longestByline = 200;
    const auto titleLetters = lettersOf(title);
    const auto whole = visible.size(root);
    const auto end = tree.nodes[root].end;
    for (Index i = root + 1; i < end;) {
        const auto& node = tree.nodes[i];
        if (visible.isDropped(i)) {
            i = node.end;
            continue;
        }
        bool goes = false;
        if (node.tag == PageTag::heading1 || node.tag == PageTag::heading2) {
            const auto heading = lettersOf(tree.textInside(i));
            goes = !heading.empty() && titleLetters.find(heading) != std::string::npos &&
                   heading.size() * 2 > titleLetters.size();
        } else if (node.tag != PageTag::text) {
            goes =
                (visible.size(i) < mostFurnitureShare * whole && isListOfLinks(tree, visible, i)) ||
                (visible.size(i) < longestByline && hasName(tree, node, bylineWords()));
        }
        if (goes) {
            visible.drop(i);
            i = node.end;
        } else {
            ++i;
        }
    }
    visible.remeasure();
}

}  // namespace kit
