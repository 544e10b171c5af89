#include "NewsroomKit/Panels/InsidersContent.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <tuple>

#include "NewsroomKit/Filings/TradeCode.h"
#include "NewsroomKit/Panels/FilingsContent.h"
#include "NewsroomKit/Text/ASCII.h"

namespace kit {
namespace {

using std::chrono::sys_days;

constexpr std::chrono::days together{3};
constexpr std::chrono::days noticeBefore{5};

/// The days of forms are valid when they are present.
std::optional<sys_days> dayNumberOf(const std::string& day) {
    const auto instant = parseISO8601(day + "T00:00:00Z");
    return instant ? std::optional(std::chrono::floor<std::chrono::days>(*instant)) : std::nullopt;
}

bool areWithin(const std::string& one, const std::string& other, std::chrono::days most) {
    const auto first = dayNumberOf(one);
    const auto second = dayNumberOf(other);
    return first && second && *second - *first <= most && *first - *second <= most;
}

/// Forms write "Doe Jane A.", notices "Jane A. Doe".
std::set<std::string> nameWords(std::string_view name) {
    std::set<std::string> words;
    std::string word;
    for (std::size_t at = 0; at <= name.size(); ++at) {
        const char c = at < name.size() ? name[at] : ' ';
        if (isASCIIAlphanumeric(c) || static_cast<unsigned char>(c) >= 0x80) {
            word += lowercaseASCII(c);
            continue;
        }
        // Initials are left out in some forms.
        if (word.size() > 1) words.insert(word);
        word.clear();
    }
    return words;
}

std::string firstTradeDay(const OwnershipForm& form) {
    auto first = form.period;
    for (const auto& trade : form.trades) {
        if (trade.date) first = std::min(first, *trade.date);
    }
    return first;
}

/// The forms of one person that belong together.
struct FormGroup {
    std::vector<const FollowedFiling*> forms{};
    std::string firstDay{};
};

/// Numbers of shares that forms report as sold in all, also those that were corrected later.
std::vector<double> sharesSold(const OwnershipForm& form) {
    std::vector<double> sold;
    for (const auto& sum : sumsOf(form.trades)) {
        if (sum.code == "S") sold.push_back(sum.shares);
    }
    return sold;
}

using Owner = std::pair<std::int64_t, std::int64_t>;  // company and person

Owner ownerOf(const FollowedFiling& followed) {
    const auto& owners = followed.trades->owners;
    return {followed.company, owners.empty() ? 0 : owners.front().cik};
}

/// An amendment with trades of its own replaces what it corrects; one without leaves it standing.
bool isReplaced(const FollowedFiling& followed, const std::vector<const FollowedFiling*>& forms) {
    return std::ranges::any_of(forms, [&](const FollowedFiling* other) {
        return other->filing.form == followed.filing.form + "/A" &&
               ownerOf(*other) == ownerOf(followed) && !other->trades->trades.empty() &&
               other->trades->period == followed.trades->period;
    });
}

std::vector<FormGroup> groupsOf(const std::vector<FollowedFiling>& filings,
                                const InsiderFilter& filter) {
    std::vector<const FollowedFiling*> forms;
    for (const auto& followed : filings) {
        if (followed.trades && isOfOwnShares(followed) && !followed.trades->trades.empty() &&
            isCompanyNamed(followed.company, filter.company)) {
            forms.push_back(&followed);
        }
    }
    const auto all = forms;
    std::erase_if(forms, [&](const FollowedFiling* form) { return isReplaced(*form, all); });
    std::ranges::sort(forms, {}, [](const FollowedFiling* form) {
        return std::tuple(ownerOf(*form), firstTradeDay(*form->trades), form->filing.accession);
    });
    std::vector<FormGroup> groups;
    for (const auto* form : forms) {
        const auto day = firstTradeDay(*form->trades);
        const bool joins = !groups.empty() &&
                           ownerOf(*groups.back().forms.front()) == ownerOf(*form) &&
                           areWithin(groups.back().firstDay, day, together);
        if (!joins) groups.push_back({.firstDay = day});
        groups.back().forms.push_back(form);
    }
    return groups;
}

/// What was disposed of by decision, against what was held directly before.
void readHolding(const std::vector<Trade>& trades, InsiderRow& row) {
    double gone = 0;
    for (const auto& trade : trades) {
        if (trade.table != TradeTable::nonDerivative || trade.direct != true) continue;
        if (trade.after) row.heldAfter = trade.after;
        if (isDecision(trade.code) && trade.acquired == false) gone += trade.shares.value_or(0);
    }
    if (row.heldAfter && gone > 0) row.shareOfHolding = 100 * gone / (*row.heldAfter + gone);
}

InsiderRow rowOf(const FormGroup& group) {
    const auto& first = *group.forms.front();
    const auto* const company = filingCompany(first.company);
    InsiderRow row{.company = company ? std::string(company->name) : std::string(),
                   .firstDay = group.firstDay,
                   .lastDay = group.firstDay,
                   .link = first.filing.indexURL};
    if (!first.trades->owners.empty()) {
        row.person = first.trades->owners.front().name;
        row.title = first.trades->owners.front().title;
    }
    std::vector<Trade> trades;
    for (const auto* form : group.forms) {
        const auto& read = *form->trades;
        trades.insert(trades.end(), read.trades.begin(), read.trades.end());
        row.accessions.push_back(form->filing.accession);
        row.isLate = row.isLate || read.late == true;
        row.isAmended = row.isAmended || read.form.ends_with("/A");
        if (read.plan == TradingPlan::yes || row.plan == TradingPlan::unknown) row.plan = read.plan;
        if (!row.planDay) row.planDay = planAdoption(read);
    }
    for (const auto& trade : trades) {
        if (trade.date) row.lastDay = std::max(row.lastDay, *trade.date);
        row.isDecision = row.isDecision || isDecision(trade.code);
    }
    row.sums = sumsOf(trades);
    readHolding(trades, row);
    return row;
}

/// Whether the row is the sale that the notice announced. The number of shares is that of the row
/// or of one of the person's forms, which an amendment may have corrected since.
bool announces(const SaleNotice& notice, const InsiderRow& row,
               const std::vector<FollowedFiling>& filings) {
    if (row.notice || !notice.saleDate || !notice.shares) return false;
    if (!areWithin(row.firstDay, *notice.saleDate, noticeBefore)) return false;
    if (nameWords(notice.person) != nameWords(row.person)) return false;
    const auto isNumber = [&](double shares) { return shares == *notice.shares; };
    if (std::ranges::any_of(row.sums, [&](const TradeSum& sum) {
            return sum.code == "S" && isNumber(sum.shares);
        })) {
        return true;
    }
    return std::ranges::any_of(filings, [&](const FollowedFiling& followed) {
        return followed.trades && !followed.trades->owners.empty() &&
               followed.trades->owners.front().name == row.person &&
               areWithin(firstTradeDay(*followed.trades), row.firstDay, together) &&
               std::ranges::any_of(sharesSold(*followed.trades), isNumber);
    });
}

InsiderRow rowOf(const FollowedFiling& followed, const std::string& company) {
    const auto& notice = *followed.notice;
    InsiderRow row{.company = company,
                   .person = notice.person,
                   .firstDay = notice.saleDate.value_or(notice.noticeDate.value_or("")),
                   .plan = notice.planDates.empty() ? TradingPlan::unknown : TradingPlan::yes,
                   .isDecision = true,
                   .isAmended = notice.amendment,
                   .notice = notice,
                   .accessions = {followed.filing.accession},
                   .link = followed.filing.indexURL};
    row.lastDay = row.firstDay;
    if (!notice.planDates.empty()) row.planDay = notice.planDates.front();
    return row;
}

void addNotices(const std::vector<FollowedFiling>& filings, const InsiderFilter& filter,
                std::vector<InsiderRow>& rows) {
    const auto done = rows.size();
    for (const auto& followed : filings) {
        if (!followed.notice || !isOfOwnShares(followed) ||
            !isCompanyNamed(followed.company, filter.company)) {
            continue;
        }
        const auto* const company = filingCompany(followed.company);
        const std::string name = company ? std::string(company->name) : std::string();
        const auto deeds = std::span(rows).first(done);
        const auto deed = std::ranges::find_if(deeds, [&](const InsiderRow& row) {
            return row.company == name && announces(*followed.notice, row, filings);
        });
        if (deed == deeds.end()) {
            rows.push_back(rowOf(followed, name));
            continue;
        }
        deed->notice = followed.notice;
        deed->accessions.push_back(followed.filing.accession);
        if (!deed->planDay && !followed.notice->planDates.empty()) {
            deed->planDay = followed.notice->planDates.front();
        }
    }
}

}  // namespace

InsidersContent insidersContent(const std::vector<FollowedFiling>& filings,
                                const InsiderFilter& filter) {
    InsidersContent content;
    for (const auto& group : groupsOf(filings, filter)) content.rows.push_back(rowOf(group));
    addNotices(filings, filter, content.rows);
    std::erase_if(content.rows, [&](const InsiderRow& row) {
        if (filter.since && row.lastDay < *filter.since) return true;
        if (filter.includesRoutine || row.isDecision) return false;
        ++content.routine;
        return true;
    });
    std::ranges::stable_sort(content.rows, [](const InsiderRow& one, const InsiderRow& other) {
        return one.lastDay > other.lastDay;
    });
    return content;
}

}  // namespace kit
