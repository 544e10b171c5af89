#pragma once

#include <vector>

#include <QString>

#include "NewsroomKit/Newsrooms/GridFrame.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"

namespace app {

/// A page that looks like a newsroom but is the desk's own. Its panels may show what no panel
/// of a newsroom shows.
struct BuiltInPage {
    struct Panel {
        PageContent content{};
        QString title{};
        QString symbol{};
        kit::GridFrame frame{};
    };

    QString title{};
    std::vector<Panel> panels{};
};

}  // namespace app
