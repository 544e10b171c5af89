#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Stories/Story.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Releases/NewBuilds.h"
#include "Tarnwick_Brell/Desk/Announcement.h"
#include "Tarnwick_Brell/Notifications/Notification.h"
#include "NewsroomKit/Trackers/Signing/SigningNews.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// Who wants to be told of an event: a setting, a beat or a panel.
struct AlertAsker {
    std::string id{};    ///< "setting|alertReleases", "beat|" or "panel|" with its id
    std::string name{};  ///< what the user calls it

    bool operator==(const AlertAsker&) const = default;
};

/// The notification of an event, which its asker wants once.
struct AskedNotification {
    AlertAsker asker{};
    std::string event{};  ///< "story|" with its id; for others made from what happened
    Notification notification{};

    bool operator==(const AskedNotification&) const = default;
};

/// Turns events into notifications, as the user's settings and panels request.
class Alerts {
public:
    using Post = std::function<void(AskedNotification)>;

    /// Above this number, a beat's matches, or changes of signing or updates, are posted as one
    /// notification.
    static constexpr std::size_t kMostMatchesOneByOne = 3;

    Alerts(const Defaults& defaults, kit::Clock clock, Post post);

    using Asker = std::optional<AlertAsker>;

    // A panel with alerts on overrides the settings; without one the settings decide.
    void serviceProblem(const kit::AppleServiceStatus::Report& report, const Asker& panel = {});
    void serviceRestored(const std::string& service, const Asker& panel = {});
    void newRelease(const kit::NewBuild& build, const Asker& panel = {});
    // No setting is about these: call them when a panel asks.
    void signing(const std::vector<kit::SigningNews>& news, const AlertAsker& panel);
    void updates(const std::vector<kit::OfferChange>& changes, const AlertAsker& panel);
    void signal(const kit::Signal& signal, const AlertAsker& panel);

    // The texts of notifications, for other ways of informing the user.
    static Notification ofProblem(const kit::AppleServiceStatus::Report& report);
    static Notification ofRecovery(const std::string& service, kit::Instant now);
    static Notification ofRelease(const kit::NewBuild& build);
    static Notification ofSignal(const kit::Signal& signal);
    static Notification ofStory(const kit::Story& story);

    void stories(const Announcement& announcement);
    /// Of a beat or a panel: the caller checks whether it has alerts on. `stories` are the newest
    /// of `total`; `page` is shown for a summary of many.
    void beat(const AlertAsker& beat, const std::string& id, const std::vector<kit::Story>& stories,
              std::size_t total, const NotificationTarget& page);

private:
    void postBySetting(std::string_view setting, std::string event, Notification notification,
                       const Asker& panel = {});
    void post(const AlertAsker& asker, std::string event, Notification notification);
    std::string eventNow(const Notification& notification) const;
    void postEachOrAll(const AlertAsker& asker, std::vector<Notification> notifications,
                       Notification summary);

    const Defaults& defaults_;
    kit::Clock clock_;
    Post post_;
};

}  // namespace app
