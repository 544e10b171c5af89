#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// Which part of the program a log line comes from. The list is closed: a new subject belongs to
/// one of these.
enum class LogCategory { desk, http, feeds, storage, trackers, notifications, window, press };

template <>
inline constexpr std::array<EnumRow<LogCategory>, 8> enumTable<LogCategory>{{
    {LogCategory::desk, "desk", "Desk"},
    {LogCategory::http, "http", "HTTP"},
    {LogCategory::feeds, "feeds", "Feeds"},
    {LogCategory::storage, "storage", "Storage"},
    {LogCategory::trackers, "trackers", "Trackers"},
    {LogCategory::notifications, "notifications", "Notifications"},
    {LogCategory::window, "window", "Window"},
    {LogCategory::press, "press", "Press room"},
}};

/// From the most severe on. `off` is only a threshold: no line has it.
enum class LogLevel { off, error, warning, info, debug };

template <>
inline constexpr std::array<EnumRow<LogLevel>, 5> enumTable<LogLevel>{{
    {LogLevel::off, "off", "Off"},
    {LogLevel::error, "error", "Error"},
    {LogLevel::warning, "warning", "Warning"},
    {LogLevel::info, "info", "Info"},
    {LogLevel::debug, "debug", "Debug"},
}};

/// The least severe level that each category writes.
class LogLevels {
public:
    /// Every category at `info`.
    LogLevels();

    /// Reads "warning", "http=debug" or "warning,http=debug,feeds=off": a level alone holds for all
    /// categories, those that are not named keep `info`. Throws std::invalid_argument with a
    /// sentence for the user.
    static LogLevels parse(std::string_view text);

    /// The message that `parse` would throw, without its full stop; empty when the text is valid.
    static std::string parseError(std::string_view text);

    LogLevel of(LogCategory category) const { return levels_[static_cast<std::size_t>(category)]; }

private:
    std::array<LogLevel, enumTable<LogCategory>.size()> levels_;
};

/// One line of the log: secrets are masked, control characters are gone, its length is bounded.
struct LogLine {
    Instant time;
    LogLevel level = LogLevel::info;
    LogCategory category = LogCategory::desk;
    std::string text;
};

/// "2026-11-22T08:30:00.123Z info http feeds.example answered 304".
std::string logLineText(const LogLine& line);

/// Reads what `logLineText` writes; nothing for other text.
std::optional<LogLine> parseLogLine(std::string_view text);

/// Receives each line. Called from any thread, one call at a time.
using LogSink = std::function<void(const LogLine&)>;

/// Sends the log of this process to `sink`; without one nothing is written. The log is the only
/// global state, because every part may have to report why it failed. Call this before other
/// threads start and, with an empty sink, after they have ended.
void setLog(LogLevels levels, LogSink sink);

bool isLogged(LogCategory category, LogLevel level);

/// Writes a line whatever the levels say; `log` is the ordinary way.
void writeLog(LogCategory category, LogLevel level, std::string_view text);

/// Formats and writes the line when its level is on; costs a comparison when it is not. Headlines
/// and other text of stories may only be written at `debug`.
template <class... Arguments>
void log(LogCategory category, LogLevel level, fmt::format_string<Arguments...> format,
         Arguments&&... arguments) {
    if (isLogged(category, level)) {
        writeLog(category, level, fmt::format(format, std::forward<Arguments>(arguments)...));
    }
}

}  // namespace kit
