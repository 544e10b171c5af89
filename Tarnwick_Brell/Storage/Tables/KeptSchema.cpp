#include "Tarnwick_Brell/Storage/Tables/KeptSchema.h"

#include "Tarnwick_Brell/Storage/Tables/SavedStories.h"

namespace app {

namespace {

// Clips, notes, projects and saved stories, as records and, apart, what lists show of them: the
// record comes last in its row, so that a list does not read its pages. "at" is the time by which
// lists are ordered. Removed ones stay, without their content after a while. See KeptTable.
constexpr const char* kKeptTables = R"sql(
    CREATE TABLE IF NOT EXISTS kept (
        number INTEGER PRIMARY KEY,
        kind TEXT NOT NULL,
        id TEXT NOT NULL,
        at INTEGER NOT NULL,
        rank TEXT NOT NULL,
        removedAt INTEGER,
        fault TEXT NOT NULL,
        title TEXT NOT NULL,
        line TEXT NOT NULL,
        record TEXT NOT NULL,
        UNIQUE (kind, id)
    );
    CREATE INDEX IF NOT EXISTS keptInOrder ON kept (kind, at) WHERE removedAt IS NULL;
    CREATE INDEX IF NOT EXISTS keptRemoved ON kept (removedAt) WHERE removedAt IS NOT NULL;

    -- The projects, stories and tags that they name.
    CREATE TABLE IF NOT EXISTS keptLinks (
        field TEXT NOT NULL,
        value TEXT NOT NULL,
        number INTEGER NOT NULL,
        PRIMARY KEY (field, value, number)
    ) WITHOUT ROWID;
    CREATE INDEX IF NOT EXISTS keptLinksByNumber ON keptLinks (number);

    -- Beginnings of words are indexed for what is searched while it is typed.
    CREATE VIRTUAL TABLE IF NOT EXISTS keptSearch USING fts5(
        title, text, tags, columnsize=0, prefix='2 3', tokenize='unicode61 remove_diacritics 2');

    CREATE TABLE IF NOT EXISTS noteVersions (
        number INTEGER PRIMARY KEY,
        note TEXT NOT NULL,
        at INTEGER NOT NULL,
        machine TEXT NOT NULL,
        text TEXT NOT NULL
    );
    CREATE INDEX IF NOT EXISTS noteVersionsOfNote ON noteVersions (note, number);

    CREATE TABLE IF NOT EXISTS savedTexts (
        story TEXT PRIMARY KEY,
        url TEXT NOT NULL,
        fetchedAt INTEGER NOT NULL,
        sha256 TEXT NOT NULL,
        title TEXT NOT NULL,
        text TEXT NOT NULL
    );
)sql";

// What the user's computers agree on, see SyncRecorder. A row that is to be sent is in state 1;
// there is no other queue. "syncForeign" has records of kinds that this version does not know.
constexpr const char* kSyncTables = R"sql(
    CREATE TABLE IF NOT EXISTS syncRecords (
        kind TEXT NOT NULL,
        key TEXT NOT NULL,
        fields TEXT NOT NULL,
        rev TEXT NOT NULL DEFAULT '',
        state INTEGER NOT NULL,
        bytes INTEGER NOT NULL,
        reason TEXT NOT NULL DEFAULT '',
        PRIMARY KEY (kind, key)
    );
    CREATE INDEX IF NOT EXISTS syncRecordsByState ON syncRecords (state) WHERE state <> 0;
    CREATE TABLE IF NOT EXISTS syncForeign (
        id TEXT PRIMARY KEY,
        rev TEXT NOT NULL,
        body TEXT NOT NULL
    );
    CREATE TABLE IF NOT EXISTS syncState (
        key TEXT PRIMARY KEY,
        value TEXT NOT NULL
    ) WITHOUT ROWID;
)sql";

}  // namespace

void addKeptTables(Database& database) {
    database.execute(kKeptTables);
    database.execute(kSyncTables);
}

void keepSavedStories(Database& database) {
    Statement saved(database, "SELECT number FROM marks WHERE savedAt IS NOT NULL");
    SavedStories stories(database);
    while (saved.step()) stories.keep(saved.number(0));
}

}  // namespace app
