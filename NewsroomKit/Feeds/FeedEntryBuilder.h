#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Feeds/AddressBase.h"
#include "NewsroomKit/Feeds/EntryImages.h"
#include "NewsroomKit/Feeds/FeedEntry.h"
#include "NewsroomKit/Feeds/XMLAttributes.h"

namespace kit {

/// An entry while its elements arrive. Texts are raw, addresses absolute; when several elements
/// fill one field, the first non-empty one counts.
struct FeedEntryBuilder {
    enum class Permalink { unsaid, yes, no };

    std::string title;
    std::string link;
    std::string atomLink;  ///< a link that is not an alternate; the fallback
    std::string summary;
    std::string content;
    std::string date;
    std::string revisionDate;
    std::string guid;
    Permalink permalink = Permalink::unsaid;  ///< whether the guid is an address
    std::string author;
    std::string publisher;
    std::string mediaDescription;
    std::string htmlBase;  ///< xml:base of the summary or content, empty when there is none
    std::string podcastAuthor;
    std::string podcastSummary;
    EntryImages images;
    std::string recording;  ///< address of the first audio or video enclosure
    bool hasAudio = false;
    bool hasVideoID = false;

    void addLink(const XMLAttributes& attributes, std::string_view address);
    void addEnclosure(std::string_view address, std::string_view type);

    /// The finished entry. `xmlBase` is the entry's own.
    FeedEntry finish(AddressBase& base, std::string_view xmlBase) &&;
};

}  // namespace kit
