#include <algorithm>
#include <chrono>

#include "NewsroomKit/Court/DocketForms.h"
#include "NewsroomKit/Feeds/FeedDates.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// The feed gives an entry's day as midnight in California.
bool isDayAlone(Instant instant) {
    using std::chrono::hours;
    const auto time = instant - std::chrono::floor<std::chrono::days>(instant);
    return time == hours(0) || time == hours(7) || time == hours(8);
}

bool looksLikeDocketNumber(std::string_view text) {
    return std::ranges::any_of(text, isASCIIDigit) &&
           std::ranges::none_of(text, [](char c) { return c == ' '; });
}

/// "Entry #140 in Example Inc. v. Sample, 4:20-cv-05640", or "Minute entry from 2026-11-20 in …".
void readFeedTitle(std::string_view title, DocketEntry& entry) {
    constexpr std::string_view numbered = "Entry #";
    if (title.starts_with(numbered)) {
        const auto digits = title.substr(numbered.size());
        entry.number = std::string(digits.substr(0, digits.find(' ')));
    }
    const auto in = title.find(" in ");
    auto name = in == std::string_view::npos ? title : title.substr(in + 4);
    if (const auto comma = name.rfind(", "); comma != std::string_view::npos) {
        const auto number = trimWhitespaceAndNewlines(name.substr(comma + 2));
        if (looksLikeDocketNumber(number)) {
            entry.caseNumber = std::string(number);
            name = name.substr(0, comma);
        }
    }
    entry.caseName = courtName(name);
}

std::string_view enclosure(const XMLElement& entry) {
    const auto link = std::ranges::find_if(entry.children, [](const XMLElement& child) {
        return child.name == "link" && child.attribute("rel") == "enclosure";
    });
    return link == entry.children.end() ? std::string_view() : link->attribute("href");
}

DocketEntry readFeedEntry(const XMLElement& item) {
    DocketEntry entry;
    const auto id = item.childText("id");
    const auto link = pageLink(item);
    entry.key = std::string(id.empty() ? link : id);
    entry.link = webLink(link);
    readFeedTitle(item.childText("title"), entry);
    setWords(entry, cleanHeadline(item.childText("summary")));
    const auto published = item.childText("published");
    entry.date = parseFeedDate(published.empty() ? item.childText("updated") : published);
    entry.dayOnly = entry.date && isDayAlone(*entry.date);
    entry.documentLink = webLink(enclosure(item));
    if (entry.documentLink) {
        entry.court = courtOfDocument(*entry.documentLink);
        entry.paid = entry.documentLink->find(".uscourts.gov/") != std::string::npos;
    }
    return entry;
}

}  // namespace

DocketSheet courtListenerSheet(const FeedTree& feed) {
    DocketSheet sheet;
    sheet.scope = courtName(feed.channel.childText("subtitle"));
    sheet.partial = feed.reachedLimit;
    sheet.built = parseFeedDate(feed.channel.childText("updated"));
    std::optional<std::string> court;
    for (const auto& item : feed.items) {
        sheet.entries.push_back(readFeedEntry(item));
        if (!court) court = sheet.entries.back().court;
    }
    // Entries without a document are of the same docket.
    for (auto& entry : sheet.entries) {
        if (!entry.court) entry.court = court;
    }
    return sheet;
}

}  // namespace kit
