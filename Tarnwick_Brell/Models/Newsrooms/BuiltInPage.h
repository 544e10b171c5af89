#pragma once

#include <vector>

#include <QString>

#include "NewsroomKit/Newsrooms/GridFrame.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

namespace app {

/// A page that looks like a newsroom but is the desk's own. Its panels may show what no panel
/// of a newsroom does.
struct BuiltInPage {
    struct Panel {
        PanelModel::Kind kind{};
        QString title{};
        QString symbol{};
        kit::GridFrame frame{};
    };

    QString title{};
    std::vector<Panel> panels{};
};

}  // namespace app
