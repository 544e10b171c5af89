#include "NewsroomKit/Filings/OwnershipForm.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <tuple>

#include "NewsroomKit/Filings/FilingForms.h"
#include "NewsroomKit/Filings/OwnershipWords.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

/// A field's text stands in an element "value", beside references to notes; fields of older forms
/// have it directly. Empty when only a note stands there.
std::string_view valueOf(const XMLElement* place) {
    if (place == nullptr) return {};
    if (const auto* const value = place->child("value")) {
        return trimWhitespaceAndNewlines(value->text);
    }
    return trimWhitespaceAndNewlines(place->text);
}

std::string_view valueAt(const XMLElement* group, std::string_view name) {
    return group == nullptr ? std::string_view() : valueOf(group->child(name));
}

std::optional<std::string> textAt(const XMLElement* group, std::string_view name) {
    const auto text = valueAt(group, name);
    return text.empty() ? std::nullopt : std::optional(std::string(text));
}

std::optional<double> numberAt(const XMLElement* group, std::string_view name) {
    return formNumber(valueAt(group, name));
}

/// The mark `yes` or `no`; nothing for any other text.
std::optional<bool> markAt(const XMLElement* group, std::string_view name, std::string_view yes,
                           std::string_view no) {
    const auto mark = valueAt(group, name);
    if (mark == yes) return true;
    if (mark == no) return false;
    return std::nullopt;
}

/// Boxes are "1" and "0" in some files, "true" and "false" in others.
std::optional<bool> boxAt(const XMLElement& group, std::string_view name) {
    const auto mark = valueAt(&group, name);
    if (mark == "1" || equalsLowercase(mark, "true")) return true;
    if (mark == "0" || equalsLowercase(mark, "false")) return false;
    return std::nullopt;
}

void collectNotes(const XMLElement& element, std::vector<std::string>& notes) {
    if (element.name == "footnoteId") {
        std::string id(element.attribute("id"));
        if (!id.empty() && std::ranges::find(notes, id) == notes.end()) notes.push_back(id);
    }
    for (const auto& child : element.children) collectNotes(child, notes);
}

/// What trades and holdings have in common.
template <class Row>
void readRow(const XMLElement& element, Row& row) {
    const auto* const nature = element.child("ownershipNature");
    const auto* const underlying = element.child("underlyingSecurity");
    row.security = std::string(valueAt(&element, "securityTitle"));
    row.direct = markAt(nature, "directOrIndirectOwnership", "D", "I");
    row.nature = textAt(nature, "natureOfOwnership");
    row.exercisePrice = numberAt(&element, "conversionOrExercisePrice");
    row.exercisable = formDay(valueAt(&element, "exerciseDate"));
    row.expires = formDay(valueAt(&element, "expirationDate"));
    row.underlying = textAt(underlying, "underlyingSecurityTitle");
    row.underlyingShares = numberAt(underlying, "underlyingSecurityShares");
    collectNotes(element, row.notes);
}

/// Rows of these codes have the price 0 because nothing was paid.
bool hasNoValue(const Trade& trade) {
    constexpr std::string_view unpaid = "AFGM";
    return trade.price == 0 && trade.code.size() == 1 && unpaid.find(trade.code) != unpaid.npos;
}

Trade tradeIn(const XMLElement& element, TradeTable table) {
    Trade trade{.table = table};
    readRow(element, trade);
    const auto* const coding = element.child("transactionCoding");
    const auto* const amounts = element.child("transactionAmounts");
    trade.date = formDay(valueAt(&element, "transactionDate"));
    trade.code = std::string(valueAt(coding, "transactionCode"));
    trade.shares = numberAt(amounts, "transactionShares");
    trade.price = numberAt(amounts, "transactionPricePerShare");
    trade.acquired = markAt(amounts, "transactionAcquiredDisposedCode", "A", "D");
    trade.after =
        numberAt(element.child("postTransactionAmounts"), "sharesOwnedFollowingTransaction");
    if (trade.shares && trade.price && !hasNoValue(trade)) {
        trade.value = *trade.shares * *trade.price;
    }
    if (valueAt(&element, "transactionTimeliness") == "L") trade.late = true;
    return trade;
}

Holding holdingIn(const XMLElement& element, TradeTable table) {
    Holding holding{.table = table};
    readRow(element, holding);
    holding.shares =
        numberAt(element.child("postTransactionAmounts"), "sharesOwnedFollowingTransaction");
    return holding;
}

void readTable(const XMLElement& root, TradeTable table, OwnershipForm& form) {
    const std::string name(rawValue(table));
    const auto* const rows = root.child(name + "Table");
    if (rows == nullptr) return;
    for (const auto& row : rows->children) {
        if (row.name == name + "Transaction") form.trades.push_back(tradeIn(row, table));
        if (row.name == name + "Holding") form.holdings.push_back(holdingIn(row, table));
    }
}

FormOwner ownerIn(const XMLElement& element, const std::optional<std::string>& remarks) {
    FormOwner owner;
    if (const auto* const id = element.child("reportingOwnerId")) {
        owner.cik = cikFrom(valueAt(id, "rptOwnerCik")).value_or(0);
        owner.name = std::string(valueAt(id, "rptOwnerName"));
    }
    const auto* const relationship = element.child("reportingOwnerRelationship");
    if (relationship == nullptr) return owner;
    constexpr std::array boxes{"isDirector", "isOfficer", "isTenPercentOwner", "isOther"};
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (boxAt(*relationship, boxes[i]) == true) owner.roles.push_back(OwnerRole(i));
    }
    owner.title = textAt(relationship, "officerTitle");
    if (owner.title && lowercasedASCII(*owner.title).starts_with("see remarks") && remarks) {
        owner.title = remarks;
    }
    return owner;
}

sys_days dayNumber(const std::string& day) {
    return std::chrono::floor<days>(*parseISO8601(day + "T00:00:00Z"));
}

/// The last day on which a trade of the form can have happened.
sys_days lastPossibleDay(const XMLElement& root, const OwnershipForm& form,
                         const std::optional<std::string>& filed) {
    if (filed) return dayNumber(*filed);
    // A form is signed and filed within days of its period; dates typed wrong are off by years.
    auto latest = form.period;
    for (const auto& child : root.children) {
        if (child.name != "ownerSignature") continue;
        latest = std::max(latest, formDay(valueAt(&child, "signatureDate")).value_or(""));
    }
    return dayNumber(latest) + days(31);
}

void mendDates(const XMLElement& root, const std::optional<std::string>& filed,
               OwnershipForm& form) {
    if (form.period.empty()) return;
    const auto last = lastPossibleDay(root, form, filed);
    for (auto& trade : form.trades) {
        if (!trade.date) continue;
        if (*trade.date >= "1990" && dayNumber(*trade.date) <= last) continue;
        trade.dateAsFiled = trade.date;
        trade.date = form.period;
    }
}

/// Business days from one day to another, without regard to holidays.
int businessDaysBetween(sys_days from, sys_days to) {
    int count = 0;
    for (auto day = from + days(1); day <= to && count <= 10; day += days(1)) {
        const auto weekday = std::chrono::weekday(day);
        if (weekday != std::chrono::Saturday && weekday != std::chrono::Sunday) ++count;
    }
    return count;
}

/// A Form 4 is due on the second business day after the trade, the others later or never.
void markLate(const std::optional<std::string>& filed, OwnershipForm& form) {
    for (auto& trade : form.trades) {
        if (filed && trade.date && form.form == "4" && !trade.late) {
            trade.late = businessDaysBetween(dayNumber(*trade.date), dayNumber(*filed)) > 2;
        }
        if (trade.late) form.late = form.late.value_or(false) || *trade.late;
    }
}

TradingPlan planOf(const XMLElement& root, const OwnershipForm& form) {
    const auto box = boxAt(root, "aff10b5One");
    const bool isNoted = std::ranges::any_of(
        form.footnotes, [](const auto& note) { return planMention(note.second).has_value(); });
    if (box == true || isNoted) return TradingPlan::yes;
    return box ? TradingPlan::no : TradingPlan::unknown;
}

}  // namespace

std::vector<TradeSum> sumsOf(std::span<const Trade> trades) {
    std::vector<TradeSum> sums;
    std::vector<double> pricedShares;
    std::map<std::tuple<std::string, std::optional<bool>, std::string, std::optional<bool>>,
             std::size_t>
        places;
    for (const auto& trade : trades) {
        const auto [known, isNew] = places.try_emplace(
            {trade.code, trade.acquired, trade.security, trade.direct}, sums.size());
        if (isNew) {
            sums.push_back({.code = trade.code,
                            .acquired = trade.acquired,
                            .security = trade.security,
                            .direct = trade.direct});
            pricedShares.push_back(0);
        }
        auto& sum = sums[known->second];
        const double shares = trade.shares.value_or(0);
        sum.shares += shares;
        if (trade.value) sum.value = sum.value.value_or(0) + *trade.value;
        if (trade.price.value_or(0) <= 0 || shares <= 0) continue;
        auto& priced = pricedShares[known->second];
        const double before = sum.averagePrice.value_or(0) * priced;
        priced += shares;
        sum.averagePrice = (before + shares * *trade.price) / priced;
    }
    return sums;
}

OwnershipResult parseOwnership(std::string_view bytes, const std::optional<std::string>& filed) {
    const auto document = formDocument(bytes, "ownershipDocument");
    if (!document) return document.error();
    const auto& root = document.value();
    OwnershipForm form;
    form.form = std::string(valueAt(&root, "documentType"));
    form.period = formDay(valueAt(&root, "periodOfReport")).value_or("");
    if (const auto* const issuer = root.child("issuer")) {
        form.issuer = {.cik = cikFrom(valueAt(issuer, "issuerCik")).value_or(0),
                       .name = std::string(valueAt(issuer, "issuerName")),
                       .symbol = textAt(issuer, "issuerTradingSymbol")};
    }
    if (form.form.empty() || form.issuer.cik == 0) return FilingsError::notFilings;
    if (const auto* const notes = root.child("footnotes")) {
        for (const auto& note : notes->children) {
            form.footnotes.try_emplace(std::string(note.attribute("id")),
                                       trimWhitespaceAndNewlines(note.text));
        }
    }
    const auto remarks = textAt(&root, "remarks");
    for (const auto& child : root.children) {
        if (child.name == "reportingOwner") form.owners.push_back(ownerIn(child, remarks));
    }
    readTable(root, TradeTable::nonDerivative, form);
    readTable(root, TradeTable::derivative, form);
    const auto filedDay = filed ? formDay(*filed) : std::nullopt;
    mendDates(root, filedDay, form);
    markLate(filedDay, form);
    form.plan = planOf(root, form);
    form.summary = sumsOf(form.trades);
    form.sentence = ownershipSentence(form);
    return form;
}

std::optional<std::string> planAdoption(const OwnershipForm& form) {
    for (const auto& [id, note] : form.footnotes) {
        if (const auto mention = planMention(note)) {
            if (auto day = writtenDay(std::string_view(note).substr(*mention))) return day;
        }
    }
    return std::nullopt;
}

}  // namespace kit
