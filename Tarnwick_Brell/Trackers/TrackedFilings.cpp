#include "Tarnwick_Brell/Trackers/TrackedFilings.h"

#include <algorithm>

#include <boost/json.hpp>

#include "NewsroomKit/Filings/FilingsAPI.h"
#include "NewsroomKit/Filings/FormWords.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/SettingKey.h"

namespace app {

using kit::Filing;
using kit::FilingCompany;
using kit::FilingsAPI;
using kit::FollowedFiling;
using kit::HTTPClient;
using kit::Instant;

namespace {

// A request each, a second apart; the others follow with the next poll.
constexpr std::size_t kMostFormsAtOnce = 8;

std::string fileNameOf(std::int64_t company) {
    return std::string(kFilingPrefix) + std::to_string(company);
}

/// Two companies may list one filing.
std::string keyOf(const FollowedFiling& followed) {
    return followed.filing.accession + "|" + std::to_string(followed.company);
}

void putFiling(LocalStore& store, const FollowedFiling& followed) {
    store.filings().put({.key = keyOf(followed),
                         .feed = fileNameOf(followed.company),
                         .happenedAt = followed.filing.accepted,
                         .firstSeen = followed.seenAt,
                         .record = boost::json::serialize(kit::encode(followed))});
}

/// A form of insiders is told once it has been read.
void tell(LocalStore& store, const FollowedFiling& followed, Instant now) {
    if (!followed.isNews || followed.awaitsForm || !kit::isOfOwnShares(followed)) return;
    const std::vector<kit::Signal> told{kit::signalOf(followed, now)};
    store.signalLog().add(told);
}

/// New is what has a new number: letters are published weeks later under old dates. Nothing is
/// told of the first look at a company.
void recordFilings(LocalStore& store, std::int64_t company, const std::vector<Filing>& filings,
                   Instant now) {
    const bool isFirst = store.filings().ofFeed(fileNameOf(company)).empty();
    for (const auto& filing : filings) {
        const FollowedFiling followed{
            .company = company,
            .filing = filing,
            .seenAt = now,
            .isNews = !isFirst,
            .awaitsForm = kit::isOwnershipForm(filing.form) || kit::isSaleNotice(filing.form)};
        if (store.filings().has(keyOf(followed))) continue;
        putFiling(store, followed);
        tell(store, followed, now);
    }
}

void readForm(FollowedFiling& followed, std::string_view submission) {
    followed.awaitsForm = false;
    if (kit::isSaleNotice(followed.filing.form)) {
        if (auto notice = kit::parseSaleNotice(submission)) followed.notice = notice.value();
    } else if (auto form = kit::parseOwnership(submission, followed.filing.filed)) {
        followed.trades = form.value();
    }
}

/// Whether the server will never have the file.
bool isGone(const kit::FetchError& error) {
    return error == kit::FetchError(kit::HTTPClientError{.kind = kit::HTTPClientError::Kind::status,
                                                         .statusCode = 404});
}

boost::asio::awaitable<void> fetchForms(LocalStore& store, FilingsAPI api, std::int64_t company,
                                        kit::Clock clock) {
    auto waiting = followedFilings(store.filings().ofFeed(fileNameOf(company)));
    std::erase_if(waiting, [](const FollowedFiling& followed) { return !followed.awaitsForm; });
    std::ranges::sort(waiting, [](const FollowedFiling& one, const FollowedFiling& other) {
        return one.filing.accepted > other.filing.accepted;
    });
    if (waiting.size() > kMostFormsAtOnce) waiting.resize(kMostFormsAtOnce);
    for (auto& followed : waiting) {
        const auto fetched = co_await api.submission(company, followed.filing.accession);
        if (!fetched.body && !isGone(fetched.body.error())) co_return;
        readForm(followed, fetched.body ? std::string_view(fetched.body.value()) : "");
        auto transaction = store.transaction();
        putFiling(store, followed);
        tell(store, followed, clock());
        transaction.commit();
    }
}

TrackedFile<std::vector<Filing>> filingFile(const FilingCompany& company,
                                            const std::string& contact) {
    const auto cik = company.cik;
    return {.tracker = Tracker::filings,
            .name = fileNameOf(cik),
            .title = "The filings of " + std::string(company.name),
            .address = FilingsAPI::feedAddress(cik),
            .fetch = [cik, contact](
                         HTTPClient& http) { return FilingsAPI{http, contact}.companyFeed(cik); },
            .parse = FilingsAPI::parse,
            .emptyAnswer = EmptyAnswer::refusedAfterItems,
            .isEmpty = [](const std::vector<Filing>& filings) { return filings.empty(); },
            .credential = kit::storyID(contact),
            .refusedText =
                "The SEC refuses requests with this mail address. It isn't asked again "
                "until the setting " +
                std::string(SettingKey::kContactAddress) + " has another one.",
            .record = [cik](LocalStore& store, const auto&, const auto& filings,
                            Instant now) { recordFilings(store, cik, filings, now); },
            .complete =
                [cik, contact](LocalStore& store, HTTPClient& http, kit::Clock clock) {
                    return fetchForms(store, FilingsAPI{http, contact}, cik, std::move(clock));
                }};
}

}  // namespace

std::vector<TrackedFile<std::vector<Filing>>> filingFiles(const std::string& contact) {
    std::vector<TrackedFile<std::vector<Filing>>> files;
    if (contact.empty()) return files;
    for (const auto& company : kit::filingCompanies) files.push_back(filingFile(company, contact));
    return files;
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

}  // namespace app
