#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelKind.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Desk/Announcement.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace app {

/// Stories that one beat, or one panel, tells the user of.
struct BeatMatch {
    std::string id{};          ///< of the beat or panel
    std::string name{};        ///< what the user calls it
    std::string newsroomID{};  ///< that the panel stands on; empty for a beat
    Announcement announcement{};
};

/// Which of the stories that have arrived the user wants to be told of, and by which beat. A
/// story that several ask for is told once: beats come before panels, both in the user's order.
class BeatAlerts {
public:
    BeatAlerts(const BeatShelf& beats, const NewsroomShelf& newsrooms);

    struct Sorted {
        std::vector<BeatMatch> matches{};
        std::vector<kit::Story> others{};  ///< that no beat and no panel asks for
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
