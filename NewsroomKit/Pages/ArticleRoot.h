#pragma once

#include "NewsroomKit/Pages/PageTree.h"
#include "NewsroomKit/Pages/VisibleText.h"

namespace kit {

/// The element that holds a page's article: the smallest that has most of the page's prose. The
/// whole page when it has hardly any links, as filings and plain documents do.
PageTree::Index articleRoot(const PageTree& tree, const VisibleText& visible);

}  // namespace kit
