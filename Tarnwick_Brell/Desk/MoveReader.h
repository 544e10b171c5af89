#pragma once

#include <vector>

#include "NewsroomKit/Panels/MovesContent.h"
#include "NewsroomKit/Records/Instant.h"

namespace app {

class LocalStore;

/// The moves of a quote over a year since `from`, with the reasons that stories of the library
/// give. Takes as long as it takes to read the stories of that time. Throws StoreError.
std::vector<kit::MoveRow> readMoves(LocalStore& store, const kit::StockQuote& year,
                                    kit::Instant from);

}  // namespace app
