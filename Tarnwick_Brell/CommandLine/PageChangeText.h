#pragma once

#include <vector>

#include <boost/json/object.hpp>

#include "NewsroomKit/Panels/PagesContent.h"
#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

namespace cli {

/// Each below the headings under which it stands: its text with [-removed-] and {+added+} words,
/// which a terminal shows in colours too; where links lead elsewhere, a sentence.
void printPageChanges(Output& out, const std::vector<kit::PageChangeRow>& changes);

boost::json::object changeObject(const kit::PageChangeRow& change);

}  // namespace cli
