#include "Tarnwick_Brell/Storage/Tables/PendingMarks.h"

#include <chrono>

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

namespace {

constexpr std::chrono::days kSeason{90};

constexpr std::string_view kTake =
    "DELETE FROM pendingMarks WHERE story = ? RETURNING readAt, savedAt";
constexpr std::string_view kGive =
    "INSERT INTO marks (number, stamp, readAt, savedAt) VALUES (?, ?, ?, ?)";

std::optional<kit::Instant> instant(std::optional<std::int64_t> number) {
    return number ? std::optional(instantOf(*number)) : std::nullopt;
}

}  // namespace

PendingMarks::PendingMarks(Database& database)
    : database_(database), take_(database, kTake), give_(database, kGive) {}

void PendingMarks::keepOf(std::string_view condition, std::int64_t parameter, kit::Instant now) {
    // In the order of the table: for 300,000 marks that takes a quarter of the time.
    Statement keep(
        database_,
        fmt::format("INSERT OR REPLACE INTO pendingMarks (story, readAt, savedAt, since) "
                    "SELECT id, readAt, savedAt, ?2 FROM stories JOIN marks USING (number) "
                    "WHERE (readAt IS NOT NULL OR savedAt IS NOT NULL) AND {} ORDER BY id",
                    condition));
    keep.bind(0, parameter).bind(1, microseconds(now)).run();
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

void PendingMarks::removeRead(kit::Instant readAt) {
    for (const auto* sql : {"DELETE FROM pendingMarks WHERE readAt = ? AND savedAt IS NULL",
                            "UPDATE pendingMarks SET readAt = NULL WHERE readAt = ?"}) {
        Statement(database_, sql).bind(0, microseconds(readAt)).run();
    }
}

void PendingMarks::clean(kit::Instant now) {
    Statement(database_, "DELETE FROM pendingMarks WHERE since < ? AND savedAt IS NULL")
        .bind(0, microseconds(now - kSeason))
        .run();
}

}  // namespace app
