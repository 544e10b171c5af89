#pragma once

#include <string_view>

#include <QString>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

/// A tracker's address as a link, or nothing when it leads anywhere but to a web page.
inline QString webLink(std::string_view address) {
    return address.starts_with("https://") || address.starts_with("http://") ? plainText(address)
                                                                             : QString();
}

}  // namespace app
