#pragma once

#include <stdexcept>
#include <string>

namespace app {

/// An operation of the store on disk failed; what() is a sentence for the user.
class StoreError : public std::runtime_error {
public:
    enum class Reason {
        unreadable,
        readOnly,
        diskFull,
        busy,
        damaged,
        newerVersion,
        olderVersion,
        other
    };

    StoreError(Reason reason, const std::string& sentence)
        : std::runtime_error(sentence), reason_(reason) {}

    Reason reason() const { return reason_; }

private:
    Reason reason_;
};

}  // namespace app
