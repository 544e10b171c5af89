#include <unordered_map>

#include <fmt/format.h>

#include "NewsroomKit/Court/DocketForms.h"

namespace kit {
namespace {

void addDocument(DocketEntry& entry, const XMLElement& document, std::string_view archive) {
    const auto court = entry.court.value_or("");
    const auto id = document.childText("pacer_doc_id");
    if (document.childText("available") == "1" && !archive.empty()) {
        entry.documentLink =
            fmt::format("https://archive.org/download/{0}/{0}.{1}.{2}.pdf", archive,
                        document.attribute("doc_num"), document.attribute("attachment_num"));
        entry.paid = false;
    } else if (!entry.documentLink && !id.empty() && !court.empty()) {
        entry.documentLink = pacerLink(court, id);
        entry.paid = true;
    }
}

}  // namespace

DocketSheet archivedSheet(const XMLElement& docket) {
    DocketSheet sheet;
    const auto* const details = docket.child("case_details");
    const auto* const documents = docket.child("document_list");
    if (details == nullptr || documents == nullptr) return sheet;
    const auto court = details->childText("court");
    const auto caseID = details->childText("pacer_case_num");
    const auto archive = fmt::format("gov.uscourts.{}.{}", court, caseID);
    std::unordered_map<std::string, std::size_t> places;
    for (const auto& document : documents->children) {
        if (document.name != "document") continue;
        const std::string number(document.attribute("doc_num"));
        const auto [place, isNew] = places.emplace(number, sheet.entries.size());
        if (isNew) {
            auto& entry = sheet.entries.emplace_back();
            entry.key = archive + "/" + number;
            entry.court = courtName(court);
            entry.caseNumber = courtName(details->childText("docket_num"));
            entry.caseName = courtName(details->childText("case_name"));
            if (!number.empty()) entry.number = number;
            setWords(entry, document.childText("long_desc"), document.childText("short_desc"));
            entry.date = docketDay(document.childText("date_filed"));
            entry.dayOnly = entry.date.has_value();
        }
        // Attachments belong to the entry of their main document.
        if (isNew || document.attribute("attachment_num") == "0") {
            addDocument(sheet.entries[place->second], document, archive);
        }
    }
    return sheet;
}

}  // namespace kit
