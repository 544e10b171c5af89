#include "NewsroomKit/Feeds/FirstPicture.h"

#include <algorithm>

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Text/ASCII.h"

namespace newsroom {
namespace {

constexpr auto none = std::string_view::npos;

/// The matches of <img[^>]+src=["']([^"']+)["'] in order, found in one pass: hostile HTML
/// would keep a backtracking matcher busy for hours.
class PictureScanner {
public:
    explicit PictureScanner(std::string_view html) : html_(html) {}

    /// The address of the next match, still encoded.
    std::optional<std::string_view> next() {
        while (at_ < html_.size()) {
            const auto tag = html_.find('<', at_);
            if (tag == none) break;
            at_ = tag + 1;
            if (!standsAt(html_, tag, "<img")) continue;
            const auto nameEnd = tag + 4;
            const auto tagEnd = std::min(html_.find('>', nameEnd), html_.size());
            if (const auto address = lastSource(nameEnd + 1, tagEnd)) return address;
            // Every later "<img" before this ">" has only the same sources to offer.
            at_ = tagEnd;
        }
        at_ = html_.size();
        return std::nullopt;
    }

private:
    /// The expression is greedy: of several sources in a tag it takes the last that has an
    /// address, and the address may run past the tag's end up to the next quotation mark.
    std::optional<std::string_view> lastSource(std::size_t first, std::size_t tagEnd) {
        constexpr std::string_view attribute = "src=";
        for (auto at = tagEnd; at > first;) {
            --at;
            const auto quote = at + attribute.size();
            if (quote >= tagEnd || !standsAt(html_, at, attribute)) continue;
            if (html_[quote] != '"' && html_[quote] != '\'') continue;
            const auto end = html_.find_first_of("\"'", quote + 1);
            if (end == none || end == quote + 1) continue;
            at_ = end + 1;
            return html_.substr(quote + 1, end - quote - 1);
        }
        return std::nullopt;
    }

    std::string_view html_;
    std::size_t at_ = 0;
};

}  // namespace

bool isWebPicture(std::string_view address) {
    return address.starts_with("http") && address.find("/emoji/") == none;
}

std::optional<std::string> firstPicture(std::string_view html, AddressBase& base,
                                        std::string_view xmlBase) {
    PictureScanner scanner(html);
    while (const auto encoded = scanner.next()) {
        auto address = base.completed(decodedEntities(*encoded), xmlBase);
        if (isWebPicture(address) && address.find("pixel") == none) return address;
    }
    return std::nullopt;
}

}  // namespace newsroom
