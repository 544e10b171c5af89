#include "NewsroomKit/Log/Log.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <optional>
#include <stdexcept>

#include "NewsroomKit/Addresses/URLRedaction.h"

namespace kit {

namespace {

constexpr std::size_t kLongestText = 2'000;  ///< bytes

struct ProcessLog {
    std::array<std::atomic<LogLevel>, enumTable<LogCategory>.size()> levels{};  ///< off
    std::mutex mutex;
    LogSink sink;
};

ProcessLog& processLog() {
    // Never destroyed: a thread that ends late may still write.
    static auto* log = new ProcessLog;
    return *log;
}

/// One line without control characters, cut between characters.
std::string oneLine(std::string_view text) {
    std::string line(text.substr(0, kLongestText));
    if (line.size() < text.size()) {
        const auto isContinuation = [](char byte) { return (byte & 0xC0) == 0x80; };
        while (!line.empty() && isContinuation(text[line.size()])) line.pop_back();
        line += "…";
    }
    for (auto& byte : line) {
        if (static_cast<unsigned char>(byte) < 0x20 || byte == 0x7f) byte = ' ';
    }
    return line;
}

std::string rawNames(auto table, std::size_t first) {
    std::string names;
    for (std::size_t i = first; i < table.size(); ++i) {
        names += (names.empty() ? "" : ", ") + std::string(table[i].raw);
    }
    return names;
}

LogLevel levelNamed(std::string_view name) {
    if (const auto level = enumFromRaw<LogLevel>(name)) return *level;
    throw std::invalid_argument(fmt::format("\"{}\" is not a log level. The levels are {}.", name,
                                            rawNames(enumTable<LogLevel>, 0)));
}

LogCategory categoryNamed(std::string_view name) {
    if (const auto category = enumFromRaw<LogCategory>(name)) return *category;
    throw std::invalid_argument(fmt::format("\"{}\" is not a log category. The categories are {}.",
                                            name, rawNames(enumTable<LogCategory>, 0)));
}

/// The part before `separator`, which is taken off `text` with it.
std::string_view nextPart(std::string_view& text, char separator) {
    const auto end = text.find(separator);
    const auto part = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    return part;
}

}  // namespace

LogLevels::LogLevels() { levels_.fill(LogLevel::info); }

LogLevels LogLevels::parse(std::string_view text) {
    LogLevels levels;
    do {
        auto part = nextPart(text, ',');
        const auto equals = part.find('=');
        if (equals == std::string_view::npos) {
            levels.levels_.fill(levelNamed(part));
        } else {
            const auto category = categoryNamed(part.substr(0, equals));
            levels.levels_[static_cast<std::size_t>(category)] =
                levelNamed(part.substr(equals + 1));
        }
    } while (!text.empty());
    return levels;
}

std::string LogLevels::parseError(std::string_view text) {
    try {
        parse(text);
        return "";
    } catch (const std::invalid_argument& error) {
        std::string sentence = error.what();
        sentence.pop_back();
        return sentence;
    }
}

std::string logLineText(const LogLine& line) {
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(line.time);
    return fmt::format("{} {} {} {}", iso8601Text(milliseconds), rawValue(line.level),
                       rawValue(line.category), line.text);
}

std::optional<LogLine> parseLogLine(std::string_view text) {
    const auto time = parseISO8601(nextPart(text, ' '));
    const auto level = enumFromRaw<LogLevel>(nextPart(text, ' '));
    const auto category = enumFromRaw<LogCategory>(nextPart(text, ' '));
    if (!time || !level || !category) return std::nullopt;
    return LogLine{
        .time = *time, .level = *level, .category = *category, .text = std::string(text)};
}

void setLog(LogLevels levels, LogSink sink) {
    auto& log = processLog();
    const std::lock_guard lock(log.mutex);
    for (const auto& row : enumTable<LogCategory>) {
        log.levels[static_cast<std::size_t>(row.value)] =
            sink ? levels.of(row.value) : LogLevel::off;
    }
    log.sink = std::move(sink);
}

bool isLogged(LogCategory category, LogLevel level) {
    return level <=
           processLog().levels[static_cast<std::size_t>(category)].load(std::memory_order_relaxed);
}

void writeLog(LogCategory category, LogLevel level, std::string_view text) {
    const auto now = std::chrono::floor<Instant::duration>(std::chrono::system_clock::now());
    const LogLine line{
        .time = now, .level = level, .category = category, .text = oneLine(maskedSecrets(text))};
    auto& log = processLog();
    const std::lock_guard lock(log.mutex);
    if (log.sink) log.sink(line);
}

}  // namespace kit
