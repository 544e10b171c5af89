#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "NewsroomKit/Attribution/Telling.h"

namespace kit {

/// The outlet at the end of the credits.
struct CreditedOrigin {
    std::string outlet{};  ///< empty when two are credited equally often
    std::string key{};
    bool isLinked = false;  ///< a credit has a link, not only the name
};

/// Follows the credits to the outlets that are credited and credit nobody. Of several the one with
/// links, then the one that most outlets credit. Nothing without credits, or where they only lead
/// round in circles.
std::optional<CreditedOrigin> creditedOrigin(std::span<const Telling> tellings);

/// How many other outlets credit that one.
std::int64_t creditingOutlets(std::span<const Telling> tellings, const std::string& key);

}  // namespace kit
