#pragma once

#include <string_view>

#include "PressRoom/Pictures/PNG.h"

namespace pressroom {

/// An invented picture of a device, always the same for the same name. Words after the last
/// slash choose the device ("iphone"), the whole name chooses the colours.
Bitmap drawnDevice(std::string_view name);

/// An invented icon of an app, always the same for the same name.
Bitmap drawnIcon(std::string_view name);

}  // namespace pressroom
