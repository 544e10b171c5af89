#include "NewsroomKit/Feeds/EntryImages.h"

#include <array>
#include <charconv>

#include "NewsroomKit/Feeds/ImageExtractor.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::array<std::string_view, 7> imageExtensions{".jpg", ".jpeg", ".png", ".webp",
                                                          ".gif", ".avif", ".heic"};
constexpr std::array<std::string_view, 6> audioExtensions{".mp3", ".m4a",  ".aac",
                                                          ".ogg", ".opus", ".wav"};

template <std::size_t N>
bool pathEndsWithOneOf(std::string_view address, const std::array<std::string_view, N>& endings) {
    constexpr std::size_t longestEnding = 5;
    const auto path = address.substr(0, address.find_first_of("?#"));
    const auto from = path.size() > longestEnding ? path.size() - longestEnding : 0;
    const auto tail = lowercasedASCII(path.substr(from));
    for (const auto ending : endings) {
        if (tail.ends_with(ending)) return true;
    }
    return false;
}

void keepFirst(std::string& kept, std::string_view address) {
    address = trimWhitespaceAndNewlines(address);
    if (kept.empty() && isWebPicture(address)) kept = address;
}

}  // namespace

bool isImageAddress(std::string_view address) {
    return pathEndsWithOneOf(address, imageExtensions);
}

bool isAudioAddress(std::string_view address) {
    return pathEndsWithOneOf(address, audioExtensions);
}

void EntryImages::offerMediaContent(const XMLAttributes& attributes, std::string_view address) {
    const auto medium = attributes.value("medium");
    const auto type = attributes.value("type");
    const bool named = medium == "image" || type.starts_with("image/");
    const bool unnamed = medium.empty() && type.empty();
    if (named || (unnamed && isImageAddress(address))) offerMedia(attributes, address);
}

void EntryImages::offerMediaThumbnail(const XMLAttributes& attributes, std::string_view address) {
    const auto medium = attributes.value("medium");
    const auto type = attributes.value("type");
    const bool unnamed = medium.empty() && type.empty();
    if (unnamed || medium == "image" || type.starts_with("image/")) {
        offerMedia(attributes, address);
    }
}

void EntryImages::offerMedia(const XMLAttributes& attributes, std::string_view address) {
    const auto text = attributes.value("width");
    if (!isWebPicture(address) || isPixelSize(text)) return;
    if (isPixelSize(attributes.value("height"))) return;
    int width = 0;
    std::from_chars(text.data(), text.data() + text.size(), width);
    if (!media_.empty() && width <= mediaWidth_) return;
    media_ = address;
    mediaWidth_ = width;
}

void EntryImages::offerEnclosure(std::string_view address) { keepFirst(enclosure_, address); }

void EntryImages::offerPodcastImage(std::string_view address) { keepFirst(podcast_, address); }

const std::string& EntryImages::best() const {
    if (!media_.empty()) return media_;
    return enclosure_.empty() ? podcast_ : enclosure_;
}

}  // namespace kit
