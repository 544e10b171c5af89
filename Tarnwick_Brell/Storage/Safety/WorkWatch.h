#pragma once

#include <functional>
#include <stop_token>

namespace app {

/// Follows long work on a library, on the thread that does it, and can give it up.
struct WorkWatch {
    std::stop_token stop{};
    /// What share of the library has been copied, from 0 to 1. Checks have no measure: they come
    /// before it and after 1.
    std::function<void(double share)> progress{};
};

}  // namespace app
