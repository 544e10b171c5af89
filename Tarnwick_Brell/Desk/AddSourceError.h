#pragma once

#include <string>

namespace app {

/// Why a typed address gives no source.
struct AddSourceError {
    enum class Kind {
        alreadyAdded,    ///< `detail` is the name of the source that has the feed
        invalidAddress,  ///< the text is no address and no handle
        empty,           ///< a feed without a story
        fetchFailed      ///< `detail` is the fetch's own text
    };

    Kind kind = Kind::invalidAddress;
    std::string detail{};

    /// The text shown to the user.
    std::string description() const;

    bool operator==(const AddSourceError&) const = default;
};

}  // namespace app
