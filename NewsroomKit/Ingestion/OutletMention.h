#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Outlets/Outlet.h"

namespace kit {

/// An outlet's name in a text.
struct OutletMention {
    enum class Certainty {
        known,   ///< it is in the table of outlets
        likely,  ///< "the newspaper X", "Orchard Gazette", "orchard.example"
        named,   ///< any name with a capital
    };

    std::string name{};
    const Outlet* outlet = nullptr;
    Certainty certainty = Certainty::named;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// The name that follows `at`: "The Elec", "Ann Writer of Reuters", "Reuters' Ann Writer".
std::optional<OutletMention> mentionAfter(std::string_view text, std::size_t at);

/// The name that ends before `end`, perhaps with an adverb or an auxiliary verb between:
/// "Reuters has also".
std::optional<OutletMention> mentionBefore(std::string_view text, std::size_t end);

/// Whether one of the outlet's names stands in the text, with or without its article.
bool isNamedIn(std::string_view text, const Outlet& outlet);

}  // namespace kit
