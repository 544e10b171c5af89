#include <algorithm>
#include <string>
#include <unordered_map>

#include "NewsroomKit/Court/DocketForms.h"
#include "NewsroomKit/Court/EntryKinds.h"
#include "NewsroomKit/Feeds/FeedDates.h"
#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Feeds/TagAttribute.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// What an item's description says: "[Order on Motion] (<a href='…'>2</a>)", in some courts after
/// words about the case.
struct EventText {
    std::string name;
    std::optional<std::string> number{};
    std::optional<std::string> documentLink{};
};

/// Courts escape the anchor once or twice.
std::string unescapedDescription(std::string_view description) {
    std::string text(description);
    if (text.find("<a ") == std::string::npos && text.find("&lt;a ") != std::string::npos) {
        text = decodedEntities(text);
    }
    return text;
}

EventText readEvent(std::string_view description) {
    const auto text = unescapedDescription(description);
    const std::string_view whole(text);
    const auto anchor = whole.find("<a ");
    auto name = whole.substr(0, anchor);
    const auto begin = name.find('[');
    const auto end = name.rfind(']');
    if (begin < end && end != std::string_view::npos) {
        name = name.substr(begin + 1, end - begin - 1);
    } else {
        name = name.substr(0, name.rfind('('));
    }
    EventText event{.name = courtName(name).value_or("")};
    if (anchor == std::string_view::npos) return event;
    const auto tagEnd = whole.find('>', anchor);
    if (tagEnd == std::string_view::npos) return event;
    const auto tag = whole.substr(anchor + 1, tagEnd - anchor - 1);
    event.documentLink = webLink(decodedEntities(tagAttribute(tag, "href")));
    const auto words = whole.substr(tagEnd + 1, whole.find('<', tagEnd) - tagEnd - 1);
    const auto number = trimWhitespaceAndNewlines(words);
    // Some courts write "Document" there.
    if (!number.empty() && isASCIIDigit(number.front())) event.number = std::string(number);
    return event;
}

std::string withoutWhitespace(std::string_view text) {
    std::string kept;
    std::ranges::copy_if(text, std::back_inserter(kept),
                         [](char c) { return c != ' ' && (c < '\t' || c > '\r'); });
    return kept;
}

std::string itemKey(const XMLElement& item, const EventText& event) {
    auto key = withoutWhitespace(item.childText("guid"));
    if (!key.empty()) return key;
    key = withoutWhitespace(item.childText("link"));
    return key + "|" + event.number.value_or("") + "|" + event.name;
}

DocketEntry readItem(const XMLElement& item, const std::optional<std::string>& court) {
    auto event = readEvent(item.childText("description"));
    DocketEntry entry{.key = itemKey(item, event)};
    const auto title = item.childText("title");
    const auto number = title.substr(0, title.find_first_of(" \t\r\n"));
    entry.caseNumber = courtName(number);
    entry.caseName = courtName(title.substr(number.size()));
    entry.link = webLink(item.childText("link"));
    const auto own = courtOfDocument(entry.link.value_or(entry.key));
    entry.court = own ? own : court;
    entry.number = std::move(event.number);
    entry.kind = event.name;
    entry.text = std::move(event.name);
    entry.weight = docketWeight(entry.kind);
    entry.date = parseFeedDate(item.childText("pubDate"));
    entry.documentLink = std::move(event.documentLink);
    if (entry.documentLink) entry.paid = true;
    return entry;
}

/// One filing with several events comes as several items. The weightiest event gives the kind.
void addEvent(DocketEntry& entry, const DocketEntry& event) {
    if (event.text != entry.text) entry.text += " and " + event.text;
    if (!entry.number) entry.number = event.number;
    if (!entry.documentLink) {
        entry.documentLink = event.documentLink;
        entry.paid = event.paid;
    }
    if (entry.weight == DocketWeight::matters || event.weight == DocketWeight::routine) return;
    entry.kind = event.kind;
    entry.weight = event.weight;
}

bool carriesAllTypes(std::string_view scope) {
    constexpr std::string_view mark = "type: all";
    const auto lower = lowercasedASCII(scope);
    return std::string_view(lower).ends_with(mark);
}

}  // namespace

DocketSheet courtFeedSheet(const FeedTree& feed) {
    DocketSheet sheet;
    sheet.scope = courtName(feed.channel.childText("description"));
    sheet.partial = !carriesAllTypes(sheet.scope.value_or("")) || feed.reachedLimit;
    sheet.built = parseFeedDate(feed.channel.childText("lastBuildDate"));
    if (!sheet.built) sheet.built = parseFeedDate(feed.channel.childText("pubDate"));
    const auto court = courtOfDocument(pageLink(feed.channel));
    std::unordered_map<std::string, std::size_t> places;
    for (const auto& item : feed.items) {
        auto entry = readItem(item, court);
        const auto [place, isNew] = places.emplace(entry.key, sheet.entries.size());
        if (isNew) {
            sheet.entries.push_back(std::move(entry));
        } else {
            addEvent(sheet.entries[place->second], entry);
        }
    }
    return sheet;
}

}  // namespace kit
