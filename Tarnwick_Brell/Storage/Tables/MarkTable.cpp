#include "Tarnwick_Brell/Storage/Tables/MarkTable.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/Tables/DeskState.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/PendingMarks.h"
#include "Tarnwick_Brell/Storage/Tables/SavedStories.h"

namespace app {

namespace {

using kit::Instant;

// The last undoable change as JSON. Given marks are known by their moment, which no other mark
// of that kind has; of marks that were taken away it has the former moments and the stories' ids,
// since a number may be another story's by the time of the undo.
constexpr std::string_view kLastChange = "lastMarkChange";

// Parameters: the story's number, the stamp, and the moment where there is one. A row stays
// when its marks go, because its stamp tells other programs that they have gone. There are no rows
// without stories: they would count, and pass to the next story that gets the number.
constexpr std::string_view kMarkRead =
    "INSERT INTO marks (number, stamp, readAt) SELECT number, ?2, ?3 FROM stories "
    "WHERE number = ?1 ON CONFLICT (number) DO UPDATE "
    "SET readAt = excluded.readAt, stamp = excluded.stamp WHERE readAt IS NULL";
constexpr std::string_view kMarkUnread =
    "UPDATE marks SET readAt = NULL, stamp = ?2 WHERE number = ?1 AND readAt IS NOT NULL";
constexpr std::string_view kSave =
    "INSERT INTO marks (number, stamp, savedAt) SELECT number, ?2, ?3 FROM stories "
    "WHERE number = ?1 ON CONFLICT (number) DO UPDATE "
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

// Parameters: the stamp and the moment.
constexpr std::string_view kUndoRead =
    "UPDATE marks SET readAt = NULL, stamp = ?1 WHERE readAt = ?2 RETURNING number";
constexpr std::string_view kUndoSave =
    "UPDATE marks SET savedAt = NULL, stamp = ?1 WHERE savedAt = ?2 RETURNING number";

std::string_view columnOf(Mark mark) { return mark == Mark::read ? "readAt" : "savedAt"; }

/// What kLastChange holds.
struct LastChange {
    Mark mark = Mark::read;
    std::optional<std::int64_t> givenAt{};  ///< absent when the marks were taken away
    std::vector<std::pair<std::string, std::int64_t>> taken{};  ///< ids and former moments

    std::string text() const;
    static std::optional<LastChange> read(Database& database);
};

std::string LastChange::text() const {
    boost::json::object record{{"mark", mark == Mark::read ? "read" : "saved"}};
    if (givenAt) {
        record["givenAt"] = *givenAt;
        return boost::json::serialize(record);
    }
    boost::json::array stories;
    for (const auto& [id, at] : taken) stories.push_back(boost::json::array{id, at});
    record["taken"] = std::move(stories);
    return boost::json::serialize(record);
}

std::optional<LastChange> LastChange::read(Database& database) {
    const auto text = DeskState(database).text(kLastChange);
    if (!text) return std::nullopt;
    const auto record = boost::json::parse(*text).as_object();
    LastChange change{.mark = record.at("mark").as_string() == "read" ? Mark::read : Mark::saved};
    if (const auto* at = record.if_contains("givenAt")) {
        change.givenAt = at->as_int64();
        return change;
    }
    for (const auto& story : record.at("taken").as_array()) {
        const auto& pair = story.as_array();
        change.taken.emplace_back(pair.at(0).as_string(), pair.at(1).as_int64());
    }
    return change;
}

void remember(Database& database, const LastChange& change) {
    DeskState(database).setText(kLastChange, change.text());
}

/// Forgets the last change when undoing it would change no story, as after it has been undone
/// step by step.
void forgetSpentChange(Database& database) {
    const auto last = LastChange::read(database);
    if (!last) return;
    const auto column = columnOf(last->mark);
    bool isLeft = false;
    if (last->givenAt) {
        Statement given(database, fmt::format("SELECT 1 FROM marks WHERE {} = ?", column));
        isLeft = given.bind(0, *last->givenAt).step();
    }
    Statement missing(database, fmt::format("SELECT 1 FROM stories LEFT JOIN marks USING (number) "
                                            "WHERE id = ? AND {} IS NULL",
                                            column));
    for (const auto& [id, moment] : last->taken) {
        isLeft = isLeft || missing.bind(0, id).step();
        missing.reset();
    }
    if (!isLeft) DeskState(database).setText(kLastChange, std::nullopt);
}

std::string_view statementFor(Mark mark, bool on) {
    if (mark == Mark::read) return on ? kMarkRead : kMarkUnread;
    return on ? kSave : kUnsave;
}

}  // namespace

/// Gives or takes one mark, story by story, in the caller's transaction.
class MarkTable::Writer {
public:
    Writer(Database& database, Mark mark, std::optional<Instant> at, Undoable undoable)
        : database_(database),
          undoable_(undoable),
          stamp_(DeskState(database).nextStamp()),
          statement_(database, statementFor(mark, at.has_value())),
          former_(database, fmt::format("SELECT id, {0} FROM marks JOIN stories USING (number) "
                                        "WHERE number = ? AND {0} IS NOT NULL",
                                        columnOf(mark))),
          change_{.mark = mark} {
        // A mark that can't be undone must not share the moment of the change that can be.
        if (at) change_.givenAt = microseconds(MarkTable(database).unusedMoment(mark, *at));
    }

    std::int64_t stamp() const { return stamp_; }

    /// Whether that changed anything.
    bool mark(std::int64_t number) {
        auto former = formerMark(number);
        statement_.bind(0, number).bind(1, stamp_);
        if (change_.givenAt) statement_.bind(2, *change_.givenAt);
        statement_.run();
        if (database_.changes() == 0) return false;
        hasChanged_ = true;
        if (former) change_.taken.push_back(std::move(*former));
        if (change_.mark == Mark::saved) snapshot(number);
        return true;
    }

    /// After the last story.
    void finish() {
        if (undoable_ == Undoable::yes && hasChanged_) remember(database_, change_);
    }

private:
    void snapshot(std::int64_t number) {
        SavedStories stories(database_);
        change_.givenAt ? stories.keep(number) : stories.hide(number);
    }

    std::optional<std::pair<std::string, std::int64_t>> formerMark(std::int64_t number) {
        if (change_.givenAt || undoable_ == Undoable::no) return std::nullopt;
        former_.bind(0, number);
        std::optional<std::pair<std::string, std::int64_t>> mark;
        if (former_.step()) mark.emplace(former_.text(0), former_.number(1));
        former_.reset();
        return mark;
    }

    Database& database_;
    Undoable undoable_;
    std::int64_t stamp_;
    Statement statement_;
    Statement former_;
    LastChange change_;
    bool hasChanged_ = false;
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
    Writer writer(database_, mark, at, Undoable::yes);
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
    writer.finish();
    transaction.commit();
    return marked;
}

MarkedNumbers MarkTable::set(Mark mark, std::vector<std::int64_t> numbers,
                             std::optional<Instant> at, Undoable undoable) {
    // In the order of the table, so that it is walked once.
    std::sort(numbers.begin(), numbers.end());
    Transaction transaction(database_);
    Writer writer(database_, mark, at, undoable);
    Statement exists(database_, "SELECT 1 FROM stories WHERE number = ?");
    MarkedNumbers marked{.stamp = writer.stamp()};
    for (const auto number : numbers) {
        if (writer.mark(number)) {
            ++marked.changed;
            continue;
        }
        exists.bind(0, number);
        if (!exists.step()) marked.absent.push_back(number);
        exists.reset();
    }
    writer.finish();
    if (undoable == Undoable::no) forgetSpentChange(database_);
    transaction.commit();
    return marked;
}

void MarkTable::takeOver(std::span<const Imported> marks, Instant now) {
    Statement find(database_, "SELECT number FROM stories WHERE id = ?");
    PendingMarks pending(database_);
    for (const auto& [story, savedAt, isRead] : marks) {
        find.bind(0, story);
        const auto number = find.step() ? find.optionalNumber(0) : std::nullopt;
        find.reset();
        for (const auto mark : {Mark::saved, Mark::read}) {
            if (mark == Mark::read && !isRead) continue;
            const auto at = mark == Mark::saved ? savedAt : now;
            if (number) {
                Writer(database_, mark, at, Undoable::no).mark(*number);
            } else {
                pending.add(story, mark, at, now);
            }
        }
    }
}

Instant MarkTable::unusedMoment(Mark mark, Instant at) {
    Statement used(database_, fmt::format("SELECT 1 FROM marks WHERE {} = ?", columnOf(mark)));
    for (;; at += Instant::duration(1)) {
        used.bind(0, microseconds(at));
        const bool isUsed = used.step();
        used.reset();
        if (!isUsed) return at;
    }
}

std::size_t MarkTable::markAllRead(const StorySelection& selection, Instant at) {
    Transaction transaction(database_);
    at = unusedMoment(Mark::read, at);
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
    if (changed > 0) remember(database_, {.mark = Mark::read, .givenAt = microseconds(at)});
    transaction.commit();
    return changed;
}

void MarkTable::removeGiven(Mark mark, std::int64_t moment, UndoneChange& undone) {
    Statement undo(database_, mark == Mark::read ? kUndoRead : kUndoSave);
    undo.bind(0, undone.stamp).bind(1, moment);
    while (undo.step()) undone.numbers.push_back(undo.number(0));
    if (mark != Mark::read) {
        SavedStories stories(database_);
        for (const auto number : undone.numbers) stories.hide(number);
        return;
    }
    undone.pendingCount = PendingMarks(database_).removeRead(instantOf(moment));
}

std::optional<UndoneChange> MarkTable::undoLastChange(Instant now) {
    Transaction transaction(database_);
    const auto last = LastChange::read(database_);
    if (!last) return std::nullopt;
    UndoneChange undone{
        .mark = last->mark, .on = !last->givenAt, .stamp = DeskState(database_).nextStamp()};
    if (last->givenAt) removeGiven(last->mark, *last->givenAt, undone);
    Statement find(database_, "SELECT number FROM stories WHERE id = ?");
    Statement giveBack(database_, statementFor(last->mark, true));
    PendingMarks pending(database_);
    for (const auto& [id, moment] : last->taken) {
        find.bind(0, id);
        const auto number = find.step() ? find.optionalNumber(0) : std::nullopt;
        find.reset();
        if (!number) {
            undone.pendingCount += pending.add(id, last->mark, instantOf(moment), now) ? 1 : 0;
            if (last->mark == Mark::saved) SavedStories(database_).bringBack(id);
            continue;
        }
        giveBack.bind(0, *number).bind(1, undone.stamp).bind(2, moment);
        giveBack.run();
        if (database_.changes() == 0) continue;
        undone.numbers.push_back(*number);
        if (last->mark == Mark::saved) SavedStories(database_).keep(*number);
    }
    std::sort(undone.numbers.begin(), undone.numbers.end());
    DeskState(database_).setText(kLastChange, std::nullopt);
    transaction.commit();
    return undone;
}

bool MarkTable::canUndo() { return DeskState(database_).text(kLastChange).has_value(); }

MarkTable::Counts MarkTable::counts() {
    Statement row(database_, "SELECT count(readAt), count(savedAt) FROM marks");
    row.step();
    return {.read = static_cast<std::size_t>(row.number(0)),
            .saved = static_cast<std::size_t>(row.number(1))};
}

}  // namespace app
