#include "tests/Tarnwick_Brell/Interface/Controls/ControlsSetup.h"

#include <QtQuickTest>

QUICK_TEST_MAIN_WITH_SETUP(controls, ControlsSetup)
