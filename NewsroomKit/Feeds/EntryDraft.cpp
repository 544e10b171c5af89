#include "NewsroomKit/Feeds/EntryDraft.h"

#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Feeds/FeedDates.h"
#include "NewsroomKit/Feeds/FirstPicture.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Text/Unicode.h"

namespace newsroom {
namespace {

/// Whether "youtu" may be part of the address. Taking one apart costs far more than this look.
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

std::optional<std::string> chosenImage(const EntryImages& offered, const FeedEntry& entry) {
    if (!offered.best().empty()) return offered.best();
    if (auto picture = firstPicture(entry.contentHTML)) return picture;
    return firstPicture(entry.summaryHTML);
}

}  // namespace

void EntryDraft::takeLink(const XMLAttributes& attributes) {
    const auto address = trimWhitespaceAndNewlines(attributes.value("href"));
    if (address.empty()) return;
    const auto relation = lowercasedASCII(attributes.value("rel"));
    const auto type = attributes.value("type");
    const bool isPage = type.empty() || type.starts_with("text/html");
    const bool isAlternate = relation.empty() || relation == "alternate";
    if (relation == "enclosure") takeEnclosure(address, type);

    auto& target = isAlternate && isPage ? link : atomLink;
    if (target.empty()) target = address;
}

void EntryDraft::takeEnclosure(std::string_view address, std::string_view type) {
    if (type.empty()) {
        if (isImageAddress(address)) images.offerEnclosure(address);
        if (isAudioAddress(address)) hasAudio = true;
        return;
    }
    if (type.starts_with("image/")) images.offerEnclosure(address);
    if (type.starts_with("audio")) hasAudio = true;
}

FeedEntry EntryDraft::finish() && {
    FeedEntry entry;
    entry.guid = std::move(guid);
    entry.title = std::move(title);
    entry.link = link.empty() ? std::move(atomLink) : std::move(link);
    entry.summaryHTML = std::move(summary);
    entry.contentHTML = std::move(content);
    if (entry.summaryHTML.empty() && entry.contentHTML.empty()) {
        entry.summaryHTML = std::move(mediaDescription);
    }
    entry.publishedAt = parseFeedDate(date);
    if (!entry.publishedAt) entry.publishedAt = parseFeedDate(revisionDate);
    entry.imageURL = chosenImage(images, entry);
    entry.author = optionalText(std::move(author));
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

}  // namespace newsroom
