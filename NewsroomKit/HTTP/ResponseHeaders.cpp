#include "NewsroomKit/HTTP/ResponseHeaders.h"

#include <algorithm>

namespace kit {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool isSameName(std::string_view one, std::string_view other) {
    return std::ranges::equal(one, other, {}, lower, lower);
}

}  // namespace

void ResponseHeaders::add(std::string_view name, std::string_view value) {
    headers_.emplace_back(name, value);
}

std::optional<std::string_view> ResponseHeaders::find(std::string_view name) const {
    for (const auto& [known, value] : headers_) {
        if (isSameName(known, name)) return value;
    }
    return std::nullopt;
}

}  // namespace kit
