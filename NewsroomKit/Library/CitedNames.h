#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// An author as references write them. An organisation, and a name that can't be taken apart, is
/// in `family` alone.
struct CitedName {
    std::string family{};
    std::string given{};
    std::string suffix{};  ///< "Jr.", "III"

    bool isWhole() const { return given.empty(); }
    /// "Jane van Doe Jr."
    std::string asSpoken() const;

    bool operator==(const CitedName&) const = default;
};

/// The names in a byline: "By Jane Doe and John Roe", "Doe, Jane", "Jane Doe; Bloomberg News". A
/// byline that is one of `outlets` is that organisation.
std::vector<CitedName> citedNames(std::string_view byline, std::span<const std::string> outlets);

}  // namespace kit
