#pragma once

#include <QString>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Stories/Story.h"

namespace app {

/// What the rules say of the story, whatever the user does.
kit::Sourcing rulesSourcing(const kit::Story& story);

/// "Report → Confirmed, corrected by you", for a story that has the label already.
QString correctedLabelText(const kit::Story& story, const kit::CorrectionOverlay::Label& label);

}  // namespace app
