#include "NewsroomKit/Panels/CountdownContent.h"

#include <algorithm>
#include <charconv>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Trackers/Events/MarkedEvents.h"

namespace kit {

namespace {

std::vector<std::string> wordsOf(const std::string& title) {
    std::vector<std::string> words(1);
    for (const char c : lowercasedASCII(title)) {
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
            words.back() += c;
        } else if (!words.back().empty()) {
            words.emplace_back();
        }
    }
    return words;
}

/// 18 for "18" and "18th", 0 for other words and for more than three digits.
int countIn(const std::string& word) {
    int number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    const std::string suffix(end, word.data() + word.size());
    const bool isSuffix =
        suffix.empty() || suffix == "st" || suffix == "nd" || suffix == "rd" || suffix == "th";
    return error == std::errc() && number < 1000 && isSuffix ? number : 0;
}

/// 18 of "App Store, 18th anniversary" and of "Anniversary: 18 years of the App Store".
int yearsIn(const std::string& title) {
    const auto words = wordsOf(title);
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const auto& unit = words[i + 1];
        if (unit != "year" && unit != "years" && unit != "anniversary") continue;
        if (const int years = countIn(words[i]); years > 0) return years;
    }
    return 0;
}

}  // namespace

CountdownRow countdownRow(const AppleCalendarEvent& event,
                          const std::function<int(Instant)>& daysUntil) {
    CountdownRow row{.title = event.title,
                     .window = event.window,
                     .isExpected = event.status == "expected",
                     .isReleased = event.isReleased(),
                     .isAnniversary = event.isAnniversary()};
    if (!event.isRumored() && event.starts > Instant()) {
        row.starts = event.starts;
        row.days = daysUntil(event.starts);
    }
    if (row.isAnniversary) row.years = yearsIn(event.title);
    return row;
}

bool canBeNext(const CountdownRow& row) {
    return row.starts && !row.isReleased && !row.isAnniversary && row.days >= 0;
}

CountdownContent countdown(const std::vector<AppleCalendarEvent>& events,
                           const std::vector<std::string>& terms,
                           const std::function<int(Instant)>& daysUntil) {
    CountdownContent content;
    for (const auto& event : namedEvents(events, terms)) {
        auto row = countdownRow(event, daysUntil);
        if (row.starts && row.days < -kDaysShownAfter) continue;
        if (!content.next && canBeNext(row)) {
            content.next = std::move(row);
        } else {
            content.others.push_back(std::move(row));
        }
    }
    return content;
}

}  // namespace kit
