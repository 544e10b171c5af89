#include "NewsroomKit/Feeds/FeedSaxHandler.h"

#include <unordered_map>
#include <utility>

#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Feeds/MarkupWriter.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

bool holdsHTML(ElementRole role) {
    return role == ElementRole::title || role == ElementRole::summary ||
           role == ElementRole::content || role == ElementRole::mediaDescription ||
           role == ElementRole::podcastSummary;
}

bool declaresXHTML(const XMLAttributes& attributes) {
    const auto type = attributes.value("type");
    return type == "xhtml" || type == "application/xhtml+xml";
}

FeedEntryBuilder::Permalink permalink(const XMLAttributes& attributes) {
    const auto said = lowercasedASCII(attributes.value("isPermaLink"));
    if (said == "true") return FeedEntryBuilder::Permalink::yes;
    return said.empty() ? FeedEntryBuilder::Permalink::unsaid : FeedEntryBuilder::Permalink::no;
}

/// The part of a link that is equal for links to the same page.
std::string_view pageOf(std::string_view link) {
    if (const auto scheme = link.find("://"); scheme != std::string_view::npos) {
        link.remove_prefix(scheme + 3);
    }
    link = link.substr(0, link.find('#'));
    while (link.ends_with('/')) link.remove_suffix(1);
    return link;
}

std::string_view view(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

}  // namespace

void FeedSaxHandler::startElement(const xmlChar* localName, const xmlChar* prefix,
                                  const xmlChar* uri, const XMLAttributes& attributes) {
    if (isCapturingMarkup()) {
        open_.push_back(ElementRole::none);
        if (!isWrapper(view(localName))) appendStartTag(view(localName), attributes, text_);
        return;
    }
    const auto parent = open_.empty() ? ElementRole::none : open_.back();
    const auto role = names_.role(localName, prefix, uri);
    open_.push_back(role);
    sawElement_ = true;
    if (mutedDepth_ > 0) return;
    if (const auto written = attributes.xmlBase(); !written.empty()) {
        xmlBases_.push_back({open_.size(), base_.nested(written, xmlBase())});
    }
    if (entryDepth_ > 0) {
        startInEntry(role, parent, attributes);
    } else {
        startOutside(role, parent, attributes);
    }
}

void FeedSaxHandler::startOutside(ElementRole role, ElementRole parent,
                                  const XMLAttributes& attributes) {
    switch (role) {
        case ElementRole::feed:
        case ElementRole::atomFeed: sawFeedElement_ = true; break;
        case ElementRole::entry:
            entryDepth_ = open_.size();
            draft_ = {};
            break;
        case ElementRole::title:
            if (parent == ElementRole::channel || parent == ElementRole::atomFeed) {
                beginText(role, attributes);
            }
            break;
        case ElementRole::link:
        case ElementRole::atomLink:
            if (parent == ElementRole::channel || parent == ElementRole::atomFeed) {
                startFeedLink(role, attributes);
            }
            break;
        default: break;
    }
}

/// Offers the feed's own page and address to the address base.
void FeedSaxHandler::startFeedLink(ElementRole role, const XMLAttributes& attributes) {
    const auto address = attributes.value("href");
    const auto relation = lowercasedASCII(attributes.value("rel"));
    const auto type = attributes.value("type");
    if (address.empty()) {
        if (role == ElementRole::link) beginText(role, attributes);
    } else if (relation == "self") {
        base_.offerSelf(address);
    } else if (relation.empty() || relation == "alternate") {
        if (type.empty() || type.starts_with("text/html")) base_.offerHomePage(address);
    }
}

void FeedSaxHandler::startInEntry(ElementRole role, ElementRole parent,
                                  const XMLAttributes& attributes) {
    // An Atom source describes another feed, with a title, link and dates of its own.
    if (parent == ElementRole::publisher) {
        mutedDepth_ = open_.size();
        return;
    }
    switch (role) {
        case ElementRole::entry:
        case ElementRole::image: mutedDepth_ = open_.size(); break;
        case ElementRole::title:
            if (parent != ElementRole::mediaGroup) beginText(role, attributes);
            break;
        case ElementRole::authorName:
            if (parent == ElementRole::author) beginText(role, attributes);
            break;
        case ElementRole::link:
            draft_.addLink(attributes, completed(attributes.value("href")));
            beginText(role, attributes);
            break;
        case ElementRole::enclosure:
            draft_.addEnclosure(completed(attributes.value("url")), attributes.value("type"));
            break;
        case ElementRole::mediaContent:
            draft_.images.offerMediaContent(attributes, completed(attributes.value("url")));
            break;
        case ElementRole::mediaThumbnail:
            draft_.images.offerMediaThumbnail(attributes, completed(attributes.value("url")));
            break;
        case ElementRole::podcastImage:
            draft_.images.offerPodcastImage(completed(attributes.value("href")));
            break;
        case ElementRole::videoID: draft_.hasVideoID = true; break;
        case ElementRole::guid:
            draft_.permalink = permalink(attributes);
            beginText(role, attributes);
            break;
        case ElementRole::summary:
        case ElementRole::content:
            if (!xmlBases_.empty()) draft_.htmlBase = xmlBase();
            beginText(role, attributes);
            break;
        default:
            if (field(role) != nullptr) beginText(role, attributes);
            break;
    }
}

void FeedSaxHandler::beginText(ElementRole role, const XMLAttributes& attributes) {
    textDepth_ = open_.size();
    textRole_ = role;
    text_.clear();
    markup_ = Markup::none;
    if (holdsHTML(role)) markup_ = declaresXHTML(attributes) ? Markup::declared : Markup::stray;
}

void FeedSaxHandler::text(std::string_view characters) {
    if (textDepth_ == 0 || mutedDepth_ > 0) return;
    const bool inMarkup = open_.size() > textDepth_;
    if (markup_ == Markup::declared || (markup_ == Markup::stray && inMarkup)) {
        appendEscapedText(characters, text_);
    } else if (!inMarkup) {
        text_.append(characters);
    }
}

void FeedSaxHandler::endElement(const xmlChar* localName) {
    const auto depth = open_.size();
    if (depth == mutedDepth_) {
        mutedDepth_ = 0;
    } else if (depth == textDepth_) {
        finishText();
    } else if (isCapturingMarkup() && !isWrapper(view(localName))) {
        appendEndTag(view(localName), text_);
    }
    if (depth == entryDepth_) finishEntry();
    if (!xmlBases_.empty() && xmlBases_.back().depth == depth) xmlBases_.pop_back();
    open_.pop_back();
}

std::string_view FeedSaxHandler::xmlBase() const {
    return xmlBases_.empty() ? std::string_view() : xmlBases_.back().address;
}

/// The one div that must enclose declared XHTML is not part of the text.
bool FeedSaxHandler::isWrapper(std::string_view localName) const {
    return markup_ == Markup::declared && open_.size() == textDepth_ + 1 && localName == "div";
}

std::string* FeedSaxHandler::field(ElementRole role) {
    switch (role) {
        case ElementRole::title: return entryDepth_ > 0 ? &draft_.title : &feed_.title;
        case ElementRole::link: return &draft_.link;
        case ElementRole::summary: return &draft_.summary;
        case ElementRole::content: return &draft_.content;
        case ElementRole::date: return &draft_.date;
        case ElementRole::revisionDate: return &draft_.revisionDate;
        case ElementRole::guid: return &draft_.guid;
        case ElementRole::author:
        case ElementRole::authorName: return &draft_.author;
        case ElementRole::publisher: return &draft_.publisher;
        case ElementRole::mediaDescription: return &draft_.mediaDescription;
        case ElementRole::podcastAuthor: return &draft_.podcastAuthor;
        case ElementRole::podcastSummary: return &draft_.podcastSummary;
        default: return nullptr;
    }
}

void FeedSaxHandler::finishText() {
    textDepth_ = 0;
    if (textRole_ == ElementRole::link && entryDepth_ == 0) {
        base_.offerHomePage(text_);
        return;
    }
    auto* const target = field(textRole_);
    if (target == nullptr || !target->empty()) return;
    if (textRole_ == ElementRole::link) {
        *target = completed(text_);
        return;
    }
    const auto trimmed = trimWhitespaceAndNewlines(text_);
    if (trimmed.size() == text_.size()) {
        *target = std::move(text_);
        text_.clear();
    } else {
        *target = trimmed;
    }
}

void FeedSaxHandler::finishEntry() {
    entryDepth_ = 0;
    textDepth_ = 0;
    feed_.entries.push_back(std::move(draft_).finish(base_, xmlBase()));
    recordings_.push_back(std::move(draft_.recording));
    feed_.reachedLimit = feed_.entries.size() == feedEntryLimit;
}

/// Podcasts may link all episodes to the page of the show, which would collapse them into one.
void FeedSaxHandler::separateRecordings() {
    std::unordered_map<std::string_view, int> counts;
    for (const auto& entry : feed_.entries) ++counts[pageOf(entry.link)];
    std::vector<std::size_t> shared;
    for (std::size_t index = 0; index < recordings_.size(); ++index) {
        const auto& link = feed_.entries[index].link;
        if (recordings_[index].empty() || link.empty()) continue;
        if (counts[pageOf(link)] > 1) shared.push_back(index);
    }
    for (const auto index : shared) feed_.entries[index].link = std::move(recordings_[index]);
}

ParsedFeed FeedSaxHandler::finish() && {
    feed_.title = cleanHeadline(feed_.title);
    separateRecordings();
    return std::move(feed_);
}

}  // namespace kit
