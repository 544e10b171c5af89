#pragma once

#include "NewsroomKit/Records/Instant.h"

namespace desk {

/// The wall clock, asked only here.
newsroom::Instant currentInstant();

}  // namespace desk
