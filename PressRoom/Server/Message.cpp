#include "PressRoom/Server/Message.h"

namespace pressroom {

std::optional<std::string_view> Request::header(std::string_view name) const {
    const auto found = headers.find(name);
    if (found == headers.end()) return std::nullopt;
    return found->second;
}

std::string_view Request::path() const {
    return std::string_view(target).substr(0, target.find('?'));
}

}  // namespace pressroom
