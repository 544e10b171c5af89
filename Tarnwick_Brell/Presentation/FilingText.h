#pragma once

#include <QString>

#include "NewsroomKit/Panels/FilingsContent.h"

/// Filings in words.
namespace app {

/// "accepted 16:31 New York, dated the next day". Where the time of acceptance is doubtful, only
/// the legal day: "dated 2026-11-20".
QString filingTimesText(const kit::FilingRow& row);

/// What a filing tells, with the title of its press release.
QString filingWordsText(const kit::FilingRow& row);

}  // namespace app
