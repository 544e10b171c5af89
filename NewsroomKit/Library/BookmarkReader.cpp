#include <algorithm>

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Feeds/TagAttribute.h"
#include "NewsroomKit/Library/ImportedLink.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kDeepestFolder = 50;
constexpr std::size_t kLongestTagOfHTML = 1'000'000;  // browsers write whole icons into attributes
constexpr auto kEndOfText = std::string_view::npos;

/// Walks over the tags of a file of bookmarks. These files leave most elements open, so that only
/// the order of the tags counts.
class BookmarkWalk {
public:
    explicit BookmarkWalk(std::string_view html) : html_(html) {}

    std::vector<ImportedLink> read(std::size_t most) {
        while (links_.size() <= most) {
            const auto tag = nextTag();
            if (tag.empty()) break;
            take(tag);
        }
        return std::move(links_);
    }

private:
    /// What stands between angle brackets, quoted brackets included; empty at the end.
    std::string_view nextTag();
    void take(std::string_view tag);
    void addLink(std::string_view tag);
    void addDescription();
    void openFolder(std::string_view tag);
    /// The text up to a tag that `ends` names; markup inside it counts for nothing.
    std::string textUpTo(std::string_view end);

    std::string_view html_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    std::size_t counted_ = 0;  ///< up to where lines are counted
    std::vector<ImportedLink> links_;
    std::vector<std::string> folders_;  ///< an empty one is the browser's own
    std::string nextFolder_;            ///< named, but its list has not begun
    std::size_t lists_ = 0;
    bool isBehindLink_ = false;  ///< a description that comes now is the last link's
};

std::string_view elementOf(std::string_view tag) {
    return tag.substr(0, tag.find_first_of(" \t\r\n/", 1));
}

std::string_view BookmarkWalk::nextTag() {
    for (;;) {
        const auto begin = html_.find('<', at_);
        if (begin == kEndOfText) return {};
        if (html_.substr(begin).starts_with("<!--")) {
            const auto end = html_.find("-->", begin);
            if (end == kEndOfText) return {};
            at_ = end + 3;
            continue;
        }
        char quote = 0;
        const auto limit = std::min(html_.size(), begin + kLongestTagOfHTML);
        for (at_ = begin + 1; at_ < limit; ++at_) {
            const char c = html_[at_];
            if (quote != 0) {
                if (c == quote) quote = 0;
            } else if ((c == '"' || c == '\'') && html_[at_ - 1] == '=') {
                quote = c;
            } else if (c == '>') {
                break;
            }
        }
        const auto tag = html_.substr(begin + 1, at_ - begin - 1);
        line_ += static_cast<std::size_t>(
            std::ranges::count(html_.substr(counted_, begin - counted_), '\n'));
        counted_ = begin;
        if (at_ < html_.size()) ++at_;
        if (!tag.empty()) return tag;
    }
}

std::string BookmarkWalk::textUpTo(std::string_view end) {
    const auto begin = at_;
    auto stop = begin;
    for (;;) {
        stop = html_.find('<', stop);
        if (stop == kEndOfText) stop = html_.size();
        const auto rest = html_.substr(stop, end.size() + 1);
        const bool isBlock = equalsLowercase(rest.substr(0, 3), "<dt") ||
                             equalsLowercase(rest.substr(0, 3), "<dl") ||
                             equalsLowercase(rest.substr(0, 4), "</dl");
        if (rest.empty() || isBlock || equalsLowercase(rest.substr(0, end.size()), end)) break;
        ++stop;
    }
    at_ = stop;
    return cleanHeadline(html_.substr(begin, stop - begin));
}

void BookmarkWalk::take(std::string_view tag) {
    const auto element = lowercasedASCII(elementOf(tag).substr(0, 4));
    if (element == "a") return addLink(tag);
    if (element == "dd") return addDescription();
    if (element == "h3") return openFolder(tag);
    if (element == "dl" && ++lists_ <= kDeepestFolder) {
        folders_.push_back(std::move(nextFolder_));
        nextFolder_.clear();
    }
    if (element == "/dl" && lists_ > 0) {
        if (lists_ == folders_.size()) folders_.pop_back();
        --lists_;
    }
}

void BookmarkWalk::openFolder(std::string_view tag) {
    const bool isOwn = !tagAttribute(tag, "personal_toolbar_folder").empty() ||
                       !tagAttribute(tag, "unfiled_bookmarks_folder").empty();
    nextFolder_ = textUpTo("</h3");
    if (isOwn) nextFolder_.clear();
    isBehindLink_ = false;
}

void BookmarkWalk::addLink(std::string_view tag) {
    const auto href = tagAttribute(tag, "href");
    if (href.empty()) return;
    ImportedLink link;
    link.line = line_;
    link.link = trimWhitespaceAndNewlines(decodedEntities(href));
    readAddedAt(tagAttribute(tag, "add_date"), link);
    for (const auto& folder : folders_) appendTags(folder, '\0', link.tags);
    appendTags(decodedEntities(tagAttribute(tag, "tags")), ',', link.tags);
    link.title = textUpTo("</a");
    links_.push_back(std::move(link));
    isBehindLink_ = true;
}

void BookmarkWalk::addDescription() {
    auto text = textUpTo("</dd");
    if (isBehindLink_) links_.back().excerpt = std::move(text);
    isBehindLink_ = false;
}

}  // namespace

std::vector<ImportedLink> readBookmarks(std::string_view utf8, std::size_t most) {
    return BookmarkWalk(utf8).read(most);
}

}  // namespace kit
