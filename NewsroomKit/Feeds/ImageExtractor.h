#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Feeds/AddressBase.h"

namespace kit {

/// An address that can be fetched from the web and is no emoji, counter or share button.
bool isWebPicture(std::string_view address);

/// Whether a width or height as publishers write it ("1", "1px") is that of a counting pixel.
bool isPixelSize(std::string_view size);

/// Address of the first picture in the HTML that can stand for the whole item: isWebPicture
/// and no counting pixel by its name or size. Relative addresses are completed by `base` and
/// `xmlBase`.
std::optional<std::string> firstPicture(std::string_view html, AddressBase& base,
                                        std::string_view xmlBase = {});

}  // namespace kit
