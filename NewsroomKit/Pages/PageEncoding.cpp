#include "NewsroomKit/Pages/PageEncoding.h"

#include "NewsroomKit/Feeds/FeedEncoding.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// Where browsers look for it. Pages put it late, behind scripts of their head.
constexpr std::size_t longestHeadForCharset = 16'384;

/// The value of charset=…, in lower case: of a header, or of the first tag of a page that has one.
std::string charsetIn(std::string_view text) {
    constexpr std::string_view key = "charset";
    for (std::size_t at = 0; at + key.size() < text.size(); ++at) {
        if (lowercaseASCII(text[at]) != 'c' || !standsAt(text, at, key)) continue;
        auto rest = trimWhitespaceAndNewlines(text.substr(at + key.size()));
        if (!rest.starts_with('=')) continue;
        rest = trimWhitespaceAndNewlines(rest.substr(1));
        const auto begin = rest.find_first_not_of("\"' ");
        if (begin == std::string_view::npos) return {};
        rest = rest.substr(begin);
        return lowercasedASCII(rest.substr(0, rest.find_first_of("\"'; />\r\n\t")));
    }
    return {};
}

}  // namespace

std::string_view pageInUTF8(std::string_view bytes, std::string_view contentType,
                            std::string& storage) {
    if (isValidUTF8(bytes)) return labelledInUTF8(bytes, {}, storage);
    auto label = charsetIn(contentType);
    if (label.empty()) label = charsetIn(bytes.substr(0, longestHeadForCharset));
    return labelledInUTF8(bytes, label, storage);
}

}  // namespace kit
