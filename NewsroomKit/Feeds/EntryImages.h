#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Feeds/XMLAttributes.h"

namespace kit {

/// Whether an address names a picture by the extension of its path:
/// "https://a.example/b.JPG?w=640".
bool isImageAddress(std::string_view address);
bool isAudioAddress(std::string_view address);

/// The pictures that an entry offers outside its text.
class EntryImages {
public:
    /// `address` is the element's "url" made absolute.
    void offerMediaContent(const XMLAttributes& attributes, std::string_view address);
    void offerMediaThumbnail(const XMLAttributes& attributes, std::string_view address);
    void offerEnclosure(std::string_view address);
    void offerPodcastImage(std::string_view address);

    /// media:content or media:thumbnail (the widest if widths are given), then the enclosure, then
    /// the podcast's image; empty when there is none. Within each, the first one wins.
    const std::string& best() const;

private:
    void offerMedia(const XMLAttributes& attributes, std::string_view address);

    std::string media_;
    int mediaWidth_ = 0;
    std::string enclosure_;
    std::string podcast_;
};

}  // namespace kit
