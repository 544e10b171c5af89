#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/PageBlock.h"
#include "NewsroomKit/Pages/PageTree.h"
#include "NewsroomKit/Pages/VisibleText.h"

namespace kit {

/// The blocks of an element's visible text, in order. `base` completes addresses of links; those
/// that do not lead to a page of the web are left out.
std::vector<PageBlock> readBlocks(const PageTree& tree, const VisibleText& visible,
                                  PageTree::Index root, std::string_view base);

}  // namespace kit
