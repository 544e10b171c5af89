#pragma once

#include <QString>

#include "NewsroomKit/Attribution/Correction.h"

/// The user's corrections in words.
namespace app {

/// "Confirmed instead of what the rules say", "Bloomberg had it first"
QString correctionText(const kit::Correction& correction);

}  // namespace app
