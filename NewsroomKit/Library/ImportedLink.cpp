#include "NewsroomKit/Library/ImportedLink.h"

#include <algorithm>
#include <charconv>

#include "NewsroomKit/Feeds/FeedDates.h"
#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr double kLeastThousandths = 1e11;  // as seconds, the year 5138
constexpr double kLeastMillionths = 1e14;
constexpr std::size_t kMostTags = 100;
constexpr std::size_t kLongestTag = 100;

std::optional<Instant> instantOfNumber(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    // Some programs write 0 for "not known".
    if (error != std::errc() || end != text.data() + text.size() || !(number > 0))
        return std::nullopt;
    if (number >= kLeastMillionths) return instantFromSeconds(number / 1e6);
    if (number >= kLeastThousandths) return instantFromSeconds(number / 1e3);
    return instantFromSeconds(number);
}

}  // namespace

void readAddedAt(std::string_view text, ImportedLink& link) {
    text = trimWhitespaceAndNewlines(text);
    if (text.empty() || text == "0") return;
    link.addedAt = instantOfNumber(text);
    if (!link.addedAt) link.addedAt = parseFeedDate(text);
    link.hasUnreadableDate = !link.addedAt;
}

void appendTags(std::string_view list, char separator, std::vector<std::string>& tags) {
    while (!list.empty() && tags.size() < kMostTags) {
        const auto end = std::min(list.find(separator), list.size());
        const auto tag = singleLine(list.substr(0, end));
        if (!tag.empty()) tags.emplace_back(firstCharacters(tag, kLongestTag));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
}

}  // namespace kit
