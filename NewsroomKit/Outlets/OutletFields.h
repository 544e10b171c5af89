#pragma once

#include <string>
#include <string_view>

namespace kit {

/// Calls `use` with each of the parts of a list in the table of outlets.
template <class Use>
void forEachOutletField(std::string_view list, char separator, Use use) {
    while (!list.empty()) {
        const auto end = list.find(separator);
        use(list.substr(0, end));
        list = end == std::string_view::npos ? std::string_view() : list.substr(end + 1);
    }
}

/// The form in which names of outlets are compared.
std::string foldedOutletName(std::string_view name);

}  // namespace kit
