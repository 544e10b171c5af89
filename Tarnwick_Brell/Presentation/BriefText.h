#pragma once

#include <QString>

#include "NewsroomKit/Panels/Brief.h"
#include "Tarnwick_Brell/Presentation/Style.h"

/// The sentences of briefs.
namespace app {

/// A topic's headline, "App Store is having a problem since 14:32.", "iOS 26.6 is out, build
/// 23G90.", "Apple posted 3 times, last: …".
QString briefSentence(const kit::BriefItem& item, kit::Instant now,
                      const Style& style = Style::ofUser());

/// What the sentence rests on: outlets with their times, "System Status 14:40".
QString briefSources(const kit::BriefItem& item, kit::Instant now,
                     const Style& style = Style::ofUser());

/// Instead of an empty brief.
QString nothingNewText(const kit::BriefContent& content);

}  // namespace app
