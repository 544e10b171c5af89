#include "NewsroomKit/Panels/FilingsContent.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <set>

#include <fmt/format.h>

#include "NewsroomKit/Filings/FormWords.h"
#include "NewsroomKit/Filings/TradeCode.h"
#include "NewsroomKit/PressWires/PressSignals.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"

namespace kit {
namespace {

std::string filingRowWords(const FollowedFiling& followed) {
    if (followed.trades) {
        const auto& form = *followed.trades;
        if (isOfOwnShares(followed)) return form.sentence;
        return fmt::format("{} (shares of {})", form.sentence, form.issuer.name);
    }
    if (followed.notice) return noticeSentence(*followed.notice);
    return filingWords(followed.filing);
}

bool isWantedForm(std::string_view form, std::string_view wanted) {
    return wanted.empty() || equalIgnoringCase(form, wanted) ||
           equalIgnoringCase(form, std::string(wanted) + "/A");
}

/// The clock and the day of the acceptance in New York, unless its time may be wrong.
void addAcceptance(FilingRow& row) {
    const auto& filing = row.filing;
    if (!filing.accepted || filing.acceptedDoubtful.value_or(false)) return;
    const auto clock = newYorkClock(*filing.accepted).count();
    row.acceptedClock = fmt::format("{:02}:{:02}", clock / 60, clock % 60);
    if (const auto dated = parseISO8601(filing.filed + "T00:00:00Z")) {
        const auto off =
            std::chrono::floor<std::chrono::days>(*dated) - newYorkDay(*filing.accepted);
        row.daysOff = static_cast<int>(off.count());
    }
}

FilingRow filingRow(const FollowedFiling& followed, const std::vector<PressRelease>& releases) {
    const auto& filing = followed.filing;
    const auto* const company = filingCompany(followed.company);
    FilingRow row{.filing = filing,
                  .company = company ? std::string(company->name) : std::string(),
                  .symbol = company ? std::string(company->symbol) : std::string(),
                  .words = filingRowWords(followed),
                  .headline = followed.release ? followed.release->title : std::string(),
                  .weight = weightOf(followed),
                  .seenAt = followed.seenAt};
    for (const auto& code : filing.items) row.items.emplace_back(code, itemWords(code));
    addAcceptance(row);
    const auto same = std::ranges::find_if(
        releases, [&](const PressRelease& release) { return isSameText(followed, release); });
    if (same != releases.end()) row.release = *same;
    return row;
}

bool isWanted(const FollowedFiling& followed, const FilingFilter& filter) {
    const auto accepted = followed.filing.accepted.value_or(followed.seenAt);
    return isCompanyNamed(followed.company, filter.company) &&
           isWantedForm(followed.filing.form, filter.form) &&
           (!filter.since || accepted >= *filter.since || followed.seenAt >= *filter.since);
}

RelatedFiling relatedFiling(const Filing& filing) {
    return {filing.accession, filing.form, filing.filed, filing.indexURL};
}

std::vector<FormNote> notesNamed(const std::vector<std::string>& names, const OwnershipForm& form) {
    std::vector<FormNote> notes;
    for (const auto& name : names) {
        const auto note = form.footnotes.find(name);
        notes.push_back({name, note == form.footnotes.end() ? std::string() : note->second});
    }
    return notes;
}

void addForm(const OwnershipForm& form, FilingRecord& record) {
    record.owners = form.owners;
    if (!form.trades.empty()) record.plan = form.plan;
    record.sums = form.summary;
    for (const auto& trade : form.trades)
        record.trades.push_back(
            {trade, tradeVerb(trade.code, trade.acquired), notesNamed(trade.notes, form)});
    for (const auto& holding : form.holdings)
        record.holdings.push_back({holding, notesNamed(holding.notes, form)});
}

}  // namespace

std::string tradeVerb(std::string_view letter, std::optional<bool> acquired) {
    const auto* const code = tradeCode(letter);
    if (code == nullptr) return "code " + std::string(letter);
    return std::string(acquired.value_or(false) ? code->acquired : code->disposed);
}

bool isSameText(const FollowedFiling& filing, const PressRelease& release) {
    const auto* const company = filingCompany(filing.company);
    const auto& accepted = filing.filing.accepted;
    if (company == nullptr || !filing.release || !release.published || !accepted) return false;
    const auto apart = *accepted - *release.published;
    if (apart > std::chrono::days(1) || apart < -std::chrono::days(1)) return false;
    const std::array companies{
        PressCompany{std::string(company->symbol), std::string(company->name)}};
    if (!isOfCompany(release, companies)) return false;
    // Without times the keys are those of the titles alone.
    const auto title = releaseKey({.title = release.title});
    return std::ranges::any_of(filing.release->lines, [&](const std::string& line) {
        return releaseKey({.title = line}) == title;
    });
}

const FollowedFiling* filingOf(const std::vector<FollowedFiling>& filings,
                               const PressRelease& release) {
    const auto found = std::ranges::find_if(
        filings, [&](const FollowedFiling& filing) { return isSameText(filing, release); });
    return found == filings.end() ? nullptr : &*found;
}

bool isCompanyNamed(std::int64_t cik, std::string_view words) {
    if (words.empty()) return true;
    const auto* const company = filingCompany(cik);
    return company != nullptr &&
           (equalIgnoringCase(company->symbol, words) ||
            lowercasedASCII(company->name).find(lowercasedASCII(words)) != std::string::npos);
}

std::vector<FilingRow> filingRows(const std::vector<FollowedFiling>& filings,
                                  const FilingFilter& filter,
                                  const std::vector<PressRelease>& releases) {
    std::set<std::string_view> amended;
    for (const auto& followed : filings) {
        if (followed.filing.amends) amended.insert(*followed.filing.amends);
    }
    std::vector<FilingRow> rows;
    for (const auto& followed : filings) {
        if (!isWanted(followed, filter)) continue;
        auto row = filingRow(followed, releases);
        row.isAmended = amended.contains(followed.filing.accession);
        rows.push_back(std::move(row));
    }
    std::ranges::sort(rows, [](const FilingRow& one, const FilingRow& other) {
        return std::tie(other.filing.accepted, other.filing.accession) <
               std::tie(one.filing.accepted, one.filing.accession);
    });
    return rows;
}

std::optional<FilingRecord> filingRecord(const std::vector<FollowedFiling>& filings,
                                         std::string_view accession,
                                         const std::vector<PressRelease>& releases) {
    const auto numberOf = [](const FollowedFiling& followed) -> const std::string& {
        return followed.filing.accession;
    };
    const auto found = std::ranges::find(filings, accession, numberOf);
    if (found == filings.end()) return std::nullopt;
    FilingRecord record{
        .row = filingRow(*found, releases), .documents = found->documents, .notice = found->notice};
    if (const auto& number = found->filing.amends) {
        const auto original = std::ranges::find(filings, *number, numberOf);
        record.amends = original == filings.end() ? RelatedFiling{.accession = *number}
                                                  : relatedFiling(original->filing);
    }
    for (const auto& other : filings) {
        if (other.filing.amends == found->filing.accession)
            record.amendedBy.push_back(relatedFiling(other.filing));
    }
    record.row.isAmended = !record.amendedBy.empty();
    if (found->trades) addForm(*found->trades, record);
    return record;
}

}  // namespace kit
