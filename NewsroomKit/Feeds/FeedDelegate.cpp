#include "NewsroomKit/Feeds/FeedDelegate.h"

#include <utility>

#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Feeds/MarkupWriter.h"
#include "NewsroomKit/Text/Unicode.h"

namespace newsroom {
namespace {

bool holdsHTML(ElementRole role) {
    return role == ElementRole::title || role == ElementRole::summary ||
           role == ElementRole::content || role == ElementRole::mediaDescription;
}

bool declaresXHTML(const XMLAttributes& attributes) {
    const auto type = attributes.value("type");
    return type == "xhtml" || type == "application/xhtml+xml";
}

std::string_view view(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

}  // namespace

void FeedDelegate::startElement(const xmlChar* localName, const xmlChar* prefix,
                                const xmlChar* uri, const XMLAttributes& attributes) {
    if (isCapturingMarkup()) {
        open_.push_back(ElementRole::none);
        if (!isWrapper(view(localName))) appendStartTag(view(localName), attributes, text_);
        return;
    }
    const auto parent = open_.empty() ? ElementRole::none : open_.back();
    const auto role = names_.role(localName, prefix, uri);
    open_.push_back(role);
    if (mutedDepth_ > 0) return;
    if (entryDepth_ > 0) {
        startInEntry(role, parent, attributes);
    } else {
        startOutside(role, parent, attributes);
    }
}

void FeedDelegate::startOutside(ElementRole role, ElementRole parent,
                                const XMLAttributes& attributes) {
    switch (role) {
        case ElementRole::feed:
        case ElementRole::atomFeed:
            sawFeedElement_ = true;
            break;
        case ElementRole::entry:
            entryDepth_ = open_.size();
            draft_ = {};
            break;
        case ElementRole::title:
            if (parent == ElementRole::channel || parent == ElementRole::atomFeed) {
                beginText(role, attributes);
            }
            break;
        default:
            break;
    }
}

void FeedDelegate::startInEntry(ElementRole role, ElementRole parent,
                                const XMLAttributes& attributes) {
    // An Atom source describes another feed, with a title, link and dates of its own.
    if (parent == ElementRole::publisher) {
        mutedDepth_ = open_.size();
        return;
    }
    switch (role) {
        case ElementRole::entry:
        case ElementRole::image:
            mutedDepth_ = open_.size();
            break;
        case ElementRole::title:
            if (parent != ElementRole::mediaGroup) beginText(role, attributes);
            break;
        case ElementRole::authorName:
            if (parent == ElementRole::author) beginText(role, attributes);
            break;
        case ElementRole::link:
            draft_.takeLink(attributes);
            beginText(role, attributes);
            break;
        case ElementRole::enclosure:
            draft_.takeEnclosure(attributes.value("url"), attributes.value("type"));
            break;
        case ElementRole::mediaContent:
            draft_.images.offerMediaContent(attributes);
            break;
        case ElementRole::mediaThumbnail:
            draft_.images.offerMediaThumbnail(attributes);
            break;
        case ElementRole::podcastImage:
            draft_.images.offerPodcastImage(attributes.value("href"));
            break;
        case ElementRole::videoID:
            draft_.hasVideoID = true;
            break;
        default:
            if (field(role) != nullptr) beginText(role, attributes);
            break;
    }
}

void FeedDelegate::beginText(ElementRole role, const XMLAttributes& attributes) {
    textDepth_ = open_.size();
    textRole_ = role;
    text_.clear();
    markup_ = Markup::none;
    if (holdsHTML(role)) markup_ = declaresXHTML(attributes) ? Markup::declared : Markup::stray;
}

void FeedDelegate::text(std::string_view characters) {
    if (textDepth_ == 0 || mutedDepth_ > 0) return;
    const bool inMarkup = open_.size() > textDepth_;
    if (markup_ == Markup::declared || (markup_ == Markup::stray && inMarkup)) {
        appendEscapedText(characters, text_);
    } else if (!inMarkup) {
        text_.append(characters);
    }
}

void FeedDelegate::endElement(const xmlChar* localName) {
    const auto depth = open_.size();
    if (depth == mutedDepth_) {
        mutedDepth_ = 0;
    } else if (depth == textDepth_) {
        finishText();
    } else if (isCapturingMarkup() && !isWrapper(view(localName))) {
        appendEndTag(view(localName), text_);
    }
    if (depth == entryDepth_) finishEntry();
    open_.pop_back();
}

/// The one div that must enclose declared XHTML is not part of the text.
bool FeedDelegate::isWrapper(std::string_view localName) const {
    return markup_ == Markup::declared && open_.size() == textDepth_ + 1 && localName == "div";
}

std::string* FeedDelegate::field(ElementRole role) {
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
        default: return nullptr;
    }
}

void FeedDelegate::finishText() {
    textDepth_ = 0;
    auto* const target = field(textRole_);
    if (target == nullptr || !target->empty()) return;
    const auto trimmed = trimWhitespaceAndNewlines(text_);
    if (trimmed.size() == text_.size()) {
        *target = std::move(text_);
        text_.clear();
    } else {
        *target = trimmed;
    }
}

void FeedDelegate::finishEntry() {
    entryDepth_ = 0;
    textDepth_ = 0;
    feed_.entries.push_back(std::move(draft_).finish());
    feed_.reachedLimit = feed_.entries.size() == feedEntryLimit;
}

ParsedFeed FeedDelegate::takeFeed() && {
    feed_.title = cleanHeadline(feed_.title);
    return std::move(feed_);
}

}  // namespace newsroom
