#pragma once

#include <vector>

#include "tools/pictures/PictureView.h"

namespace pictures {

/// Top stories, timelines, corrections, coverage.
std::vector<View> subjectViews(app::NewsDesk& news);

}  // namespace pictures
