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

/// Makes notifications of what happens, as far as the user's settings want them.
class Alerts {
public:
    using Post = std::function<void(Notification)>;

    /// Of more matches of a beat, or changes of signing or updates, the user is told in one
    /// notification.
    static constexpr std::size_t kMostMatchesOneByOne = 3;

    Alerts(const Defaults& defaults, kit::Clock clock, Post post);

    /// Who decides whether the user is told: the settings, or a panel with alerts on, which asks
    /// to be told whatever the settings say.
    enum class Asked { bySettings, byPanel };

    void serviceProblem(const kit::AppleServiceStatus::Report& report,
                        Asked asked = Asked::bySettings);
    void serviceRestored(const std::string& service, Asked asked = Asked::bySettings);
    void newRelease(const kit::NewBuild& build, Asked asked = Asked::bySettings);
    // No setting is about these: call them when a panel asks.
    void signing(const std::vector<kit::SigningNews>& news);
    void updates(const std::vector<kit::OfferChange>& changes);

    // Their texts, for whoever tells the user in another way.
    static Notification ofProblem(const kit::AppleServiceStatus::Report& report);
    static Notification ofRecovery(const std::string& service, kit::Instant now);
    static Notification ofRelease(const kit::NewBuild& build);

    void stories(const Announcement& announcement);
    /// Whether the beat alerts is the caller's to know. `stories`: the newest of `total`; `page`:
    /// where a crowd of them can be seen.
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
