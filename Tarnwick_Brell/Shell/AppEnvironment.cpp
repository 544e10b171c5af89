#include "Tarnwick_Brell/Shell/AppEnvironment.h"

#include <utility>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Library/SharedSettings.h"
#include "Tarnwick_Brell/Newsrooms/BeatAlerts.h"

namespace app {

using kit::PanelAlert;

namespace {

NotificationTarget pageOf(const BeatMatch& match) {
    using Kind = NotificationTarget::Kind;
    if (match.newsroomID.empty()) return {.kind = Kind::beat, .id = match.id};
    return {.kind = Kind::newsroom, .id = match.newsroomID};
}

AlertAsker askerOf(const BeatMatch& match) {
    const std::string_view kind = match.newsroomID.empty() ? "beat|" : "panel|";
    return {.id = std::string(kind) + match.id, .name = match.name};
}

Alerts::Asker askerOf(const std::optional<AlertingPanel>& panel) {
    if (!panel) return std::nullopt;
    return AlertAsker{.id = "panel|" + panel->id, .name = panel->name};
}

}  // namespace

AppEnvironment::AppEnvironment(const Options& options)
    : library_(options.paths.library),
      lock_(prepared(options.paths).library, options.what),
      defaults_(options.paths.settings),
      newsDesk_(options.paths.library, options.network, defaults_, options.clock),
      trackers_(newsDesk_.worker(), defaults_, options.clock),
      newsrooms_(newsDesk_.worker(), options.clock),
      kept_(newsDesk_.worker(), options.clock),
      notifier_(defaults_),
      alertStore_(newsDesk_.worker(), options.clock),
      alertDesk_({alertStore_, newsDesk_, newsrooms_, defaults_, options.clock},
                 [this](Notification told) { notifier_.post(std::move(told)); }),
      alerts_(defaults_, options.clock,
              [this](AskedNotification asked) { alertDesk_.take(std::move(asked)); }),
      savedTexts_(newsDesk_, defaults_, options.clock),
      care_(options.paths.library, options.clock) {
    QObject::connect(&care_, &LibraryMaintenance::failed, &newsDesk_, &NewsDesk::failed);
    QObject::connect(&care_, &LibraryMaintenance::libraryDamaged, &newsDesk_,
                     &NewsDesk::libraryDamaged);
    connectTrackers();
    connectNewsrooms();
    connectAlerts();
    QObject::connect(&defaults_, &Defaults::changed, &newsDesk_, [this] { recordSettings(); });
}

void AppEnvironment::recordSettings() {
    newsDesk_.worker().post(
        [settings = travellingSettings(defaults_)](DeskWorker::WorkerContext& context) {
            app::recordSettings(context.store, settings);
        },
        [](const std::exception& error) {
            kit::log(kit::LogCategory::storage, kit::LogLevel::error,
                     "settings are not recorded for other computers: {}", error.what());
        });
}

void AppEnvironment::connectTrackers() {
    const auto goLive = [this] {
        if (const auto& events = trackers_.events().value) newsDesk_.goLiveDuring(*events);
    };
    QObject::connect(&trackers_, &TrackerStore::eventsChanged, &newsDesk_, goLive);
    QObject::connect(&newsDesk_, &NewsDesk::passEnded, &newsDesk_, goLive);

    QObject::connect(&trackers_, &TrackerStore::failed, &newsDesk_, &NewsDesk::failed);
    QObject::connect(&newsDesk_, &NewsDesk::libraryChangedElsewhere, &trackers_,
                     &TrackerStore::load);
    QObject::connect(&newsDesk_, &NewsDesk::networkReturned, &trackers_,
                     &TrackerStore::networkIsBack);
}

void AppEnvironment::connectNewsrooms() {
    QObject::connect(&newsrooms_, &NewsroomStore::failed, &newsDesk_, &NewsDesk::failed);
    QObject::connect(&newsDesk_, &NewsDesk::libraryChangedElsewhere, &newsrooms_,
                     [this] { newsrooms_.load(); });
    QObject::connect(&kept_, &LibraryStore::failed, &newsDesk_, &NewsDesk::failed);
    QObject::connect(&newsDesk_, &NewsDesk::libraryChangedElsewhere, &kept_,
                     &LibraryStore::noteForeignChanges);
    QObject::connect(&alertStore_, &AlertStore::failed, &newsDesk_, &NewsDesk::failed);
    QObject::connect(&newsDesk_, &NewsDesk::libraryChangedElsewhere, &alertStore_,
                     [this] { alertStore_.load(); });
    // Uses the current beats: another program may have changed one with the same pass.
    newsDesk_.onNewStories([this](const std::vector<kit::Story>& news) {
        newsrooms_.load([this, news] { announce(news); });
    });
}

/// A story that a beat has announced is not announced again as a story.
void AppEnvironment::announce(const std::vector<kit::Story>& news) {
    const auto sorted = BeatAlerts(newsrooms_.beats(), newsrooms_.newsrooms()).sort(news);
    for (const auto& match : sorted.matches) {
        const auto& told = match.announcement;
        alerts_.beat(askerOf(match), match.id, told.stories, told.total, pageOf(match));
    }
    alerts_.stories(Announcement::of(sorted.others));
    alertDesk_.takeStories(news);
}

/// Calls `alert` for each item of news with the panels as they are now: another program may have
/// changed them, and at the start they have not been loaded yet.
template <class News, class Alert>
void AppEnvironment::alertOn(void (TrackerStore::*signal)(const News&), Alert alert) {
    QObject::connect(&trackers_, signal, &newsrooms_, [this, alert](const News& news) {
        newsrooms_.load([alert, news] { alert(news); });
    });
}

void AppEnvironment::connectAlerts() {
    const auto panelFor = [this](PanelAlert alert) {
        return askerOf(panelAskingFor(alert, newsrooms_.newsrooms()));
    };
    alertOn(&TrackerStore::onServiceProblem, [=, this](const auto& report) {
        alerts_.serviceProblem(report, panelFor(PanelAlert::serviceStatus));
    });
    alertOn(&TrackerStore::onServiceRestored, [=, this](const auto& service) {
        alerts_.serviceRestored(service, panelFor(PanelAlert::serviceStatus));
    });
    alertOn(&TrackerStore::onNewRelease, [this](const auto& build) {
        const auto& platform = build.platform.platform;
        alerts_.newRelease(build, askerOf(panelAskingForRelease(platform, newsrooms_.newsrooms())));
    });
    alertOn(&TrackerStore::onSigningChanges, [=, this](const auto& changes) {
        if (const auto panel = panelFor(PanelAlert::records))
            alerts_.signing(signingNews(changes), *panel);
    });
    alertOn(&TrackerStore::onOfferChanges, [=, this](const auto& changes) {
        if (const auto panel = panelFor(PanelAlert::backend)) alerts_.updates(changes, *panel);
    });
    QObject::connect(&alertDesk_, &AlertDesk::symbolsWanted, &trackers_,
                     &TrackerStore::setWatchedSymbols);
    QObject::connect(&trackers_, &TrackerStore::onQuote, &alertDesk_, &AlertDesk::takeQuote);
    alertOn(&TrackerStore::onSignals, [this](const auto& logged) {
        alertDesk_.takeSignals(logged);
        for (const auto& signal : logged) {
            if (const auto panel = askerOf(panelAskingForSignal(signal, newsrooms_.newsrooms())))
                alerts_.signal(signal, *panel);
        }
    });
}

const Paths& AppEnvironment::prepared(const Paths& paths) {
    paths.createFolders();
    return paths;
}

void AppEnvironment::start() {
    // Trackers start first, because they read little; the wire occupies the worker for longer.
    trackers_.start();
    newsrooms_.load();
    alertStore_.load();
    newsDesk_.start();
    recordSettings();
    // The check reads the whole file; the first view must not wait for the disk because of it.
    QObject::connect(&newsDesk_, &NewsDesk::loaded, &care_,
                     [this] { care_.start(lock_.lastHolderDied()); });
}

}  // namespace app
