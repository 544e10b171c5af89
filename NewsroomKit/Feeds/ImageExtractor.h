#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Feeds/AddressBase.h"

namespace kit {

/// True when the address can be fetched from the web and is not an emoji, counter or share button.
bool isWebPicture(std::string_view address);

/// Whether a width or height as publishers write it ("1", "1px") is that of a counting pixel.
bool isPixelSize(std::string_view size);

/// Address of the first picture in the HTML that can represent the whole item: isWebPicture holds,
/// and neither name nor size is that of a counting pixel. Relative addresses are completed by
/// `base` and `xmlBase`.
std::optional<std::string> firstPicture(std::string_view html, AddressBase& base,
                                        std::string_view xmlBase = {});

}  // namespace kit
