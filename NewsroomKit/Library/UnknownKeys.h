#pragma once

#include <string_view>
#include <tuple>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// What a record says under keys that this version does not know.
template <class R>
json::object unknownKeys(const json::object& object) {
    json::object unknown;
    for (const auto& pair : object) {
        const bool isKnown = std::apply(
            [&](const auto&... f) { return ((f.key == std::string_view(pair.key())) || ...); },
            JSONFields<R>::fields);
        if (!isKnown) unknown.emplace(pair.key(), pair.value());
    }
    return unknown;
}

}  // namespace kit
