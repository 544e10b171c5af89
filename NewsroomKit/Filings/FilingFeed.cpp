#include <algorithm>

#include "NewsroomKit/Filings/FilingForms.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// The number behind "accession-number=" in an entry's id, else that of the entry's own element,
/// which was misspelt for a time.
std::string accessionOf(const XMLElement& entry, const XMLElement* content) {
    constexpr std::string_view mark = "accession-number=";
    const auto id = entry.childText("id");
    if (const auto at = id.find(mark); at != std::string_view::npos) {
        const auto number = id.substr(at + mark.size());
        if (isAccessionNumber(number)) return std::string(number);
    }
    if (content == nullptr) return {};
    for (const auto name : {"accession-number", "accession-nunber"}) {
        const auto number = content->childText(name);
        if (isAccessionNumber(number)) return std::string(number);
    }
    return {};
}

/// The codes in "items 2.02 and 9.01" or "item 5".
std::vector<std::string> itemCodes(std::string_view words) {
    std::vector<std::string> codes;
    std::string code;
    for (std::size_t at = 0; at <= words.size(); ++at) {
        const char c = at < words.size() ? words[at] : ' ';
        if (isASCIIDigit(c) || (c == '.' && !code.empty())) {
            code += c;
            continue;
        }
        if (code.ends_with('.')) code.pop_back();
        if (!code.empty() && std::ranges::find(codes, code) == codes.end()) codes.push_back(code);
        code.clear();
    }
    return codes;
}

/// The codes in "…<br>Item 5.07: Submission of Matters to a Vote".
std::vector<std::string> itemsInSummary(std::string_view summary) {
    std::vector<std::string> codes;
    constexpr std::string_view mark = "Item ";
    for (auto at = summary.find(mark); at != std::string_view::npos; at = summary.find(mark, at)) {
        at += mark.size();
        const auto colon = summary.find(':', at);
        if (colon == std::string_view::npos || colon - at > 6) continue;
        const auto found = itemCodes(summary.substr(at, colon - at));
        codes.insert(codes.end(), found.begin(), found.end());
    }
    return codes;
}

/// The day in "<b>Filed:</b> 2025-12-12 …".
std::optional<std::string> filedInSummary(std::string_view summary) {
    constexpr std::string_view mark = "Filed:</b>";
    const auto at = summary.find(mark);
    return at == std::string_view::npos ? std::nullopt : formDay(summary.substr(at + mark.size()));
}

std::optional<PartyRole> roleNamed(std::string_view words) {
    for (const auto& row : enumTable<PartyRole>) {
        if (equalIgnoringCase(row.label, words)) return row.value;
    }
    return std::nullopt;
}

/// Takes the last "(…)" off a text.
std::string_view takeParenthesis(std::string_view& text) {
    text = trimWhitespaceAndNewlines(text);
    const auto open = text.rfind('(');
    if (!text.ends_with(')') || open == std::string_view::npos) return {};
    const auto inside = text.substr(open + 1, text.size() - open - 2);
    text = trimWhitespaceAndNewlines(text.substr(0, open));
    return inside;
}

/// The party in "4 - Doe Jane (0001234567) (Reporting)".
std::optional<FilingParty> partyInTitle(std::string_view title) {
    const auto role = roleNamed(takeParenthesis(title));
    const auto cik = cikFrom(takeParenthesis(title));
    const auto dash = title.find(" - ");
    if (!role || !cik || dash == std::string_view::npos) return std::nullopt;
    return FilingParty{.name = std::string(trimWhitespaceAndNewlines(title.substr(dash + 3))),
                       .cik = *cik,
                       .role = *role};
}

std::optional<FilingParty> companyOf(const XMLElement& feed) {
    const auto* const info = feed.child("company-info");
    if (info == nullptr) return std::nullopt;
    const auto cik = cikFrom(info->childText("cik"));
    if (!cik) return std::nullopt;
    return FilingParty{.name = std::string(info->childText("conformed-name")), .cik = *cik};
}

std::optional<Filing> filingIn(const XMLElement& entry, const std::optional<FilingParty>& company) {
    const auto* const content = entry.child("content");
    Filing filing;
    filing.accession = accessionOf(entry, content);
    if (filing.accession.empty()) return std::nullopt;
    if (const auto* const category = entry.child("category")) {
        filing.form = category->attribute("term");
    }
    const auto summary = entry.childText("summary");
    if (content != nullptr) {
        if (filing.form.empty()) filing.form = content->childText("filing-type");
        filing.items = itemCodes(content->childText("items-desc"));
        filing.filed = formDay(content->childText("filing-date")).value_or("");
    }
    if (filing.items.empty()) filing.items = itemsInSummary(summary);
    if (filing.filed.empty()) filing.filed = filedInSummary(summary).value_or("");
    filing.accepted = parseISO8601(entry.childText("updated"));
    if (const auto party = company ? company : partyInTitle(entry.childText("title"))) {
        filing.parties = {*party};
        filing.indexURL = indexAddress(party->cik, filing.accession);
    }
    return filing;
}

}  // namespace

std::optional<std::vector<Filing>> feedFilings(const XMLElement& feed) {
    if (feed.name != "feed") return std::nullopt;
    const auto company = companyOf(feed);
    std::vector<Filing> filings;
    bool hasOther = false;
    for (const auto& entry : feed.children) {
        if (entry.name != "entry") continue;
        if (auto filing = filingIn(entry, company)) {
            filings.push_back(std::move(*filing));
        } else {
            hasOther = true;
        }
    }
    const bool isEmptyList = company || feed.childText("title").starts_with("Latest Filings");
    if (filings.empty() && (hasOther || !isEmptyList)) return std::nullopt;
    return filings;
}

}  // namespace kit
