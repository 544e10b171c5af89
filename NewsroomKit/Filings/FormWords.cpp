#include "NewsroomKit/Filings/FormWords.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

namespace kit {
namespace {

using Weight = SignalWeight;

struct WordsRow {
    std::string_view code;
    std::string_view words;
    Weight weight;
};

// The numbers of an 8-K's items, in the SEC's order.
constexpr std::array<WordsRow, 32> itemRows{{
    {"1.01", "Entry into a material agreement", Weight::notable},
    {"1.02", "End of a material agreement", Weight::notable},
    {"1.03", "Bankruptcy or receivership", Weight::major},
    {"1.04", "Mine safety", Weight::routine},
    {"1.05", "Material cybersecurity incident", Weight::major},
    {"2.01", "Acquisition or sale completed", Weight::notable},
    {"2.02", "Results of the quarter", Weight::major},
    {"2.03", "New financial obligation", Weight::notable},
    {"2.04", "Event that brings an obligation forward", Weight::notable},
    {"2.05", "Costs of leaving a business or of layoffs", Weight::major},
    {"2.06", "Material write-down", Weight::major},
    {"3.01", "Notice of delisting, or a change of listing", Weight::major},
    {"3.02", "Sale of unregistered shares", Weight::notable},
    {"3.03", "Change of shareholders' rights", Weight::notable},
    {"4.01", "Change of auditors", Weight::major},
    {"4.02", "Earlier accounts can no longer be relied on", Weight::major},
    {"5.01", "Change of control", Weight::major},
    {"5.02", "Departure or appointment of directors or officers", Weight::major},
    {"5.03", "Change of bylaws or of the fiscal year", Weight::notable},
    {"5.04", "Suspension of trading under staff plans", Weight::routine},
    {"5.05", "Change of the code of ethics", Weight::notable},
    {"5.06", "Change of a shell company's status", Weight::routine},
    {"5.07", "Submission of matters to a vote of shareholders", Weight::notable},
    {"5.08", "Nominations of directors by shareholders", Weight::routine},
    {"6.01", "Material on asset-backed securities", Weight::routine},
    {"6.02", "Change of servicer or trustee", Weight::routine},
    {"6.03", "Change of credit enhancement", Weight::routine},
    {"6.04", "Failure to make a distribution", Weight::routine},
    {"6.05", "Disclosure under the Securities Act", Weight::routine},
    {"7.01", "Disclosure to all investors at once", Weight::notable},
    {"8.01", "Other events", Weight::notable},
    {"9.01", "Financial statements and exhibits", Weight::routine},
}};

constexpr std::array<WordsRow, 31> formRows{{
    {"8-K", "Report of an event", Weight::notable},
    {"6-K", "Report of a foreign company", Weight::notable},
    {"10-Q", "Quarterly report", Weight::major},
    {"10-K", "Annual report", Weight::major},
    {"20-F", "Annual report of a foreign company", Weight::major},
    {"DEF 14A", "Proxy statement: pay and votes", Weight::notable},
    {"PRE 14A", "Draft of the proxy statement", Weight::notable},
    {"DEFA14A", "Further proxy material", Weight::routine},
    {"PX14A6G", "A shareholder's letter for or against a vote", Weight::notable},
    {"SD", "Report on conflict minerals", Weight::routine},
    {"S-8", "Shares for staff", Weight::routine},
    {"S-3ASR", "Registration of securities for later sale", Weight::routine},
    {"424B2", "Terms of a sale of debt", Weight::notable},
    {"424B3", "Prospectus", Weight::routine},
    {"424B5", "Prospectus of a sale", Weight::routine},
    {"FWP", "Term sheet of a sale of debt", Weight::routine},
    {"SC 13D", "A holder over 5 % who may want influence", Weight::major},
    {"SCHEDULE 13D", "A holder over 5 % who may want influence", Weight::major},
    {"SC 13G", "A holder over 5 %", Weight::notable},
    {"SCHEDULE 13G", "A holder over 5 %", Weight::notable},
    {"13F-HR", "A manager's holdings, up to 45 days old", Weight::routine},
    {"3", "What a new insider holds", Weight::routine},
    {"4", "An insider's trades", Weight::routine},
    {"5", "An insider's trades of the year", Weight::routine},
    {"144", "Notice of a coming sale", Weight::notable},
    {"25-NSE", "Delisting of a security", Weight::routine},
    {"NO ACT", "Staff letter on a shareholder's proposal", Weight::notable},
    {"UPLOAD", "The SEC's comments to the company", Weight::notable},
    {"CORRESP", "The company's answer to the SEC", Weight::notable},
    {"11-K", "Annual report of a staff plan", Weight::routine},
    {"ARS", "Annual report to shareholders", Weight::routine},
}};

template <std::size_t count>
const WordsRow* rowOf(const std::array<WordsRow, count>& rows, std::string_view code) {
    const auto row = std::ranges::find(rows, code, &WordsRow::code);
    return row == rows.end() ? nullptr : &*row;
}

bool isAmended(std::string_view form) { return form.ends_with("/A"); }

std::string_view plainForm(std::string_view form) {
    return isAmended(form) ? form.substr(0, form.size() - 2) : form;
}

/// The item that weighs most; of equal ones the first.
const WordsRow* leadingItem(const Filing& filing) {
    const WordsRow* leading = nullptr;
    for (const auto& code : filing.items) {
        const auto* const row = rowOf(itemRows, code);
        if (row != nullptr && (leading == nullptr || row->weight > leading->weight)) leading = row;
    }
    return leading;
}

}  // namespace

bool isOwnershipForm(std::string_view form) {
    const auto plain = plainForm(form);
    return plain == "3" || plain == "4" || plain == "5";
}

bool isSaleNotice(std::string_view form) { return plainForm(form) == "144"; }

std::string_view itemWords(std::string_view code) {
    const auto* const row = rowOf(itemRows, code);
    return row == nullptr ? std::string_view() : row->words;
}

std::string filingWords(const Filing& filing) {
    const auto* row = leadingItem(filing);
    if (row == nullptr) row = rowOf(formRows, plainForm(filing.form));
    const auto words =
        row == nullptr ? "Form " + std::string(plainForm(filing.form)) : std::string(row->words);
    return isAmended(filing.form) ? words + ", amended" : words;
}

SignalWeight filingWeight(const Filing& filing) {
    if (const auto* const item = leadingItem(filing)) return item->weight;
    const auto* const row = rowOf(formRows, plainForm(filing.form));
    return row == nullptr ? SignalWeight::routine : row->weight;
}

}  // namespace kit
