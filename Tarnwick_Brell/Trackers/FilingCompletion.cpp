#include "Tarnwick_Brell/Trackers/FilingCompletion.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <vector>

#include "NewsroomKit/Filings/FormWords.h"
#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FilingRecords.h"
#include "Tarnwick_Brell/Trackers/TrackedFilings.h"
#include "Tarnwick_Brell/Trackers/TrackerFetcher.h"

namespace app {

using boost::asio::awaitable;
using kit::FilingsAPI;
using kit::FollowedFiling;

namespace {

// A request each, a second apart; the others follow with the next poll.
constexpr std::size_t kMostForms = 8;
constexpr std::size_t kMostOldForms = 2;
constexpr std::size_t kMostExhibits = 4;
constexpr std::chrono::days kExhibitWanted{3};
// A desk that was ended in between tells of it when it runs again.
constexpr std::chrono::days kEventTold{30};

/// Nothing when the answer is there, or never will be.
std::optional<ServerRefusal> refusalIn(const kit::FetchError& error,
                                       std::optional<std::chrono::seconds> pause) {
    if (hasStatus(error, 404)) return std::nullopt;
    ServerRefusal refusal{.pause = pause.value_or(std::chrono::seconds(0))};
    if (hasStatus(error, 401)) refusal.status = 401;
    return refusal;
}

awaitable<std::optional<ServerRefusal>> readList(LocalStore& store, FilingsAPI api,
                                                 std::int64_t company, kit::Clock clock) {
    try {
        const auto list = co_await api.companyList(company);
        if (!list.value) co_return refusalIn(list.value.error(), list.retryAfter);
        auto transaction = store.transaction();
        recordFilingList(store, company, list.value.value(), clock());
        transaction.commit();
    } catch (const kit::RecordError& error) {
        kit::log(kit::LogCategory::trackers, kit::LogLevel::info, "{}: {}",
                 FilingsAPI::listAddress(company), error.what());
    }
    co_return std::nullopt;
}

void readForm(FollowedFiling& followed, std::string_view submission) {
    followed.awaitsForm = false;
    if (kit::isSaleNotice(followed.filing.form)) {
        if (auto notice = kit::parseSaleNotice(submission)) followed.notice = notice.value();
    } else if (auto form = kit::parseOwnership(submission, followed.filing.filed)) {
        followed.trades = form.value();
    }
}

/// The news first; of what was there at the first look a few, the newest first.
std::vector<FollowedFiling> formsToRead(std::vector<FollowedFiling> filings) {
    std::erase_if(filings, [](const FollowedFiling& followed) { return !followed.awaitsForm; });
    std::ranges::sort(filings, [](const FollowedFiling& one, const FollowedFiling& other) {
        return std::tie(one.isNews, one.filing.accepted) >
               std::tie(other.isNews, other.filing.accepted);
    });
    const auto news = static_cast<std::size_t>(
        std::ranges::count_if(filings, [](const FollowedFiling& filing) { return filing.isNews; }));
    filings.resize(std::min({filings.size(), kMostForms, news + kMostOldForms}));
    return filings;
}

awaitable<std::optional<ServerRefusal>> readForms(LocalStore& store, FilingsAPI api,
                                                  std::int64_t company, kit::Clock clock) {
    for (auto& followed : formsToRead(filingsOf(store, company))) {
        const auto fetched = co_await api.submission(company, followed.filing.accession);
        if (!fetched.body) {
            const auto refusal = refusalIn(fetched.body.error(), fetched.record.retryAfter);
            if (refusal) co_return refusal;
        }
        readForm(followed, fetched.body ? std::string_view(fetched.body.value()) : "");
        auto transaction = store.transaction();
        putFiling(store, followed);
        tellFiling(store, followed, clock());
        transaction.commit();
    }
    co_return std::nullopt;
}

/// The begin of a press release is kept with its filing. Files of the archive know pauses and
/// refusals by themselves.
awaitable<void> readExhibits(LocalStore& store, FilingsAPI api, std::int64_t company,
                             kit::Clock clock) {
    TrackerFetcher fetcher(store, api.http, clock);
    auto filings = filingsOf(store, company);
    std::erase_if(filings, [&](const FollowedFiling& followed) {
        return !followed.awaitsDocuments || clock() - followed.seenAt > kExhibitWanted;
    });
    std::ranges::stable_partition(filings, &FollowedFiling::isNews);
    if (filings.size() > kMostExhibits) filings.resize(kMostExhibits);
    for (const auto& followed : filings) {
        auto pageFile = filingPageFile(followed, api.contact);
        const auto page = co_await fetcher.fetch(std::move(pageFile));
        if (page.error || !page.value || !isPressExhibit(page.value->front())) continue;
        auto textFile = filingTextFile(followed, page.value->front(), api.contact);
        co_await fetcher.fetch(std::move(textFile));
    }
}

/// With the titles of their press releases, or without those that can't be had now. The log
/// ignores what it has.
void tellEvents(LocalStore& store, std::int64_t company, kit::Instant now) {
    auto events = filingsOf(store, company);
    std::erase_if(events, [&](const FollowedFiling& followed) {
        return !followed.isNews || !kit::hasPressExhibit(followed.filing) ||
               now - followed.seenAt > kEventTold;
    });
    if (events.empty()) return;
    auto transaction = store.transaction();
    for (const auto& followed : events) tellFiling(store, followed, now);
    transaction.commit();
}

/// Whether the server wants to be asked nothing more, whatever it is.
bool endsRound(const std::optional<ServerRefusal>& refusal) {
    return refusal && (refusal->status != 0 || refusal->pause.count() > 0);
}

}  // namespace

awaitable<ServerRefusal> completeFilings(LocalStore& store, FilingsAPI api, std::int64_t company,
                                         kit::Clock clock) {
    co_await readExhibits(store, api, company, clock);
    tellEvents(store, company, clock());
    const auto forms = co_await readForms(store, api, company, clock);
    if (endsRound(forms)) co_return *forms;
    if (!isFilingListDue(store, company, filingsOf(store, company), clock()))
        co_return ServerRefusal{};
    const auto list = co_await readList(store, api, company, clock);
    co_return list.value_or(ServerRefusal{});
}

}  // namespace app
