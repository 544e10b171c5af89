#include "Tarnwick_Brell/Models/Pages/PageModel.h"

namespace app {

PageModel::PageModel(const DeskStores& stores, const QString& title)
    : PanelModel({.news = stores.news, .trackers = stores.trackers, .clock = stores.clock}),
      stores_(stores),
      title_(title) {}

}  // namespace app
