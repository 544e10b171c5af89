#include "Tarnwick_Brell/Storage/Tables/DeskState.h"

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

std::optional<kit::Instant> DeskState::instant(std::string_view key) {
    return instantOf(number(key));
}

std::optional<std::int64_t> DeskState::number(std::string_view key) {
    Statement row(database_, "SELECT value FROM deskState WHERE key = ?");
    row.bind(0, key);
    return row.step() ? row.optionalNumber(0) : std::nullopt;
}

void DeskState::setNumber(std::string_view key, std::int64_t value) {
    Statement put(database_, "INSERT OR REPLACE INTO deskState (key, value) VALUES (?, ?)");
    put.bind(0, key).bind(1, value).run();
}

void DeskState::set(std::string_view key, std::optional<kit::Instant> value) {
    Statement put(database_, "INSERT OR REPLACE INTO deskState (key, value) VALUES (?, ?)");
    put.bind(0, key);
    put.bind(1, value ? std::optional(microseconds(*value)) : std::nullopt);
    put.run();
}

std::optional<std::string> DeskState::text(std::string_view key) {
    Statement row(database_, "SELECT value FROM deskState WHERE key = ?");
    row.bind(0, key);
    return row.step() ? row.optionalText(0) : std::nullopt;
}

void DeskState::setText(std::string_view key, std::optional<std::string_view> value) {
    Statement put(database_, "INSERT OR REPLACE INTO deskState (key, value) VALUES (?, ?)");
    put.bind(0, key).bind(1, value).run();
}

std::int64_t DeskState::nextStamp() {
    Statement next(database_,
                   "UPDATE deskState SET value = value + 1 WHERE key = 'stamp' RETURNING value");
    next.step();
    const auto stamp = next.number(0);
    next.run();
    return stamp;
}

std::int64_t DeskState::lastStamp() {
    Statement row(database_, "SELECT value FROM deskState WHERE key = 'stamp'");
    row.step();
    return row.number(0);
}

}  // namespace app
