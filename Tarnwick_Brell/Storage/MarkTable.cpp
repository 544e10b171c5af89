#include "Tarnwick_Brell/Storage/MarkTable.h"

#include <algorithm>
#include <optional>

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/DeskState.h"
#include "Tarnwick_Brell/Storage/Instants.h"

namespace desk {

namespace {

using newsroom::Instant;

// A batch is known by its moment: every story that it marked, and no other, was read then.
constexpr std::string_view kLastReadBatch = "lastReadBatch";

// Parameters: the story's number, the stamp, and the moment where there is one. A row stays
// when its marks go, because its stamp tells other programs that they have gone.
constexpr std::string_view kMarkRead =
    "INSERT INTO marks (number, stamp, readAt) VALUES (?, ?, ?) ON CONFLICT (number) DO UPDATE "
    "SET readAt = excluded.readAt, stamp = excluded.stamp WHERE readAt IS NULL";
constexpr std::string_view kMarkUnread =
    "UPDATE marks SET readAt = NULL, stamp = ?2 WHERE number = ?1 AND readAt IS NOT NULL";
constexpr std::string_view kSave =
    "INSERT INTO marks (number, stamp, savedAt) VALUES (?, ?, ?) ON CONFLICT (number) DO UPDATE "
    "SET savedAt = excluded.savedAt, stamp = excluded.stamp WHERE savedAt IS NULL";
constexpr std::string_view kUnsave =
    "UPDATE marks SET savedAt = NULL, stamp = ?2 WHERE number = ?1 AND savedAt IS NOT NULL";

// In two statements, for stories without a row of marks and with one: an insert that runs
// into a conflict for each of 300,000 rows takes twice the time.
constexpr std::string_view kInsertRead =
    "INSERT INTO marks (readAt, stamp, number) SELECT ?, ?, s.number FROM stories s "
    "LEFT JOIN marks m ON m.number = s.number {} AND m.number IS NULL";
constexpr std::string_view kUpdateRead =
    "UPDATE marks SET readAt = ?, stamp = ? WHERE readAt IS NULL AND number IN (SELECT s.number "
    "FROM stories s LEFT JOIN marks m ON m.number = s.number {})";

std::string_view statementFor(Mark mark, bool on) {
    if (mark == Mark::read) return on ? kMarkRead : kMarkUnread;
    return on ? kSave : kUnsave;
}

}  // namespace

/// Gives or takes one mark, story by story, in the caller's transaction.
class MarkTable::Writer {
public:
    Writer(Database& database, Mark mark, std::optional<Instant> at)
        : database_(database),
          at_(at),
          stamp_(DeskState(database).nextStamp()),
          statement_(database, statementFor(mark, at.has_value())) {
        // Never the moment of the batch, or taking that back would take this back as well.
        if (at_ && at_ == DeskState(database).instant(kLastReadBatch)) *at_ += Instant::duration(1);
    }

    std::int64_t stamp() const { return stamp_; }

    /// Whether that changed anything.
    bool mark(std::int64_t number) {
        statement_.bind(0, number).bind(1, stamp_);
        if (at_) statement_.bind(2, microseconds(*at_));
        statement_.run();
        return database_.changes() > 0;
    }

private:
    Database& database_;
    std::optional<Instant> at_;
    std::int64_t stamp_;
    Statement statement_;
};

Marked MarkTable::markRead(std::span<const std::string> ids, Instant at) {
    return change(ids, Mark::read, at);
}

Marked MarkTable::markUnread(std::span<const std::string> ids) {
    return change(ids, Mark::read, std::nullopt);
}

Marked MarkTable::save(std::span<const std::string> ids, Instant at) {
    return change(ids, Mark::saved, at);
}

Marked MarkTable::unsave(std::span<const std::string> ids) {
    return change(ids, Mark::saved, std::nullopt);
}

Marked MarkTable::change(std::span<const std::string> ids, Mark mark, std::optional<Instant> at) {
    Transaction transaction(database_);
    Writer writer(database_, mark, at);
    Statement find(database_, "SELECT number FROM stories WHERE id = ?");
    Marked marked;
    for (const auto& id : ids) {
        find.bind(0, id);
        if (find.step()) {
            marked.changed += writer.mark(find.number(0)) ? 1 : 0;
        } else {
            marked.unknown.push_back(id);
        }
        find.reset();
    }
    transaction.commit();
    return marked;
}

std::int64_t MarkTable::set(Mark mark, std::vector<std::int64_t> numbers,
                            std::optional<Instant> at) {
    // In the order of the table, so that it is walked once.
    std::sort(numbers.begin(), numbers.end());
    Transaction transaction(database_);
    Writer writer(database_, mark, at);
    for (const auto number : numbers) writer.mark(number);
    transaction.commit();
    return writer.stamp();
}

bool MarkTable::isReadTime(Instant at) {
    Statement row(database_, "SELECT 1 FROM marks WHERE readAt = ?");
    row.bind(0, microseconds(at));
    return row.step();
}

std::size_t MarkTable::markAllRead(const StorySelection& selection, Instant at) {
    Transaction transaction(database_);
    while (isReadTime(at)) at += Instant::duration(1);
    StorySelection unread = selection;
    unread.unread = true;
    const SelectionClause clause(unread);
    const auto stamp = DeskState(database_).nextStamp();
    std::size_t changed = 0;
    for (const auto sql : {kUpdateRead, kInsertRead}) {
        Statement mark(database_, fmt::format(fmt::runtime(sql), clause.sql()));
        mark.bind(0, microseconds(at)).bind(1, stamp);
        clause.bind(mark, 2);
        mark.run();
        changed += static_cast<std::size_t>(database_.changes());
    }
    if (changed > 0) DeskState(database_).set(kLastReadBatch, at);
    transaction.commit();
    return changed;
}

std::size_t MarkTable::undoLastReadBatch() {
    Transaction transaction(database_);
    DeskState state(database_);
    const auto batch = state.instant(kLastReadBatch);
    if (!batch) return 0;
    Statement undo(database_, "UPDATE marks SET readAt = NULL, stamp = ? WHERE readAt = ?");
    undo.bind(0, state.nextStamp()).bind(1, microseconds(*batch));
    undo.run();
    const auto changed = static_cast<std::size_t>(database_.changes());
    state.set(kLastReadBatch, std::nullopt);
    transaction.commit();
    return changed;
}

MarkTable::Counts MarkTable::counts() {
    Statement row(database_, "SELECT count(readAt), count(savedAt) FROM marks");
    row.step();
    return {.read = static_cast<std::size_t>(row.number(0)),
            .saved = static_cast<std::size_t>(row.number(1))};
}

}  // namespace desk
