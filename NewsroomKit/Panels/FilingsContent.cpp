#include "NewsroomKit/Panels/FilingsContent.h"

#include <algorithm>
#include <chrono>

#include <fmt/format.h>

#include "NewsroomKit/Filings/FormWords.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"

namespace kit {
namespace {

std::string newYorkDayText(Instant accepted) {
    const std::chrono::year_month_day day(newYorkDay(accepted));
    return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(day.year()),
                       static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
}

std::string wordsOf(const FollowedFiling& followed) {
    if (followed.trades) return followed.trades->sentence;
    if (followed.notice) return noticeSentence(*followed.notice);
    return filingWords(followed.filing);
}

bool isWantedForm(std::string_view form, std::string_view wanted) {
    return wanted.empty() || equalIgnoringCase(form, wanted) ||
           equalIgnoringCase(form, std::string(wanted) + "/A");
}

FilingRow filingRow(const FollowedFiling& followed) {
    const auto& filing = followed.filing;
    const auto* const company = filingCompany(followed.company);
    FilingRow row{.filing = filing,
                  .company = company ? std::string(company->name) : std::string(),
                  .words = wordsOf(followed),
                  .weight = filingWeight(filing),
                  .seenAt = followed.seenAt};
    for (const auto& code : filing.items) row.items.emplace_back(code, itemWords(code));
    row.isDatedOtherwise = filing.accepted && !filing.acceptedDoubtful &&
                           newYorkDayText(*filing.accepted) != filing.filed;
    return row;
}

}  // namespace

bool isCompanyNamed(std::int64_t cik, std::string_view words) {
    if (words.empty()) return true;
    const auto* const company = filingCompany(cik);
    return company != nullptr &&
           (equalIgnoringCase(company->symbol, words) ||
            lowercasedASCII(company->name).find(lowercasedASCII(words)) != std::string::npos);
}

std::vector<FilingRow> filingRows(const std::vector<FollowedFiling>& filings,
                                  const FilingFilter& filter) {
    std::vector<FilingRow> rows;
    for (const auto& followed : filings) {
        const auto accepted = followed.filing.accepted.value_or(followed.seenAt);
        if (!isCompanyNamed(followed.company, filter.company) ||
            !isWantedForm(followed.filing.form, filter.form) ||
            (filter.since && accepted < *filter.since && followed.seenAt < *filter.since)) {
            continue;
        }
        rows.push_back(filingRow(followed));
    }
    std::ranges::sort(rows, [](const FilingRow& one, const FilingRow& other) {
        return std::tie(other.filing.accepted, other.filing.accession) <
               std::tie(one.filing.accepted, one.filing.accession);
    });
    return rows;
}

}  // namespace kit
