#pragma once

#include <vector>

#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "tools/pictures/PictureView.h"

namespace pictures {

/// What the user keeps: clips, notes, projects. The library is filled with some first.
std::vector<View> libraryViews(app::NewsDesk& news, app::LibraryStore& kept);

}  // namespace pictures
