#pragma once

#include "NewsroomKit/Records/Instant.h"

namespace app {

/// The wall clock, asked only here.
kit::Instant currentInstant();

}  // namespace app
