#pragma once

#include <string_view>

#include "Tarnwick_Brell/Storage/Tables/RecordTable.h"

namespace app {

/// The built-in newsroom as every library has it without a record. Its panels have the same ids
/// each time and on every computer, so that what names one finds it again.
RecordTable::Row untouchedNewsroom();

/// Whether the record says nothing but what the built-in newsroom says, whatever the ids of its
/// panels.
bool isUntouchedNewsroom(std::string_view record);

}  // namespace app
