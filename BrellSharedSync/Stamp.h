#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace shared {

namespace json = boost::json;

/// Who writes, and what that computer's clock says.
struct Author {
    std::string machine{};  ///< lower-case letters and digits, see `isMachineID`
    std::int64_t milliseconds = 0;
};

/// When a field was written. An order of all writes on all computers, in which an edit always comes
/// behind what its author saw, whatever the clocks say.
struct Stamp {
    std::int64_t milliseconds = 0;  ///< since 1970, more or less
    std::string machine{};

    auto operator<=>(const Stamp&) const = default;

    /// "1763862000000-k3x9q2ab"
    std::string text() const;
    /// Throws kit::RecordError.
    static Stamp parse(std::string_view text);

    /// The stamp of a write by an author who saw stamps up to `latest`.
    static Stamp behind(std::int64_t latest, const Author& author);
};

bool isMachineID(std::string_view text);

/// Sorted stamps, each once, as {"k3x9q2ab": [1763862000000, 5200, …]}: by machine, the first in
/// full and each further one as what it is later.
json::object stampsJSON(const std::vector<Stamp>& sorted);
/// Throws kit::RecordError.
std::vector<Stamp> stampsFromJSON(const json::value& value);

/// Adds `more` to sorted stamps.
void addStamps(std::vector<Stamp>& sorted, const std::vector<Stamp>& more);
bool contains(const std::vector<Stamp>& sorted, const Stamp& stamp);

}  // namespace shared
