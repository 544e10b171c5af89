#include <libxml/HTMLparser.h>

#include <algorithm>
#include <memory>
#include <new>
#include <unordered_map>

#include "NewsroomKit/Pages/PageTree.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {
namespace {

constexpr std::size_t deepestPageNode = 256;
/// The parser compares every stray closing tag with all open elements: the product is bounded.
constexpr std::size_t mostTagComparisons = 50'000'000;
constexpr std::size_t mostOpenElements = 20'000;
/// It compares every attribute with all others of its tag too. No real tag has this many gaps
/// between words, not even with data in its attributes.
constexpr std::size_t mostGapsInATag = 5'000;

PageAttribute attributeNamed(std::string_view text) {
    using enum PageAttribute;
    static const std::unordered_map<std::string_view, PageAttribute> names{
        {"id", id},
        {"class", classes},
        {"role", role},
        {"hidden", hidden},
        {"style", style},
        {"aria-hidden", ariaHidden},
        {"aria-label", ariaLabel},
        {"href", href},
        {"itemprop", itemprop},
        {"itemtype", itemtype},
        {"property", property},
        {"name", PageAttribute::name},
        {"content", content},
        {"rel", rel},
        {"lang", language},
        {"datetime", datetime},
    };
    const auto found = names.find(text);
    return found == names.end() ? none : found->second;
}

std::string_view viewOf(const xmlChar* text) {
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

/// Builds the tree from the parser's events.
class TreeBuilder {
public:
    TreeBuilder() {
        tree_.nodes.push_back({.tag = PageTag::division});
        open_.push_back(0);
    }

    bool isBeyondLimits() const {
        return comparisons_ > mostTagComparisons || depth_ > mostOpenElements;
    }

    void start(const xmlChar* name, const xmlChar** attributes) {
        ++depth_;
        if (droppedDepth_ != 0 || depth_ > deepestPageNode) return;
        const auto tag = tagOf(name);
        if (tag == PageTag::dropped) {
            droppedDepth_ = depth_;
            return;
        }
        PageTree::Node node{.tag = tag, .parent = open_.back()};
        node.firstAttribute = static_cast<std::uint32_t>(tree_.attributes.size());
        for (; attributes && attributes[0]; attributes += 2) add(attributes[0], attributes[1]);
        node.attributeCount =
            static_cast<std::uint32_t>(tree_.attributes.size()) - node.firstAttribute;
        open_.push_back(static_cast<PageTree::Index>(tree_.nodes.size()));
        tree_.nodes.push_back(node);
    }

    void end() {
        if (depth_ == 0) return;
        if (droppedDepth_ == depth_) {
            droppedDepth_ = 0;
        } else if (droppedDepth_ == 0 && depth_ <= deepestPageNode) {
            close();
        }
        --depth_;
    }

    void text(std::string_view characters) {
        if (droppedDepth_ != 0) return;
        auto& last = tree_.nodes.back();
        const auto begin = static_cast<std::uint32_t>(tree_.characters.size());
        tree_.characters += characters;
        const auto finish = static_cast<std::uint32_t>(tree_.characters.size());
        if (last.tag == PageTag::text && last.parent == open_.back() && last.textEnd == begin) {
            last.textEnd = finish;
            return;
        }
        const auto index = static_cast<PageTree::Index>(tree_.nodes.size());
        tree_.nodes.push_back({.tag = PageTag::text,
                               .parent = open_.back(),
                               .end = index + 1,
                               .textBegin = begin,
                               .textEnd = finish});
    }

    void countStrayTag() { comparisons_ += depth_; }

    PageTree finish() && {
        while (!open_.empty()) close();
        return std::move(tree_);
    }

private:
    PageTag tagOf(const xmlChar* name) {
        // The parser interns names, so that most are known by their address.
        const auto [known, isNew] = tags_.try_emplace(name, PageTag::other);
        if (isNew) known->second = pageTag(viewOf(name));
        return known->second;
    }

    void add(const xmlChar* name, const xmlChar* value) {
        const auto attribute = attributeNamed(viewOf(name));
        if (attribute == PageAttribute::none) return;
        const auto begin = static_cast<std::uint32_t>(tree_.characters.size());
        tree_.characters += viewOf(value);
        tree_.attributes.push_back(
            {attribute, begin, static_cast<std::uint32_t>(tree_.characters.size())});
    }

    void close() {
        tree_.nodes[open_.back()].end = static_cast<PageTree::Index>(tree_.nodes.size());
        open_.pop_back();
    }

    PageTree tree_;
    std::vector<PageTree::Index> open_;
    std::unordered_map<const xmlChar*, PageTag> tags_;
    std::size_t depth_ = 0;
    std::size_t droppedDepth_ = 0;  ///< of the open element whose content is left out; 0 for none
    std::size_t comparisons_ = 0;
};

/// One run of the parser and the callbacks that lead to its builder.
struct PageRun {
    struct FreeContext {
        void operator()(htmlParserCtxtPtr context) const { htmlFreeParserCtxt(context); }
    };
    TreeBuilder builder;
    std::unique_ptr<htmlParserCtxt, FreeContext> context{htmlNewParserCtxt()};

    static PageRun& of(void* user) { return *static_cast<PageRun*>(user); }

    void stopBeyondLimits() {
        if (builder.isBeyondLimits()) xmlStopParser(context.get());
    }

    static void startElement(void* user, const xmlChar* name, const xmlChar** attributes) {
        of(user).builder.start(name, attributes);
        of(user).stopBeyondLimits();
    }
    static void endElement(void* user, const xmlChar*) { of(user).builder.end(); }
    static void characters(void* user, const xmlChar* text, int length) {
        of(user).builder.text(
            {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
    }
    // The error is constant in newer releases of the library.
    static void mistake(void* user, auto* /*error*/) {
        of(user).builder.countStrayTag();
        of(user).stopBeyondLimits();
    }
};

/// The parser stops at a zero byte, and takes very long for a tag of very many attributes; both
/// are replaced by spaces. Returns `html` itself when there is neither.
std::string_view withoutTraps(std::string_view html, std::string& storage) {
    const auto writable = [&]() -> std::string& {
        if (storage.empty()) storage = html;
        return storage;
    };
    for (auto at = html.find('\0'); at != std::string_view::npos; at = html.find('\0', at + 1)) {
        writable()[at] = ' ';
    }
    for (auto at = html.find('<'); at != std::string_view::npos; at = html.find('<', at + 1)) {
        if (at + 1 == html.size() || !isASCIILetter(html[at + 1])) continue;
        const auto end = std::min(html.find('>', at), html.size());
        // A gap takes at least two bytes with the name that follows it.
        if (end - at < 2 * mostGapsInATag) continue;
        const auto isGap = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '/'; };
        const auto tag = html.substr(at, end - at);
        if (static_cast<std::size_t>(std::count_if(tag.begin(), tag.end(), isGap)) >
            mostGapsInATag) {
            const auto nameEnd = std::find_if(tag.begin(), tag.end(), isGap) - tag.begin();
            std::fill(writable().begin() + static_cast<std::ptrdiff_t>(at) + nameEnd,
                      writable().begin() + static_cast<std::ptrdiff_t>(end), ' ');
        }
        at = end - 1;
    }
    return storage.empty() ? html : storage;
}

}  // namespace

PageTree parsePage(std::string_view utf8) {
    std::string storage;
    utf8 = withoutTraps(utf8, storage);
    PageRun run;
    if (!run.context) throw std::bad_alloc();
    auto& handler = *run.context->sax;
    handler = {};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElement = PageRun::startElement;
    handler.endElement = PageRun::endElement;
    handler.characters = PageRun::characters;
    handler.ignorableWhitespace = PageRun::characters;
    handler.cdataBlock = PageRun::characters;
    handler.serror = PageRun::mistake;
    run.context->userData = &run;
    constexpr int options = HTML_PARSE_RECOVER | HTML_PARSE_NONET | HTML_PARSE_NODEFDTD |
                            HTML_PARSE_NOWARNING | HTML_PARSE_NOERROR;
    htmlCtxtReadMemory(run.context.get(), utf8.data(), static_cast<int>(utf8.size()), nullptr,
                       "UTF-8", options);
    return std::move(run.builder).finish();
}

}  // namespace kit
