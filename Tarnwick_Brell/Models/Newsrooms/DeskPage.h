#pragma once

#include <vector>

#include <QString>

#include "NewsroomKit/Newsrooms/GridFrame.h"
#include "Tarnwick_Brell/Models/Panels/PanelContent.h"

namespace desk {

/// A page that looks like a newsroom but is the desk's own. Its panels may show what no panel
/// of a newsroom does.
struct DeskPage {
    struct Panel {
        PanelContent::Kind kind{};
        QString title{};
        QString symbol{};
        newsroom::GridFrame frame{};
    };

    QString title{};
    std::vector<Panel> panels{};
};

}  // namespace desk
