#include "Tarnwick_Brell/Storage/Tables/SourceID.h"

#include <cstddef>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/StoryIdentity.h"

namespace app {

namespace {

constexpr std::size_t kLongestHost = 48;
constexpr std::size_t kHashDigits = 8;

/// "www.own.example" becomes "own-example". A host in another script is written in ASCII already.
std::string hostWords(std::string_view host) {
    constexpr std::string_view usual = "www.";
    if (host.starts_with(usual)) host.remove_prefix(usual.size());
    std::string words;
    for (const char c : host.substr(0, kLongestHost)) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        if (plain) {
            words += c;
        } else if (!words.empty() && words.back() != '-') {
            words += '-';
        }
    }
    if (words.empty()) return "source-";
    return words.ends_with('-') ? words : words + '-';
}

std::string hashDigits(std::string_view text) {
    // Without leading zeros.
    auto digits = kit::storyID(text);
    digits.insert(0, kHashDigits, '0');
    return digits.substr(digits.size() - kHashDigits);
}

}  // namespace

std::string sourceIDFor(std::string_view feedURL,
                        const std::function<bool(const std::string& id)>& isTaken) {
    auto hashed = kit::canonicalLink(feedURL);
    const auto address = kit::WebAddress::parse(hashed);
    const auto words = hostWords(address ? address->host : "");
    for (;; hashed += '|') {
        auto id = words + hashDigits(hashed);
        if (!isTaken(id)) return id;
    }
}

}  // namespace app
