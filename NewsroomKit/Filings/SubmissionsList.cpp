#include <algorithm>

#include "NewsroomKit/Filings/FilingForms.h"
#include "NewsroomKit/Records/RecordError.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// A column of the list; its rows are texts, empty where there is no value.
class Column {
public:
    Column(const json::object& table, std::string_view name) : name_(name) {
        const auto* const value = table.if_contains(name);
        rows_ = value == nullptr ? nullptr : value->if_array();
    }

    bool exists() const { return rows_ != nullptr; }
    std::size_t size() const { return rows_->size(); }

    /// Columns come and go over the years; the text of one that is missing is empty.
    std::string_view operator[](std::size_t row) const {
        if (rows_ == nullptr) return {};
        const auto* const text = (*rows_)[row].if_string();
        return text == nullptr ? std::string_view() : std::string_view(*text);
    }

    void requireRows(std::size_t count) const {
        if (rows_ != nullptr && rows_->size() != count) {
            throw RecordError(std::string(name_), "the list has another length than the others");
        }
    }

private:
    std::string_view name_;
    const json::array* rows_ = nullptr;
};

struct Columns {
    explicit Columns(const json::object& table)
        : accession(table, "accessionNumber"),
          form(table, "form"),
          filed(table, "filingDate"),
          period(table, "reportDate"),
          accepted(table, "acceptanceDateTime"),
          items(table, "items"),
          document(table, "primaryDocument") {
        if (!accession.exists()) return;
        for (const auto* column : {&form, &filed, &period, &accepted, &items, &document}) {
            column->requireRows(accession.size());
        }
    }

    Column accession, form, filed, period, accepted, items, document;
};

std::vector<std::string> itemList(std::string_view text) {
    std::vector<std::string> items;
    while (!text.empty()) {
        const auto item = text.substr(0, text.find(','));
        text.remove_prefix(std::min(item.size() + 1, text.size()));
        if (const auto code = trimWhitespaceAndNewlines(item); !code.empty()) {
            items.emplace_back(code);
        }
    }
    return items;
}

/// "xslF345X06/form4.xml" is a page made of "form4.xml", which itself lies a folder higher.
std::string_view withoutStyleFolder(std::string_view document) {
    const auto slash = document.find('/');
    return document.starts_with("xsl") && slash != std::string_view::npos
               ? document.substr(slash + 1)
               : document;
}

Filing filingAt(const Columns& columns, std::size_t row, const std::optional<FilingParty>& filer) {
    Filing filing;
    filing.accession = columns.accession[row];
    filing.form = columns.form[row];
    filing.filed = formDay(columns.filed[row]).value_or("");
    filing.period = formDay(columns.period[row]);
    filing.accepted = parseISO8601(columns.accepted[row]);
    filing.items = itemList(columns.items[row]);
    if (const auto document = withoutStyleFolder(columns.document[row]); !document.empty()) {
        filing.primaryDocument = document;
    }
    if (filing.accepted && (!filer || filer->cik != appleCIK)) filing.acceptedDoubtful = true;
    if (filer) {
        filing.parties = {*filer};
        filing.indexURL = indexAddress(filer->cik, filing.accession);
        if (filing.primaryDocument) {
            filing.documentURL =
                documentAddress(filer->cik, filing.accession, *filing.primaryDocument);
        }
    }
    return filing;
}

std::optional<FilingParty> filerOf(const json::object& answer) {
    const auto* const cik = answer.if_contains("cik");
    const auto* const name = answer.if_contains("name");
    if (cik == nullptr) return std::nullopt;
    const auto number = cik->is_int64()    ? std::optional(cik->get_int64())
                        : cik->is_string() ? cikFrom(std::string_view(cik->get_string()))
                                           : std::nullopt;
    if (!number) return std::nullopt;
    FilingParty party{.cik = *number};
    if (name != nullptr && name->is_string()) party.name = std::string(name->get_string());
    return party;
}

const json::object* objectUnder(const json::object& object, std::string_view key) {
    const auto* const value = object.if_contains(key);
    return value == nullptr ? nullptr : value->if_object();
}

}  // namespace

std::optional<std::vector<Filing>> submissionsFilings(const json::object& answer) {
    const auto* const lists = objectUnder(answer, "filings");
    const auto* const recent = lists == nullptr ? nullptr : objectUnder(*lists, "recent");
    const Columns columns(recent == nullptr ? answer : *recent);
    if (!columns.accession.exists()) return std::nullopt;
    const auto filer = filerOf(answer);
    std::vector<Filing> filings;
    filings.reserve(columns.accession.size());
    for (std::size_t row = 0; row < columns.accession.size(); ++row) {
        if (!isAccessionNumber(columns.accession[row])) continue;
        filings.push_back(filingAt(columns, row, filer));
    }
    return filings;
}

}  // namespace kit
