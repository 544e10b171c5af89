#pragma once

#include "Tarnwick_Brell/Storage/LocalStore.h"

/// Fills the histories of a library as if the desk had run for three months, with invented
/// incidents and builds. A library that has any stays as it is.
void addPastMonths(app::LocalStore& store, kit::Instant now);
