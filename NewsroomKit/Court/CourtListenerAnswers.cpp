#include <string>
#include <unordered_map>

#include <fmt/format.h>

#include "NewsroomKit/Court/DocketForms.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// The value of a key as text; empty when it is neither text nor a number.
std::string textAt(const json::object& object, std::string_view key) {
    const auto* const value = object.if_contains(key);
    if (value == nullptr) return {};
    if (value->is_string()) {
        return std::string(trimWhitespaceAndNewlines(std::string_view(value->get_string())));
    }
    return value->is_number() ? json::serialize(*value) : std::string();
}

bool isTrue(const json::object& object, std::string_view key) {
    const auto* const value = object.if_contains(key);
    return value != nullptr && value->is_bool() && value->get_bool();
}

const json::object* objectAt(const json::object& object, std::string_view key) {
    const auto* const value = object.if_contains(key);
    return value == nullptr ? nullptr : value->if_object();
}

/// Calls `read` with each object in the list under a key; false when there is no such list.
template <class Read>
bool forEachObject(const json::object& object, std::string_view key, Read read) {
    const auto* const value = object.if_contains(key);
    const auto* const list = value == nullptr ? nullptr : value->if_array();
    if (list == nullptr) return false;
    for (const auto& item : *list) {
        if (const auto* const inner = item.if_object()) read(*inner);
    }
    return true;
}

/// The page of a docket with the entry's place in it, as the docket's feed links it.
std::string entryLink(std::string_view docketPath, const std::string& number,
                      const std::string& entryID) {
    const auto anchor = number.empty() ? "minute-entry-" + entryID : "entry-" + number;
    return fmt::format("{}{}?order_by=desc#{}", courtListenerSite, docketPath, anchor);
}

/// "/docket/4214664/140/1/some-name/" is a document's page of the docket
/// "/docket/4214664/some-name/".
std::string docketPath(std::string_view documentPath) {
    if (documentPath.ends_with('/')) documentPath.remove_suffix(1);
    const auto slug = documentPath.substr(documentPath.rfind('/') + 1);
    constexpr std::string_view root = "/docket/";
    if (!documentPath.starts_with(root)) return {};
    const auto id =
        documentPath.substr(root.size(), documentPath.find('/', root.size()) - root.size());
    return fmt::format("{}{}/{}/", root, id, slug);
}

void addDocument(DocketEntry& entry, const json::object& document) {
    const auto path = textAt(document, "filepath_local");
    if (!entry.court) entry.court = courtOfDocument(path);
    const auto attachment = textAt(document, "attachment_number");
    const bool isMain = attachment.empty();
    if (isTrue(document, "is_available") && !path.empty()) {
        if (entry.paid != false || isMain) {
            entry.documentLink = "https://storage.courtlistener.com/" + path;
            entry.paid = false;
        }
        return;
    }
    const auto id = textAt(document, "pacer_doc_id");
    if (entry.documentLink || id.empty() || !entry.court) return;
    entry.documentLink = pacerLink(*entry.court, id);
    entry.paid = true;
}

CourtCase readCase(const json::object& result) {
    CourtCase found{.court = textAt(result, "court_id"),
                    .courtName = textAt(result, "court"),
                    .number = textAt(result, "docketNumber"),
                    .name = courtName(textAt(result, "caseName")).value_or(""),
                    .filed = docketDay(textAt(result, "dateFiled")),
                    .terminated = docketDay(textAt(result, "dateTerminated")),
                    .cause = textAt(result, "cause"),
                    .nature = textAt(result, "suitNature"),
                    .judge = textAt(result, "assignedTo")};
    const auto* const docket = result.if_contains("docket_id");
    if (docket != nullptr && docket->is_int64()) found.docket = docket->get_int64();
    if (const auto path = textAt(result, "docket_absolute_url"); path.starts_with('/')) {
        found.link = std::string(courtListenerSite) + path;
    }
    const auto* const parties = result.if_contains("party");
    if (parties == nullptr || !parties->is_array()) return found;
    for (const auto& party : parties->get_array()) {
        if (party.is_string()) found.parties.emplace_back(party.get_string());
    }
    return found;
}

/// A case of a search with up to three of its documents. Documents of one entry are merged.
void readSearchResult(const json::object& result, DocketSheet& sheet) {
    auto found = readCase(result);
    const auto first = sheet.entries.size();
    std::unordered_map<std::string, std::size_t> places;
    forEachObject(result, "recap_documents", [&](const json::object& document) {
        const auto number = textAt(document, "entry_number");
        const auto id = textAt(document, "docket_entry_id");
        const auto link = entryLink(textAt(result, "docket_absolute_url"), number, id);
        const auto [place, isNew] = places.emplace(link, sheet.entries.size());
        if (isNew) {
            auto& entry = sheet.entries.emplace_back();
            entry.key = link;
            entry.link = link;
            entry.court = courtName(found.court);
            entry.caseNumber = courtName(found.number);
            entry.caseName = courtName(found.name);
            if (!number.empty()) entry.number = number;
            const bool isAttachment = !textAt(document, "attachment_number").empty();
            setWords(entry, textAt(document, "description"),
                     isAttachment ? std::string() : textAt(document, "short_description"));
            entry.date = docketDay(textAt(document, "entry_date_filed"));
            entry.dayOnly = entry.date.has_value();
        }
        addDocument(sheet.entries[place->second], document);
    });
    const auto* const meta = objectAt(result, "meta");
    if (meta != nullptr && isTrue(*meta, "more_docs")) sheet.partial = true;
    if (first == sheet.entries.size() && found.docket == 0) return;
    sheet.cases.push_back(std::move(found));
}

/// An entry of the API's "docket-entries", or of a docket alert.
void readDocketEntry(const json::object& result, DocketSheet& sheet) {
    DocketEntry entry;
    const auto number = textAt(result, "entry_number");
    std::string path = fmt::format("/docket/{}/", textAt(result, "docket"));
    std::string heading;
    forEachObject(result, "recap_documents", [&](const json::object& document) {
        if (auto found = docketPath(textAt(document, "absolute_url")); !found.empty()) {
            path = std::move(found);
        }
        if (textAt(document, "attachment_number").empty())
            heading = textAt(document, "description");
        addDocument(entry, document);
    });
    entry.key = entryLink(path, number, textAt(result, "id"));
    entry.link = entry.key;
    if (!number.empty()) entry.number = number;
    setWords(entry, textAt(result, "description"), heading);
    entry.date = docketDay(textAt(result, "date_filed"));
    entry.dayOnly = entry.date.has_value();
    sheet.entries.push_back(std::move(entry));
}

/// A case of a search among opinions.
void readOpinion(const json::object& result, DocketSheet& sheet) {
    DocketEntry entry;
    entry.link = webLink(std::string(courtListenerSite) + textAt(result, "absolute_url"));
    entry.key = entry.link.value_or("");
    entry.court = courtName(textAt(result, "court_id"));
    entry.caseNumber = courtName(textAt(result, "docketNumber"));
    entry.caseName = courtName(textAt(result, "caseName"));
    setWords(entry, "Opinion");
    entry.date = docketDay(textAt(result, "dateFiled"));
    entry.dayOnly = entry.date.has_value();
    forEachObject(result, "opinions", [&](const json::object& opinion) {
        if (!entry.documentLink) entry.documentLink = webLink(textAt(opinion, "download_url"));
    });
    if (entry.documentLink) entry.paid = false;
    sheet.entries.push_back(std::move(entry));
}

}  // namespace

std::optional<DocketSheet> courtListenerSheet(const json::object& answer) {
    const auto* const payload = objectAt(answer, "payload");
    DocketSheet sheet;
    const bool hasResults =
        forEachObject(payload ? *payload : answer, "results", [&](const json::object& result) {
            if (result.contains("opinions")) {
                readOpinion(result, sheet);
            } else if (result.contains("docketNumber")) {
                readSearchResult(result, sheet);
            } else if (result.contains("docket")) {
                readDocketEntry(result, sheet);
            }
        });
    // Webhooks post other news as well: which alerts have grown old, for example.
    if (!hasResults && payload == nullptr) return std::nullopt;
    if (!textAt(answer, "next").empty()) sheet.partial = true;
    return sheet;
}

}  // namespace kit
