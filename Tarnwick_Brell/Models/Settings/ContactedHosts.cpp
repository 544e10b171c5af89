#include "Tarnwick_Brell/Models/Settings/ContactedHosts.h"

#include <algorithm>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"

namespace app {

namespace {

using std::chrono::minutes;

class HostCollector {
public:
    void addSource(const kit::NewsSource& source, const SourceStatus& status, minutes cadence) {
        auto* host = hostOf(source.feedURL);
        if (!host) return;
        const auto least =
            std::chrono::ceil<minutes>(std::chrono::duration<double>(source.minimumInterval));
        ++host->sources;
        addInterval(*host, std::max(cadence, least));
        if (status.lastAttempt && (!host->lastAsked || *status.lastAttempt > *host->lastAsked))
            host->lastAsked = status.lastAttempt;
    }

    template <class T>
    void addFile(const TrackedFile<T>& file) {
        auto* host = hostOf(file.address);
        if (!host) return;
        host->trackers.insert(file.tracker);
        addInterval(*host, pollInterval(file.tracker));
    }

    std::map<std::string, ContactedHost> take() { return std::move(hosts_); }

private:
    ContactedHost* hostOf(const std::string& address) {
        const auto parsed = kit::WebAddress::parse(address);
        return parsed ? &hosts_[parsed->host] : nullptr;
    }

    static void addInterval(ContactedHost& host, minutes interval) {
        if (host.interval == minutes(0) || interval < host.interval) host.interval = interval;
    }

    std::map<std::string, ContactedHost> hosts_;
};

}  // namespace

std::map<std::string, ContactedHost> contactedHosts(const NewsDesk& news,
                                                    const Defaults& defaults) {
    HostCollector hosts;
    for (const auto& source : news.sources()) {
        if (news.enabledSourceIDs().contains(source.id)) {
            hosts.addSource(source, news.sourceStatus(source.id),
                            minutes(defaults.refreshMinutes()));
        }
    }
    const TrackedFiles files{defaults.serviceAddress()};
    hosts.addFile(files.status(kit::StatusFeed::consumer));
    hosts.addFile(files.status(kit::StatusFeed::developer));
    hosts.addFile(files.releases());
    hosts.addFile(files.events());
    hosts.addFile(files.quote(TrackedFiles::kShare, defaults.quoteRange()));
    hosts.addFile(files.board());
    for (const auto& device : defaults.signingDevices()) hosts.addFile(files.signing(device));
    hosts.addFile(files.updates());
    for (const auto& row : kit::enumTable<kit::AppStoreCharts::Kind>)
        hosts.addFile(files.chart(row.value));
    return hosts.take();
}

}  // namespace app
