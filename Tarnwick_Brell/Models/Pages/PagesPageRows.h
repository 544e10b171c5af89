#pragma once

#include <vector>

#include <QString>

#include "Tarnwick_Brell/Models/Pages/PagesPageModel.h"

/// What the page of followed pages shows, as texts.
namespace app {

inline constexpr int kLongestPageName = 120;

FollowedPageLine followedPageLine(const kit::PageRow& row, kit::Instant now);
FollowedPageLine suggestedPageLine(const kit::SuggestedPage& page);

/// `group` stands above the first of them.
void addChangeLines(std::vector<PageChangeLine>& lines,
                    const std::vector<kit::PageChangeRow>& changes, const QString& group,
                    ChangesView::Value view);
/// The whole text; headings are blocks of it.
void addTextLines(std::vector<PageChangeLine>& lines, const std::vector<kit::PageChangeRow>& text);
void addLeftOutLines(std::vector<PageChangeLine>& lines,
                     const std::vector<kit::VolatileBlock>& leftOut);

}  // namespace app
