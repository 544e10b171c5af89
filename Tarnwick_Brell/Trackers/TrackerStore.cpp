#include "Tarnwick_Brell/Trackers/TrackerStore.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Trackers/PageRounds.h"
#include "Tarnwick_Brell/Trackers/TrackedBackend.h"
#include "Tarnwick_Brell/Trackers/TrackedFilings.h"
#include "Tarnwick_Brell/Trackers/TrackedRecords.h"
#include "Tarnwick_Brell/Trackers/TrackerJobs.h"

namespace app {

TrackerStore::TrackerStore(DeskWorker& worker, Defaults& defaults, kit::Clock clock)
    : worker_(worker),
      defaults_(defaults),
      clock_(std::move(clock)),
      news_(defaults,
            {.onServiceProblem = [this](const auto& report) { emit onServiceProblem(report); },
             .onServiceRestored = [this](const auto& service) { emit onServiceRestored(service); },
             .onNewRelease = [this](const auto& build) { emit onNewRelease(build); },
             .onFailed = [this](const auto& sentence) { fail(sentence); }}),
      scheduler_(clock_, {.beforePoll = [this] { followSettings(); },
                          .begin = [this](Tracker tracker) { poll(tracker); },
                          .changed = [this] { emit refreshChanged(); }}),
      queue_(std::make_shared<MainThreadQueue>()) {
    connect(&defaults_, &Defaults::changed, this, [this] {
        if (isLoaded()) followSettings();
    });
}

// Jobs in flight continue; their results are dropped.
TrackerStore::~TrackerStore() { queue_->close(); }

TrackerJobs TrackerStore::jobs() { return {*this, queue_, clock_}; }

TrackerStore::Files TrackerStore::filesOf(Tracker tracker) const {
    const auto all = files();
    Files list;
    switch (tracker) {
        case Tracker::status:
            return {all.status(kit::StatusFeed::consumer), all.status(kit::StatusFeed::developer)};
        case Tracker::releases: return {all.releases()};
        case Tracker::quotes:
            list = quoteFiles(quoteRange());
            std::ranges::move(yearFiles(), std::back_inserter(list));
            return list;
        case Tracker::board: return {all.board()};
        case Tracker::events: return {all.events()};
        case Tracker::signing:
            for (const auto& device : devices()) list.emplace_back(all.signing(device));
            return list;
        case Tracker::updates: return {all.updates()};
        case Tracker::charts:
            for (const auto& row : kit::enumTable<Chart>) list.emplace_back(all.chart(row.value));
            return list;
        case Tracker::filings:
            for (auto& file : filingFiles(defaults_.contactAddress()))
                list.emplace_back(std::move(file));
            return list;
        case Tracker::court:
            for (auto& file : docketFiles(FollowedFeeds(defaults_)))
                list.emplace_back(std::move(file));
            return list;
        case Tracker::press:
            for (auto& file : pressFiles(FollowedFeeds(defaults_), all.serviceAddress))
                list.emplace_back(std::move(file));
            return list;
        case Tracker::backend:
            for (auto& file : backendFiles()) list.emplace_back(std::move(file));
            return list;
        case Tracker::pages: return {pagesFile(clock_)};
    }
    return list;
}

std::vector<TrackerStore::FileState> TrackerStore::fileStates() const {
    std::vector<FileState> states;
    for (const auto tracker : kTrackers) {
        for (const auto& file : filesOf(tracker))
            states.push_back({tracker, file.title, values_.error(file.name)});
    }
    return states;
}

void TrackerStore::start() {
    polledQuotes_ = namesOf(quoteFiles(quoteRange()));
    polledDevices_ = devices();
    polledContact_ = defaults_.contactAddress();
    load();
}

void TrackerStore::load() {
    Files all;
    for (const auto tracker : kTrackers) {
        for (auto& file : filesOf(tracker)) all.push_back(std::move(file));
    }
    const auto jobs = this->jobs();
    worker_.post(jobs.load(std::move(all)), [jobs](const std::exception& error) {
        jobs.send([sentence = std::string(error.what())](TrackerStore& store) {
            store.fail(sentence);
            store.startPolling();
        });
    });
}

void TrackerStore::applyLoaded(const std::vector<LoadedFile>& loaded,
                               const HistoryUpdates& histories) {
    std::set<Tracker> changed;
    for (const auto& [tracker, name, cached] : loaded) {
        if (!values_.setIfNewer(name, cached)) continue;
        scheduler_.recordCached(cached.fetchedAt);
        changed.insert(tracker);
    }
    for (const auto& [tracker, update] : histories) {
        if (update(histories_)) changed.insert(tracker);
    }
    for (const auto tracker : changed) emitChanged(tracker);
    if (!changed.empty()) emit refreshChanged();
    startPolling();
}

void TrackerStore::applyLogState(const LogState& log) {
    if (log_ == log) return;
    log_ = log;
    emit logChanged();
}

void TrackerStore::markLogLookedAt() {
    if (log_.unseen == 0) return;
    const auto jobs = this->jobs();
    worker_.post(jobs.markLogLookedAt(), [jobs](const std::exception& error) {
        jobs.send(
            [sentence = std::string(error.what())](TrackerStore& store) { store.fail(sentence); });
    });
}

void TrackerStore::startPolling() {
    if (scheduler_.hasStarted()) return;
    PollSchedule::Ages ages;
    for (const auto tracker : kTrackers) {
        std::vector<std::optional<kit::Instant>> times;
        for (const auto& file : filesOf(tracker)) {
            const bool isDaily = tracker == Tracker::quotes && file.isDue;
            if (!isDaily) times.push_back(values_.fetchedAt(file.name));
        }
        // The oldest file counts; a tracker with a file that was never fetched is due.
        const auto oldest = std::ranges::min_element(times);
        if (oldest != times.end() && *oldest) ages.emplace(tracker, **oldest);
    }
    scheduler_.start(ages);
    followMarket();
    scheduler_.poll();
}

void TrackerStore::poll(Tracker tracker) {
    const auto jobs = this->jobs();
    worker_.spawn(
        jobs.fetch(tracker, filesOf(tracker)), [jobs, tracker](const std::exception& error) {
            jobs.send([tracker, sentence = std::string(error.what())](TrackerStore& store) {
                store.scheduler_.recordFetch(tracker, false);
                store.fail(sentence);
                store.finish(tracker);
            });
        });
}

void TrackerStore::applyFetched(const LoadedFile& fetched, const HistoryUpdate& history) {
    scheduler_.recordFetch(fetched.tracker, !fetched.cached.error);
    history(histories_);
    show(fetched);
    if (fetched.tracker == Tracker::quotes) announceQuote(fetched);
    const bool isNewBoard = fetched.tracker == Tracker::board && !fetched.cached.error;
    if (isNewBoard) emit onBoard(board().value.value());
}

void TrackerStore::show(const LoadedFile& file) {
    values_.set(file.name, file.cached);
    if (file.tracker == Tracker::quotes) {
        limitQuotes(file.name);
        followMarket();
    }
    emitChanged(file.tracker);
}

void TrackerStore::finish(Tracker tracker) {
    if (scheduler_.finish(tracker).good > 0) {
        lastFailure_.clear();
        if (tracker == Tracker::status) {
            news_.update(consumerStatus().value, developerStatus().value);
        } else if (tracker == Tracker::releases) {
            news_.update(releases().value.value());
        }
    }
    emit refreshChanged();
    scheduler_.poll();
}

void TrackerStore::emitChanged(Tracker tracker) {
    switch (tracker) {
        case Tracker::status: emit statusChanged(); break;
        case Tracker::releases: emit releasesChanged(); break;
        case Tracker::quotes: emit quotesChanged(); break;
        case Tracker::board: emit boardChanged(); break;
        case Tracker::events: emit eventsChanged(); break;
        case Tracker::signing: emit signingChanged(); break;
        case Tracker::updates: emit updatesChanged(); break;
        case Tracker::charts: emit chartsChanged(); break;
        case Tracker::filings: emit filingsChanged(); break;
        case Tracker::court: emit courtChanged(); break;
        case Tracker::press: emit pressChanged(); break;
        case Tracker::backend: emit backendChanged(); break;
        case Tracker::pages: emit pagesChanged(); break;
    }
}

void TrackerStore::fail(const std::string& sentence) {
    // The same one would come with every refresh.
    if (std::exchange(lastFailure_, sentence) != sentence) {
        emit failed(QString::fromStdString(sentence));
    }
}

void TrackerStore::refreshAll() {
    for (const auto tracker : kTrackers) refresh(tracker);
}

void TrackerStore::setDevices(const std::vector<std::string>& devices) {
    std::string list;
    for (const auto& device : devices) list += (list.empty() ? "" : ", ") + device;
    save(SettingKey::kSigningDevices, list);
}

void TrackerStore::followSettings() {
    const auto now = clock_();
    scheduler_.setInterval(Tracker::filings,
                           filingsInterval(std::chrono::floor<std::chrono::hours>(
                               now - std::chrono::floor<std::chrono::days>(now))));
    if (auto contact = defaults_.contactAddress(); contact != polledContact_) {
        polledContact_ = std::move(contact);
        scheduler_.request(Tracker::filings);
        emit filingsChanged();
    }
    auto quotes = quoteFiles(quoteRange());
    if (auto names = namesOf(quotes); names != polledQuotes_) {
        polledQuotes_ = std::move(names);
        fetchStale(std::move(quotes), kQuoteFreshFor);
        emit quotesChanged();
    }
    if (auto wanted = devices(); wanted != polledDevices_) {
        polledDevices_ = std::move(wanted);
        scheduler_.request(Tracker::signing);
        emit signingChanged();
    }
}

const kit::CachedValue<kit::FilingText>& TrackerStore::filingText(
    const kit::FollowedFiling& filing, const kit::FilingDocument& document) const {
    return values_.of(filingTextFile(filing, document, defaults_.contactAddress()));
}

void TrackerStore::readFilingText(const kit::FollowedFiling& filing,
                                  const kit::FilingDocument& document) {
    constexpr std::chrono::hours kForGood{24 * 365 * 10};
    fetchStale({filingTextFile(filing, document, defaults_.contactAddress())}, kForGood);
}

std::optional<kit::ChartDay> TrackerStore::chartDayBefore(Chart kind) const {
    const auto day = histories_.chartDayBefore.find(kind);
    return day == histories_.chartDayBefore.end() ? std::nullopt : day->second;
}

const std::vector<kit::ChartDay>& TrackerStore::chartDays(Chart kind) const {
    static const std::vector<kit::ChartDay> none;
    const auto days = histories_.chartDays.find(kind);
    return days == histories_.chartDays.end() ? none : days->second;
}

}  // namespace app
