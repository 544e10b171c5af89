#pragma once

#include <string>
#include <string_view>

namespace kit {

/// The form in which names of outlets are compared.
std::string foldedOutletName(std::string_view name);

}  // namespace kit
