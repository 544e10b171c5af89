#include "Tarnwick_Brell/Models/Settings/ContactedHosts.h"

#include <algorithm>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"
#include "Tarnwick_Brell/Trackers/TrackedFilings.h"
#include "Tarnwick_Brell/Trackers/TrackedRecords.h"

namespace app {

namespace {

using std::chrono::minutes;

class HostCollector {
public:
    void addSource(const kit::NewsSource& source, const SourceStatus& status, minutes cadence,
                   std::int64_t fetches) {
        auto* host = hostOf(source.feedURL);
        if (!host) return;
        const auto least =
            std::chrono::ceil<minutes>(std::chrono::duration<double>(source.minimumInterval));
        ++host->sources;
        host->fetches += fetches;
        addInterval(*host, std::max(cadence, least));
        addTime(*host, status.lastAttempt);
    }

    template <class T>
    void addFile(const TrackedFile<T>& file, const std::optional<kit::Instant>& fetchedAt) {
        auto* host = hostOf(file.address);
        if (!host) return;
        host->trackers.insert(file.tracker);
        addInterval(*host, pollInterval(file.tracker));
        addTime(*host, fetchedAt);
    }

    /// What a tracker asks besides its files.
    void addAddress(const std::string& address, Tracker tracker, minutes interval) {
        auto* host = hostOf(address);
        if (!host) return;
        host->trackers.insert(tracker);
        addInterval(*host, interval);
    }

    std::map<std::string, ContactedHost> take() { return std::move(hosts_); }

private:
    ContactedHost* hostOf(const std::string& address) {
        const auto parsed = kit::WebAddress::parse(address);
        return parsed ? &hosts_[parsed->host] : nullptr;
    }

    static void addTime(ContactedHost& host, const std::optional<kit::Instant>& asked) {
        if (asked && (!host.lastAsked || *asked > *host.lastAsked)) host.lastAsked = asked;
    }

    static void addInterval(ContactedHost& host, minutes interval) {
        if (host.interval == minutes(0) || interval < host.interval) host.interval = interval;
    }

    std::map<std::string, ContactedHost> hosts_;
};

}  // namespace

std::map<std::string, ContactedHost> contactedHosts(const DeskStores& stores,
                                                    const FetchCounts& fetches) {
    HostCollector hosts;
    const auto& news = stores.news;
    const auto& defaults = stores.defaults;
    for (const auto& source : news.sources()) {
        if (!news.enabledSourceIDs().contains(source.id)) continue;
        const auto count = fetches.find(source.id);
        hosts.addSource(source, news.sourceStatus(source.id), minutes(defaults.refreshMinutes()),
                        count == fetches.end() ? 0 : count->second);
    }
    auto& trackers = stores.trackers;
    const TrackedFiles files{defaults.serviceAddress()};
    hosts.addFile(files.status(kit::StatusFeed::consumer), trackers.consumerStatus().fetchedAt);
    hosts.addFile(files.status(kit::StatusFeed::developer), trackers.developerStatus().fetchedAt);
    hosts.addFile(files.releases(), trackers.releases().fetchedAt);
    hosts.addFile(files.events(), trackers.events().fetchedAt);
    hosts.addFile(files.quote(TrackedFiles::kShare, defaults.quoteRange()),
                  trackers.quote().fetchedAt);
    hosts.addFile(files.board(), trackers.board().fetchedAt);
    for (const auto& device : defaults.signingDevices())
        hosts.addFile(files.signing(device), trackers.signing(device).fetchedAt);
    hosts.addFile(files.updates(), trackers.updates().fetchedAt);
    for (const auto& row : kit::enumTable<kit::AppStoreCharts::Kind>)
        hosts.addFile(files.chart(row.value), trackers.chart(row.value).fetchedAt);
    for (const auto& file : filingFiles(defaults.contactAddress()))
        hosts.addFile(file, trackers.valueOf(file).fetchedAt);
    if (!defaults.contactAddress().empty())
        hosts.addAddress(filingListAddress(), Tracker::filings, std::chrono::days(1));
    const FollowedFeeds followed(stores.defaults);
    for (const auto& file : docketFiles(followed))
        hosts.addFile(file, trackers.valueOf(file).fetchedAt);
    for (const auto& file : pressFiles(followed, defaults.serviceAddress()))
        hosts.addFile(file, trackers.valueOf(file).fetchedAt);
    return hosts.take();
}

}  // namespace app
