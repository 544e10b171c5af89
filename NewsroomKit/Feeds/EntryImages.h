#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Feeds/XMLAttributes.h"

namespace kit {

/// What an address names by the extension of its path: "https://a.example/b.JPG?w=640".
bool isImageAddress(std::string_view address);
bool isAudioAddress(std::string_view address);

/// The pictures that an entry offers beside its text.
class EntryImages {
public:
    /// `address` is the element's "url" in full.
    void offerMediaContent(const XMLAttributes& attributes, std::string_view address);
    void offerMediaThumbnail(const XMLAttributes& attributes, std::string_view address);
    void offerEnclosure(std::string_view address);
    void offerPodcastImage(std::string_view address);

    /// media:content or media:thumbnail (the widest when they tell), then the enclosure,
    /// then the podcast's image; empty when there is none. Within each, the first one wins.
    const std::string& best() const;

private:
    void offerMedia(const XMLAttributes& attributes, std::string_view address);

    std::string media_;
    int mediaWidth_ = 0;
    std::string enclosure_;
    std::string podcast_;
};

}  // namespace kit
