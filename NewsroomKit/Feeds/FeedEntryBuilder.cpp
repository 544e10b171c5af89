#include "NewsroomKit/Feeds/FeedEntryBuilder.h"

#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Feeds/AuthorAddress.h"
#include "NewsroomKit/Feeds/FeedDates.h"
#include "NewsroomKit/Feeds/ImageExtractor.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// Whether "youtu" may be part of the address. Parsing costs far more than this check.
bool mayNameVideoHost(std::string_view link) {
    for (auto at = link.find_first_of("uU"); at < link.size();
         at = link.find_first_of("uU", at + 1)) {
        if (at >= 2 && lowercasedASCII(link.substr(at - 2, 5)) == "youtu") return true;
    }
    return false;
}

bool isVideoLink(std::string_view link) {
    if (!mayNameVideoHost(link)) return false;
    const auto address = WebAddress::parse(link);
    if (!address) return false;
    if (address->host == "youtu.be") return true;
    return isHostOrSubhost(address->host, "youtube.com") &&
           (address->path == "/watch" || address->path.starts_with("/watch/") ||
            address->path.starts_with("/shorts/"));
}

std::optional<std::string> optionalText(std::string text) {
    if (text.empty()) return std::nullopt;
    return text;
}

std::optional<std::string> chosenImage(const EntryImages& offered, const FeedEntry& entry,
                                       AddressBase& base, std::string_view xmlBase) {
    if (!offered.best().empty()) return offered.best();
    if (auto picture = firstPicture(entry.contentHTML, base, xmlBase)) return picture;
    return firstPicture(entry.summaryHTML, base, xmlBase);
}

/// By default a guid is a permalink, but many guids without the attribute are mere names: those
/// count only when they look like a path.
bool isRelativePermalink(std::string_view guid, FeedEntryBuilder::Permalink permalink) {
    switch (permalink) {
        case FeedEntryBuilder::Permalink::no: return false;
        case FeedEntryBuilder::Permalink::yes: return guid.find("://") == std::string_view::npos;
        case FeedEntryBuilder::Permalink::unsaid: break;
    }
    return guid.starts_with('/') || guid.starts_with("./") || guid.starts_with("../");
}

/// An entry without a page of its own links to its recording.
bool needsRecording(const FeedEntry& entry) {
    return !isWebPage(entry.link.empty() ? entry.guid : entry.link);
}

}  // namespace

void FeedEntryBuilder::addLink(const XMLAttributes& attributes, std::string_view address) {
    if (address.empty()) return;
    const auto relation = lowercasedASCII(attributes.value("rel"));
    const auto type = attributes.value("type");
    const bool isPage = type.empty() || type.starts_with("text/html");
    const bool isAlternate = relation.empty() || relation == "alternate";
    if (relation == "enclosure") addEnclosure(address, type);

    auto& target = isAlternate && isPage ? link : atomLink;
    if (target.empty()) target = address;
}

void FeedEntryBuilder::addEnclosure(std::string_view address, std::string_view written) {
    const auto type = lowercasedASCII(trimWhitespaceAndNewlines(written));
    const bool unnamed = type.empty();
    const bool isAudio = unnamed ? isAudioAddress(address) : type.starts_with("audio");
    if (unnamed ? isImageAddress(address) : type.starts_with("image/")) {
        images.offerEnclosure(address);
    }
    if (isAudio) hasAudio = true;
    const bool isRecording = isAudio || type.starts_with("video");
    if (isRecording && recording.empty()) recording = address;
}

FeedEntry FeedEntryBuilder::finish(AddressBase& base, std::string_view xmlBase) && {
    if (isRelativePermalink(guid, permalink)) guid = base.completed(guid, xmlBase);
    if (!recording.empty() && !isWebPage(recording)) recording.clear();
    FeedEntry entry;
    entry.guid = std::move(guid);
    entry.title = std::move(title);
    entry.link = link.empty() ? std::move(atomLink) : std::move(link);
    if (!recording.empty() && needsRecording(entry)) entry.link = recording;
    entry.summaryHTML = std::move(summary);
    entry.contentHTML = std::move(content);
    if (entry.summaryHTML.empty() && entry.contentHTML.empty()) {
        entry.summaryHTML =
            mediaDescription.empty() ? std::move(podcastSummary) : std::move(mediaDescription);
    }
    entry.publishedAt = parseFeedDate(date);
    if (!entry.publishedAt) entry.publishedAt = parseFeedDate(revisionDate);
    entry.imageURL = chosenImage(images, entry, base, htmlBase.empty() ? xmlBase : htmlBase);
    // An address is not used as the author while a name is given too.
    const bool takesPodcastAuthor =
        author.empty() || (!podcastAuthor.empty() && isOnlyAddresses(author));
    entry.author = optionalText(std::move(takesPodcastAuthor ? podcastAuthor : author));
    entry.publisher = optionalText(std::move(publisher));

    if (hasVideoID || isVideoLink(entry.link)) {
        entry.medium = FeedEntry::Medium::video;
    } else if (hasAudio) {
        entry.medium = FeedEntry::Medium::audio;
    }
    // Short posts have no headline; a recording attached to one does not make it an episode.
    if (entry.title.empty()) {
        entry.title = postTitle(entry.summaryHTML.empty() ? entry.contentHTML : entry.summaryHTML);
        if (!entry.title.empty()) entry.medium = FeedEntry::Medium::post;
    }
    return entry;
}

}  // namespace kit
