#include "Tarnwick_Brell/Storage/Tables/KeptTable.h"

#include <algorithm>

#include <fmt/format.h>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/RecordRank.h"

namespace app {

namespace {

constexpr std::string_view kRowColumns =
    "k.kind, k.id, k.title, k.line, k.at, k.rank, k.removedAt, k.fault";

KeptRow rowOf(const Statement& found) {
    return {.kind = *kit::enumFromRaw<KeptKind>(found.view(0)),
            .id = found.text(1),
            .title = found.text(2),
            .line = found.text(3),
            .at = instantOf(found.number(4)),
            .rank = found.text(5),
            .removedAt = instantOf(found.optionalNumber(6)),
            .fault = found.text(7)};
}

/// As it is named between the user's computers.
std::string sharedName(KeptKind kind, std::string_view id) {
    switch (kind) {
        case KeptKind::clip: return fmt::format("c:{}", id);
        case KeptKind::note: return fmt::format("o:{}", id);
        case KeptKind::project: return fmt::format("p:{}", id);
        case KeptKind::story: break;
    }
    return fmt::format("s:{}", id);
}

/// A select over the rows of a query, with what it binds.
class QueryClause {
public:
    explicit QueryClause(const KeptQuery& query) : query_(query) {
        for (const auto& [field, value] : links()) {
            if (!value->empty())
                joins_ += fmt::format(
                    " JOIN keptLinks {0} ON {0}.number = k.number AND {0}.field = '{0}' "
                    "AND {0}.value = ?",
                    field);
        }
    }

    std::string sql(std::string_view columns) const {
        const bool isRanked = query_.kind == KeptKind::project;
        return fmt::format(
            "SELECT {} FROM kept k{} WHERE k.removedAt IS NULL{} ORDER BY {} "
            "LIMIT ? OFFSET ?",
            columns, joins_, query_.kind ? " AND k.kind = ?" : "",
            isRanked ? "k.rank, k.id" : "k.at DESC, k.number DESC");
    }

    void bind(Statement& statement) const {
        int index = 0;
        for (const auto& [field, value] : links()) {
            if (!value->empty()) statement.bind(index++, *value);
        }
        if (query_.kind) statement.bind(index++, kit::rawValue(*query_.kind));
        statement.bind(index++, static_cast<std::int64_t>(query_.most));
        statement.bind(index, static_cast<std::int64_t>(query_.skipped));
    }

private:
    std::vector<std::pair<std::string_view, const std::string*>> links() const {
        return {{"project", &query_.project}, {"story", &query_.story}, {"tag", &query_.tag}};
    }

    const KeptQuery& query_;
    std::string joins_;
};

}  // namespace

std::vector<KeptRow> KeptTable::list(const KeptQuery& query) {
    const QueryClause clause(query);
    Statement found(database_, clause.sql(kRowColumns));
    clause.bind(found);
    std::vector<KeptRow> rows;
    while (found.step()) rows.push_back(rowOf(found));
    return rows;
}

std::vector<std::string> KeptTable::records(const KeptQuery& query) {
    const QueryClause clause(query);
    Statement found(database_, clause.sql("k.record"));
    clause.bind(found);
    std::vector<std::string> records;
    while (found.step()) records.push_back(found.text(0));
    return records;
}

std::vector<KeptRow> KeptTable::removed(kit::Instant now) {
    Statement found(database_,
                    fmt::format("SELECT {} FROM kept k WHERE k.removedAt >= ? AND "
                                "k.record <> '' ORDER BY k.removedAt DESC, k.number DESC",
                                kRowColumns));
    found.bind(0, microseconds(now - kRestorable));
    std::vector<KeptRow> rows;
    while (found.step()) rows.push_back(rowOf(found));
    return rows;
}

std::optional<KeptRow> KeptTable::row(KeptKind kind, std::string_view id) {
    Statement found(database_,
                    fmt::format("SELECT {} FROM kept k WHERE k.kind = ? AND k.id = ? AND "
                                "k.record <> ''",
                                kRowColumns));
    found.bind(0, kit::rawValue(kind)).bind(1, id);
    if (!found.step()) return std::nullopt;
    return rowOf(found);
}

std::vector<std::string> KeptTable::beginningWith(KeptKind kind, std::string_view prefix) {
    Statement found(database_,
                    "SELECT id FROM kept WHERE kind = ?1 AND id >= ?2 AND "
                    "substr(id, 1, length(?2)) = ?2 AND removedAt IS NULL ORDER BY id LIMIT 2");
    found.bind(0, kit::rawValue(kind)).bind(1, prefix);
    std::vector<std::string> ids;
    while (found.step()) ids.push_back(found.text(0));
    return ids;
}

std::size_t KeptTable::count(KeptKind kind) {
    Statement found(database_, "SELECT count(*) FROM kept WHERE kind = ? AND removedAt IS NULL");
    found.bind(0, kit::rawValue(kind)).step();
    return static_cast<std::size_t>(found.number(0));
}

std::size_t KeptTable::faultCount() {
    Statement found(database_, "SELECT count(*) FROM kept WHERE removedAt IS NULL AND fault <> ''");
    found.step();
    return static_cast<std::size_t>(found.number(0));
}

std::vector<std::string> KeptTable::tags() {
    Statement found(database_,
                    "SELECT DISTINCT value FROM keptLinks JOIN kept USING (number) WHERE "
                    "field = 'tag' AND removedAt IS NULL ORDER BY value");
    std::vector<std::string> tags;
    while (found.step()) tags.push_back(found.text(0));
    return tags;
}

std::optional<std::string> KeptTable::record(KeptKind kind, std::string_view id) {
    Statement found(database_,
                    "SELECT record FROM kept WHERE kind = ? AND id = ? AND removedAt IS NULL");
    found.bind(0, kit::rawValue(kind)).bind(1, id);
    if (!found.step()) return std::nullopt;
    return found.text(0);
}

std::optional<std::int64_t> KeptTable::numberOf(KeptKind kind, std::string_view id) {
    Statement found(database_, "SELECT number FROM kept WHERE kind = ? AND id = ?");
    found.bind(0, kit::rawValue(kind)).bind(1, id);
    if (!found.step()) return std::nullopt;
    return found.number(0);
}

std::string KeptTable::lastRank() {
    Statement found(database_, "SELECT max(rank) FROM kept WHERE kind = 'project'");
    found.step();
    return found.optionalText(0).value_or("");
}

void KeptTable::put(KeptKind kind, std::string_view id, const boost::json::object& record,
                    const KeptFace& face) {
    write(kind, id, boost::json::serialize(record), face, "");
    recorder_.changed(sharedName(kind, id), record);
    if (kind == KeptKind::project)
        recorder_.fieldChanged(sharedName(kind, id), "rank", row(kind, id)->rank);
}

void KeptTable::putUnreadable(KeptKind kind, std::string_view id, std::string_view record,
                              std::string_view name, std::string_view fault) {
    write(kind, id, record, {.title = std::string(name), .line = {}, .at = {}, .text = {}}, fault);
}

void KeptTable::write(KeptKind kind, std::string_view id, std::string_view record,
                      const KeptFace& face, std::string_view fault) {
    const bool isNew = !numberOf(kind, id);
    const auto rank =
        kind == KeptKind::project && isNew ? rankBetween(lastRank(), "") : std::string();
    Statement put(database_,
                  "INSERT INTO kept (kind, id, at, rank, fault, title, line, record) "
                  "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8) ON CONFLICT (kind, id) DO UPDATE SET "
                  "at = ?3, removedAt = NULL, fault = ?5, title = ?6, line = ?7, record = ?8 "
                  "RETURNING number");
    put.bind(0, kit::rawValue(kind)).bind(1, id).bind(2, microseconds(face.at)).bind(3, rank);
    put.bind(4, fault).bind(5, face.title).bind(6, face.line).bind(7, record).step();
    const auto number = put.number(0);
    put.reset();
    if (!isNew) unindex(number);
    index(number, face);
}

void KeptTable::index(std::int64_t number, const KeptFace& face) {
    Statement link(database_,
                   "INSERT OR IGNORE INTO keptLinks (field, value, number) VALUES (?, ?, ?)");
    for (const auto& [field, value] : face.links)
        link.bind(0, field).bind(1, value).bind(2, number).run();
    std::string tags;
    for (const auto& tag : face.tags) {
        tags += tag + "\n";
        link.bind(0, std::string_view("tag")).bind(1, tag).bind(2, number).run();
    }
    Statement search(database_,
                     "INSERT INTO keptSearch (rowid, title, text, tags) VALUES (?, ?, ?, ?)");
    search.bind(0, number).bind(1, face.title).bind(2, face.text).bind(3, tags).run();
}

void KeptTable::unindex(std::int64_t number) {
    Statement(database_, "DELETE FROM keptLinks WHERE number = ?").bind(0, number).run();
    Statement(database_, "DELETE FROM keptSearch WHERE rowid = ?").bind(0, number).run();
}

void KeptTable::setRank(std::string_view project, std::string_view rank) {
    Statement(database_, "UPDATE kept SET rank = ?2 WHERE kind = 'project' AND id = ?1")
        .bind(0, project)
        .bind(1, rank)
        .run();
    recorder_.fieldChanged(sharedName(KeptKind::project, project), "rank", rank);
}

bool KeptTable::remove(KeptKind kind, std::string_view id, kit::Instant now) {
    Statement bury(database_,
                   "UPDATE kept SET removedAt = ?3 WHERE kind = ?1 AND id = ?2 AND "
                   "removedAt IS NULL");
    bury.bind(0, kit::rawValue(kind)).bind(1, id).bind(2, microseconds(now)).run();
    if (database_.changes() == 0) return false;
    recorder_.removed(sharedName(kind, id));
    return true;
}

bool KeptTable::restore(KeptKind kind, std::string_view id) {
    Statement raise(database_,
                    "UPDATE kept SET removedAt = NULL WHERE kind = ? AND id = ? AND "
                    "removedAt IS NOT NULL AND record <> ''");
    raise.bind(0, kit::rawValue(kind)).bind(1, id).run();
    if (database_.changes() == 0) return false;
    recorder_.restored(sharedName(kind, id));
    return true;
}

void KeptTable::dropOldContent(kit::Instant now) {
    struct Old {
        std::int64_t number;
        KeptKind kind;
        std::string id;
    };
    std::vector<Old> dropped;
    Statement old(database_,
                  "SELECT number, kind, id FROM kept WHERE removedAt < ? AND record <> ''");
    old.bind(0, microseconds(now - kRestorable));
    while (old.step())
        dropped.push_back({old.number(0), *kit::enumFromRaw<KeptKind>(old.view(1)), old.text(2)});
    old.reset();
    for (const auto& [number, kind, id] : dropped) {
        recorder_.forgotten(sharedName(kind, id));
        unindex(number);
        for (const auto* sql :
             {"UPDATE kept SET title = '', line = '', fault = '', record = '' WHERE number = ?1",
              "DELETE FROM noteVersions WHERE note = (SELECT id FROM kept WHERE number = ?1 AND "
              "kind = 'note')",
              "DELETE FROM savedTexts WHERE story = (SELECT id FROM kept WHERE number = ?1 AND "
              "kind = 'story')"}) {
            Statement(database_, sql).bind(0, number).run();
        }
    }
}

}  // namespace app
