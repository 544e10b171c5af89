#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

#include "Tarnwick_Brell/Storage/Histories/SignalLog.h"

namespace app {

/// A piece of the log of signals.
struct LogPage {
    std::vector<LoggedSignal> found{};    ///< the last logged first
    bool isLast = true;                   ///< nothing older matches
    std::int64_t total = 0;               ///< signals in the whole log
    std::optional<kit::Instant> begin{};  ///< when the first of them was seen
};

/// Reads at most so many on a connection of its own: not for the main thread. Throws StoreError.
LogPage readLog(const std::filesystem::path& library, const SignalSelection& selection,
                std::size_t most);

}  // namespace app
