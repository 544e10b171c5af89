#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "NewsroomKit/Trackers/Releases/NewBuilds.h"
#include "Tarnwick_Brell/Desk/Announcement.h"
#include "Tarnwick_Brell/Notifications/Notification.h"
#include "NewsroomKit/Trackers/Signing/SigningNews.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// Turns events into notifications, as the user's settings and panels request.
class Alerts {
public:
    using Post = std::function<void(Notification)>;

    /// Above this number, a beat's matches, or changes of signing or updates, are posted as one
    /// notification.
    static constexpr std::size_t kMostMatchesOneByOne = 3;

    Alerts(const Defaults& defaults, kit::Clock clock, Post post);

    /// Who requests a notification: the settings, or a panel with alerts on, which overrides the
    /// settings.
    enum class Asked { bySettings, byPanel };

    void serviceProblem(const kit::AppleServiceStatus::Report& report,
                        Asked asked = Asked::bySettings);
    void serviceRestored(const std::string& service, Asked asked = Asked::bySettings);
    void newRelease(const kit::NewBuild& build, Asked asked = Asked::bySettings);
    // No setting is about these: call them when a panel asks.
    void signing(const std::vector<kit::SigningNews>& news);
    void updates(const std::vector<kit::OfferChange>& changes);

    // The texts of notifications, for other ways of informing the user.
    static Notification ofProblem(const kit::AppleServiceStatus::Report& report);
    static Notification ofRecovery(const std::string& service, kit::Instant now);
    static Notification ofRelease(const kit::NewBuild& build);

    void stories(const Announcement& announcement);
    /// The caller checks whether the beat has alerts on. `stories` are the newest of `total`;
    /// `page` is shown for a summary of many.
    void beat(const std::string& name, const std::string& id,
              const std::vector<kit::Story>& stories, std::size_t total,
              const NotificationTarget& page);

private:
    void post(std::string_view setting, Notification notification, Asked asked = Asked::bySettings);
    void post(Notification notification);
    void postEachOrAll(std::vector<Notification> notifications, Notification summary);

    const Defaults& defaults_;
    kit::Clock clock_;
    Post post_;
};

}  // namespace app
