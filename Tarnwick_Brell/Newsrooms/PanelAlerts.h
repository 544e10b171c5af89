#pragma once

#include <string_view>

#include "NewsroomKit/Newsrooms/PanelKind.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace app {

/// Whether a panel with alerts on, in any newsroom, asks to be told of such news. Stories are
/// BeatAlerts' subject.
bool panelsAskFor(kit::PanelAlert alert, const NewsroomShelf& newsrooms);

/// The same for releases of that platform, among those that the panel shows.
bool panelsAskForRelease(std::string_view platform, const NewsroomShelf& newsrooms);

}  // namespace app
