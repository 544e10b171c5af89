#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Signals/Signal.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/SQLite/SearchText.h"

namespace app {

using kit::LoggedSignal;

/// Which signals are wanted.
struct SignalSelection {
    std::vector<kit::SignalKind> kinds{};  ///< none: all
    kit::SignalWeight leastWeight = kit::SignalWeight::routine;
    SearchText search{};                   ///< in titles, details and subjects
    std::optional<kit::Instant> since{};   ///< seen at or after
    std::optional<kit::Instant> until{};   ///< seen before
    std::optional<std::int64_t> before{};  ///< logged before the one with that number

    bool operator==(const SignalSelection&) const = default;
};

/// Everything that happened outside the wire, kept permanently.
class SignalLog {
public:
    explicit SignalLog(Database& database) : database_(database) {}

    /// Logs the signals whose ids are not in the log yet, and returns these.
    std::vector<kit::Signal> add(std::span<const kit::Signal> added);

    /// The last logged first.
    std::vector<LoggedSignal> newest(std::size_t most, const SignalSelection& selection = {});

    std::optional<LoggedSignal> find(std::string_view id);

    /// The signals after the one with that number, in the order of the log.
    std::vector<LoggedSignal> after(std::int64_t number);
    std::int64_t lastNumber();  ///< 0 when there is none

    std::int64_t countAfter(std::int64_t number);
    std::optional<kit::Instant> begin();  ///< when the first one was seen

private:
    Database& database_;
};

}  // namespace app
