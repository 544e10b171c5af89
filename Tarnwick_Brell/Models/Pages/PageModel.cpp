#include "Tarnwick_Brell/Models/Pages/PageModel.h"

#include "Tarnwick_Brell/Models/Rows/ViewFile.h"

namespace app {

PageModel::PageModel(const DeskStores& stores, const QString& title)
    : PanelModel({.news = stores.news,
                  .trackers = stores.trackers,
                  .kept = stores.kept,
                  .clock = stores.clock}),
      stores_(stores),
      title_(title) {}

QString PageModel::barFile() const {
    return hasBar() ? viewFile(*this).replace(QStringLiteral(".qml"), QStringLiteral("Bar.qml"))
                    : QString();
}

}  // namespace app
