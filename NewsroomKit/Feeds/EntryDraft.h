#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Feeds/EntryImages.h"
#include "NewsroomKit/Feeds/FeedEntry.h"
#include "NewsroomKit/Feeds/XMLAttributes.h"

namespace newsroom {

/// An entry while its elements arrive. Texts are raw; where several elements fill one field,
/// the first that is not empty stays.
struct EntryDraft {
    std::string title;
    std::string link;
    std::string atomLink;  ///< a link that is no alternate, for when there is none
    std::string summary;
    std::string content;
    std::string date;
    std::string revisionDate;
    std::string guid;
    std::string author;
    std::string publisher;
    std::string mediaDescription;
    EntryImages images;
    bool hasAudio = false;
    bool hasVideoID = false;

    void takeLink(const XMLAttributes& attributes);
    void takeEnclosure(std::string_view address, std::string_view type);

    /// The finished entry; the draft is used up.
    FeedEntry finish() &&;
};

}  // namespace newsroom
