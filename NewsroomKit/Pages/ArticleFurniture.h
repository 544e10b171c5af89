#pragma once

#include "NewsroomKit/Pages/PageTree.h"
#include "NewsroomKit/Pages/VisibleText.h"

namespace kit {

/// Leaves out what stands around articles on every site: navigation, comments, teasers of other
/// stories, calls to share and to subscribe, advertisements, notices about cookies. It is known by
/// its element, its role or the words of its class and id.
void dropFurniture(const PageTree& tree, VisibleText& visible);

/// Leaves out what stands inside an article without belonging to its text: lists of links to other
/// stories, its byline, its title.
void dropInsertions(const PageTree& tree, VisibleText& visible, PageTree::Index root,
                    std::string_view title);

/// Whether class and id speak of the text of an article.
bool namesArticleText(const PageTree& tree, const PageTree::Node& node);

}  // namespace kit
