#pragma once

#include <QString>

#include "NewsroomKit/Library/Clip.h"
#include "Tarnwick_Brell/Presentation/Style.h"

/// What the user keeps, in words.
namespace app {

/// The quote on one line, in quotation marks.
QString quoteText(const kit::Clip& clip);

/// "Harbour Post, A. Writer, 16 May: Headline"
QString clipSourceText(const kit::Clip& clip, kit::Instant now,
                       const Style& style = Style::ofUser());

}  // namespace app
