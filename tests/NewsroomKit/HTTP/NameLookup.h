#pragma once

#include <string>

namespace newsroom::test {

/// While it lives, looking up its host does not end. This program's lookups do not reach a
/// name server: other names under .example are unknown, numeric addresses are read.
class BlackHole {
public:
    explicit BlackHole(std::string host);
    ~BlackHole();  ///< lets go of the lookups it holds
    BlackHole(const BlackHole&) = delete;
    BlackHole& operator=(const BlackHole&) = delete;

    /// Lookups that ended here so far.
    int visitors() const;
};

}  // namespace newsroom::test
