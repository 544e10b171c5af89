#include "NewsroomKit/Outlines/OutlineCollector.h"

#include <optional>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Feeds/TextTruncation.h"
#include "NewsroomKit/Outlines/OutlineParser.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kLongestTitle = 120;

std::string titleOf(const OutlineAttributes& attributes) {
    auto title = cleanHeadline(attributes.text);
    if (title.empty()) title = cleanHeadline(attributes.title);
    return cutAtWord(title, kLongestTitle);
}

/// Some readers store commands ("|fetch.sh", "exec:…", "filter:…") in place of addresses.
bool isCommand(std::string_view address) {
    const auto lower = lowercasedASCII(address.substr(0, 8));
    return lower.starts_with('|') || lower.starts_with("exec:") || lower.starts_with("filter:");
}

std::optional<OutlineRefusal> refusal(std::string_view address,
                                      const std::optional<WebAddress>& parsed) {
    if (isCommand(address)) return OutlineRefusal::command;
    if (!parsed || !parsed->isHTTP()) return OutlineRefusal::noWebAddress;
    if (parsed->scheme != "https") return OutlineRefusal::notHTTPS;
    return std::nullopt;
}

/// Drops an invalid site address instead of refusing the feed: it is only a link for the user.
std::string siteOf(std::string_view address) {
    const auto parsed = WebAddress::parse(trimWhitespaceAndNewlines(address));
    return parsed && parsed->isHTTP() ? parsed->text() : std::string();
}

}  // namespace

void OutlineCollector::begin(const OutlineAttributes& attributes) {
    ++depth_;
    ++count_;
    if (!attributes.xmlURL.empty()) {
        addFeed(attributes);
    } else if (!attributes.url.empty()) {
        skip(attributes, OutlineRefusal::notAFeed);
    }
    if (depth_ <= outlineDepthLimit) open_.push_back(titleOf(attributes));
}

void OutlineCollector::end() {
    if (depth_ == open_.size()) open_.pop_back();
    --depth_;
}

void OutlineCollector::setTitle(std::string_view html) {
    if (outlines_.title.empty()) outlines_.title = cutAtWord(cleanHeadline(html), kLongestTitle);
}

void OutlineCollector::skip(const OutlineAttributes& attributes, OutlineRefusal reason) {
    auto text = titleOf(attributes);
    if (text.empty()) {
        const auto& address = attributes.xmlURL.empty() ? attributes.url : attributes.xmlURL;
        text = firstCharacters(validUTF8(address), kLongestTitle);
    }
    outlines_.skipped.push_back({.text = std::move(text), .reason = reason});
}

void OutlineCollector::addFeed(const OutlineAttributes& attributes) {
    const auto address = trimWhitespaceAndNewlines(attributes.xmlURL);
    if (depth_ > outlineDepthLimit) return skip(attributes, OutlineRefusal::tooDeep);
    const auto parsed = WebAddress::parse(address);
    if (const auto reason = refusal(address, parsed)) return skip(attributes, *reason);
    if (!known_.insert(canonicalLink(address)).second) {
        return skip(attributes, OutlineRefusal::listed);
    }
    OutlineFeed feed{.title = titleOf(attributes),
                     .feedURL = parsed->text(),
                     .siteURL = siteOf(attributes.htmlURL)};
    for (const auto& folder : open_) {
        if (!folder.empty()) feed.folders.push_back(folder);
    }
    outlines_.feeds.push_back(std::move(feed));
}

}  // namespace kit
