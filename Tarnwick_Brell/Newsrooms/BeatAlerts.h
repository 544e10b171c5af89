#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelKind.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Signals/Signal.h"
#include "Tarnwick_Brell/Desk/Announcement.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace app {

/// A panel with alerts on.
struct AlertingPanel {
    std::string id{};
    std::string name{};  ///< "Desk – Status", after its newsroom

    bool operator==(const AlertingPanel&) const = default;
};

/// The first panel with alerts on, in any newsroom, that wants alerts of that kind. For stories
/// BeatAlerts decides.
std::optional<AlertingPanel> panelAskingFor(kit::PanelAlert alert,
                                            const NewsroomRecords& newsrooms);

/// The same for releases of a platform, among those that the panel shows.
std::optional<AlertingPanel> panelAskingForRelease(std::string_view platform,
                                                   const NewsroomRecords& newsrooms);

/// The first panel with alerts on that shows the signal among records, findings or followed pages.
std::optional<AlertingPanel> panelAskingForSignal(const kit::Signal& signal,
                                                  const NewsroomRecords& newsrooms);

/// Stories that one beat or one panel alerts the user to.
struct BeatMatch {
    std::string id{};          ///< of the beat or panel
    std::string name{};        ///< what the user calls it
    std::string newsroomID{};  ///< that the panel stands on; empty for a beat
    Announcement announcement{};
};

/// Decides which new stories a beat or panel alerts the user to. A story that several want is
/// alerted once: beats come before panels, both in the user's order.
class BeatAlerts {
public:
    BeatAlerts(const BeatRecords& beats, const NewsroomRecords& newsrooms);

    struct Sorted {
        std::vector<BeatMatch> matches{};
        std::vector<kit::Story> others{};  ///< that no beat and no panel wants
    };
    /// `news` is newest first.
    Sorted sort(const std::vector<kit::Story>& news) const;

private:
    struct Watch {
        bool wants(const kit::Story& story) const;

        std::string id;
        std::string name;
        kit::CompiledStoryQuery query;
        kit::PanelKind kind;
        std::string newsroomID{};
    };

    void watchPanels(const kit::NewsroomSpec& spec);

    std::vector<Watch> watches_;
};

}  // namespace app
