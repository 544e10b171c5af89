#pragma once

#include <string>
#include <string_view>

/// This program's lookups do not reach a name server: names under .example are unknown except for
/// those below, numeric addresses are read.
namespace kit::test {

/// Its only address is one that no computer has a way to.
inline constexpr std::string_view kUnreachableHost = "unreachable.example";
/// Its addresses are loopback and, tried last, the former.
inline constexpr std::string_view kHalfReachableHost = "half-reachable.example";

/// While it lives, looking up its host does not end.
class BlackHole {
public:
    explicit BlackHole(std::string host);
    ~BlackHole();  ///< lets go of the lookups it holds
    BlackHole(const BlackHole&) = delete;
    BlackHole& operator=(const BlackHole&) = delete;

    /// Lookups that ended here so far.
    int visitors() const;
};

}  // namespace kit::test
