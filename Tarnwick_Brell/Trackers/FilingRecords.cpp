#include "Tarnwick_Brell/Trackers/FilingRecords.h"

#include <algorithm>
#include <chrono>
#include <map>

#include <boost/json.hpp>

#include "NewsroomKit/Filings/FormWords.h"
#include "NewsroomKit/Signals/Signal.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

using kit::Filing;
using kit::FollowedFiling;
using kit::Instant;

namespace {

constexpr std::chrono::days kListReach{400};
constexpr std::chrono::hours kListInterval{24};
constexpr std::chrono::minutes kDetailInterval{30};
// A list that lags for longer than that will not have the detail at all.
constexpr std::chrono::days kDetailWanted{2};
// Of filings that were there at the first look, the texts of these are read all the same.
constexpr std::chrono::days kRecent{3};

/// Two companies may list one filing.
std::string filingKey(const FollowedFiling& followed) {
    return followed.filing.accession + "|" + std::to_string(followed.company);
}

std::string listKey(std::int64_t company) { return "filingList/" + std::to_string(company); }

bool isInsidersForm(const Filing& filing) {
    return kit::isOwnershipForm(filing.form) || kit::isSaleNotice(filing.form);
}

bool lacksDetail(const FollowedFiling& followed, Instant now) {
    const auto& filing = followed.filing;
    if (!followed.isNews || now - followed.seenAt > kDetailWanted) return false;
    const bool lacksItems = filing.form.starts_with("8-K") && filing.items.empty();
    return lacksItems || (filing.form.ends_with("/A") && !filing.amends);
}

/// A feed none of whose filings is known has left some out: the list tells which.
void wantListAfterGap(LocalStore& store, std::int64_t company, std::size_t known,
                      const std::vector<Filing>& filings) {
    constexpr std::size_t fullFeed = 30;
    if (known > 0 || filings.size() < fullFeed || !store.state().instant(listKey(company))) return;
    store.state().set(listKey(company), Instant());
}

}  // namespace

std::string filingFileName(std::int64_t company) {
    return std::string(kFilingPrefix) + std::to_string(company);
}

std::vector<FollowedFiling> followedFilings(const std::vector<HistoricRecord>& records) {
    std::vector<FollowedFiling> filings;
    for (const auto& row : records) {
        try {
            filings.push_back(kit::decode<FollowedFiling>(kit::parseJSON(row.record)));
        } catch (const kit::RecordError&) {
            continue;
        }
    }
    return filings;
}

std::vector<FollowedFiling> filingsOf(LocalStore& store, std::int64_t company) {
    return followedFilings(store.filings().ofFeed(filingFileName(company)));
}

void putFiling(LocalStore& store, const FollowedFiling& followed) {
    store.filings().put({.key = filingKey(followed),
                         .feed = filingFileName(followed.company),
                         .happenedAt = followed.filing.accepted,
                         .firstSeen = followed.seenAt,
                         .record = boost::json::serialize(kit::encode(followed))});
}

void tellFiling(LocalStore& store, const FollowedFiling& followed, Instant now) {
    if (!followed.isNews || followed.awaitsForm || !kit::isOfOwnShares(followed)) return;
    const std::vector<kit::Signal> told{kit::signalOf(followed, now)};
    store.signalLog().add(told);
}

void recordFilingFeed(LocalStore& store, std::int64_t company, const std::vector<Filing>& filings,
                      Instant now) {
    const bool isFirst = store.filings().ofFeed(filingFileName(company)).empty();
    std::size_t known = 0;
    for (const auto& filing : filings) {
        const bool isRecent = filing.accepted && now - *filing.accepted < kRecent;
        const FollowedFiling followed{
            .company = company,
            .filing = filing,
            .seenAt = now,
            .isNews = !isFirst,
            .awaitsForm = isInsidersForm(filing),
            .awaitsDocuments = kit::hasPressExhibit(filing) && (!isFirst || isRecent)};
        if (store.filings().has(filingKey(followed))) {
            ++known;
            continue;
        }
        putFiling(store, followed);
        if (!followed.awaitsDocuments) tellFiling(store, followed, now);
    }
    if (!isFirst) wantListAfterGap(store, company, known, filings);
}

void recordFilingList(LocalStore& store, std::int64_t company, const std::vector<Filing>& listed,
                      Instant now) {
    const bool isFirst = !store.state().instant(listKey(company));
    const auto oldest = kit::signalDay(now - kListReach);
    std::map<std::string, FollowedFiling> known;
    for (auto& followed : filingsOf(store, company))
        known.emplace(followed.filing.accession, std::move(followed));
    for (const auto& filing : listed) {
        if (const auto found = known.find(filing.accession); found != known.end()) {
            if (kit::addDetail(found->second.filing, filing)) putFiling(store, found->second);
            continue;
        }
        if (filing.filed < oldest) continue;
        const FollowedFiling followed{.company = company,
                                      .filing = filing,
                                      .seenAt = now,
                                      .isNews = !isFirst,
                                      .awaitsForm = !isFirst && isInsidersForm(filing),
                                      .awaitsDocuments = !isFirst && kit::hasPressExhibit(filing)};
        putFiling(store, followed);
        if (!followed.awaitsDocuments) tellFiling(store, followed, now);
    }
    store.state().set(listKey(company), now);
}

bool isFilingListDue(LocalStore& store, std::int64_t company,
                     const std::vector<FollowedFiling>& known, Instant now) {
    const auto read = store.state().instant(listKey(company));
    // One in the future was read before the clock was set back.
    if (!read || *read > now || now - *read >= kListInterval) return true;
    return now - *read >= kDetailInterval &&
           std::ranges::any_of(
               known, [&](const FollowedFiling& followed) { return lacksDetail(followed, now); });
}

}  // namespace app
