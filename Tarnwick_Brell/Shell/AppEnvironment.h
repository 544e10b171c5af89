#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Alerts/AlertDesk.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Library/SavedTextFetcher.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Notifications/Alerts.h"
#include "Tarnwick_Brell/Notifications/Notifier.h"
#include "Tarnwick_Brell/Shell/LibraryMaintenance.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryLock.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

/// Creates and owns every store and service of a long-lived desk, the window or `brell watch`.
/// Needs a running Qt event loop.
class AppEnvironment {
public:
    struct Options {
        Paths paths{};
        kit::CurlTransport::Options network{};
        kit::Clock clock{};
        std::string_view what{};  ///< this desk's name in the message to a second one
    };

    /// Throws LibraryInUseError when another desk has the library open, or StoreError.
    explicit AppEnvironment(const Options& options);

    /// Loads the library and begins to refresh.
    void start();

    Defaults& defaults() { return defaults_; }
    NewsDesk& newsDesk() { return newsDesk_; }
    TrackerStore& trackers() { return trackers_; }
    NewsroomStore& newsrooms() { return newsrooms_; }
    Notifier& notifier() { return notifier_; }
    AlertStore& alertStore() { return alertStore_; }
    LibraryStore& kept() { return kept_; }
    const std::filesystem::path& library() const { return library_; }

private:
    static const Paths& prepared(const Paths& paths);
    void connectTrackers();
    void connectNewsrooms();
    void connectAlerts();
    void recordSettings();
    template <class News, class Alert>
    void alertOn(void (TrackerStore::*signal)(const News&), Alert alert);
    void announce(const std::vector<kit::Story>& news);

    std::filesystem::path library_;
    LibraryLock lock_;
    Defaults defaults_;
    NewsDesk newsDesk_;
    TrackerStore trackers_;
    NewsroomStore newsrooms_;
    LibraryStore kept_;
    Notifier notifier_;
    AlertStore alertStore_;
    AlertDesk alertDesk_;
    Alerts alerts_;
    SavedTextFetcher savedTexts_;
    LibraryMaintenance care_;
};

}  // namespace app
