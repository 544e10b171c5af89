#include "Tarnwick_Brell/Storage/Tables/PendingMarks.h"

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

namespace {

constexpr std::string_view kTake =
    "DELETE FROM pendingMarks WHERE story = ? RETURNING readAt, savedAt";
constexpr std::string_view kGive =
    "INSERT INTO marks (number, stamp, readAt, savedAt) VALUES (?, ?, ?, ?) ON CONFLICT (number) "
    "DO UPDATE SET stamp = excluded.stamp, readAt = excluded.readAt, savedAt = excluded.savedAt";

// Parameters: the story's id, the mark's moment, and since when it is pending.
constexpr std::string_view kAddRead =
    "INSERT INTO pendingMarks (story, readAt, since) VALUES (?, ?, ?) ON CONFLICT (story) "
    "DO UPDATE SET readAt = excluded.readAt WHERE readAt IS NULL";
constexpr std::string_view kAddSaved =
    "INSERT INTO pendingMarks (story, savedAt, since) VALUES (?, ?, ?) ON CONFLICT (story) "
    "DO UPDATE SET savedAt = excluded.savedAt WHERE savedAt IS NULL";

std::optional<kit::Instant> instant(std::optional<std::int64_t> number) {
    return number ? std::optional(instantOf(*number)) : std::nullopt;
}

}  // namespace

PendingMarks::PendingMarks(Database& database)
    : database_(database), take_(database, kTake), give_(database, kGive) {}

void PendingMarks::storeMarksOf(std::string_view condition, std::int64_t parameter,
                                kit::Instant now) {
    // In the order of the table: for 300,000 marks that takes a quarter of the time.
    Statement insert(
        database_,
        fmt::format("INSERT OR REPLACE INTO pendingMarks (story, readAt, savedAt, since) "
                    "SELECT id, readAt, savedAt, ?2 FROM stories JOIN marks USING (number) "
                    "WHERE (readAt IS NOT NULL OR savedAt IS NOT NULL) AND {} ORDER BY id",
                    condition));
    insert.bind(0, parameter).bind(1, microseconds(now)).run();
}

std::optional<PendingMarks::Marks> PendingMarks::apply(std::string_view story, std::int64_t number,
                                                       std::int64_t stamp) {
    take_.bind(0, story);
    if (!take_.step()) {
        take_.reset();
        return std::nullopt;
    }
    const auto readAt = take_.optionalNumber(0), savedAt = take_.optionalNumber(1);
    take_.reset();
    give_.bind(0, number).bind(1, stamp).bind(2, readAt).bind(3, savedAt).run();
    return Marks{instant(readAt), instant(savedAt)};
}

bool PendingMarks::add(std::string_view story, Mark mark, kit::Instant at, kit::Instant now) {
    Statement(database_, mark == Mark::read ? kAddRead : kAddSaved)
        .bind(0, story)
        .bind(1, microseconds(at))
        .bind(2, microseconds(now))
        .run();
    return database_.changes() > 0;
}

std::size_t PendingMarks::removeRead(kit::Instant readAt) {
    std::size_t removed = 0;
    for (const auto* sql : {"DELETE FROM pendingMarks WHERE readAt = ? AND savedAt IS NULL",
                            "UPDATE pendingMarks SET readAt = NULL WHERE readAt = ?"}) {
        Statement(database_, sql).bind(0, microseconds(readAt)).run();
        removed += static_cast<std::size_t>(database_.changes());
    }
    return removed;
}

void PendingMarks::clean(kit::Instant now) {
    Statement(database_, "DELETE FROM pendingMarks WHERE since < ? AND savedAt IS NULL")
        .bind(0, microseconds(now - kRememberedFor))
        .run();
}

}  // namespace app
