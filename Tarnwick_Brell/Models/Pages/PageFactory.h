#pragma once

#include <memory>

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"

namespace app {

class PageModel;

/// Whether the place is a page of its own. A tracker without one is shown as panels.
bool isPage(const Destination& place);

/// The key of the row of the sidebar that leads to the place: a timeline's without its subject.
QString sidebarKey(const Destination& place);

/// The page of this place; null when it has none.
std::unique_ptr<PageModel> makePage(const DeskStores& stores, const Destination& place);

}  // namespace app
