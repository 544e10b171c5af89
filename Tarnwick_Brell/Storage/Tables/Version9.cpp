#include "Tarnwick_Brell/Storage/Tables/Version9.h"

#include "Tarnwick_Brell/Storage/Tables/KeptSchema.h"
#include "Tarnwick_Brell/Storage/Tables/PastSignals.h"
#include "Tarnwick_Brell/Storage/Tables/SyncBackfill.h"

namespace app {

namespace {

// The log of signals, for good. Numbers rise as signals are logged, rows are never changed. The
// index also holds kind and weight, so that what is searched for in a few kinds is found without
// reading the others.
constexpr const char* kSignalTables = R"sql(
    CREATE TABLE IF NOT EXISTS signals (
        number INTEGER PRIMARY KEY,
        id TEXT NOT NULL UNIQUE,
        kind TEXT NOT NULL,
        subject TEXT NOT NULL,
        title TEXT NOT NULL,
        detail TEXT NOT NULL,
        link TEXT,
        happenedAt INTEGER,
        dayOnly INTEGER NOT NULL,
        seenAt INTEGER NOT NULL,
        weight TEXT NOT NULL,
        evidence TEXT NOT NULL
    );
    CREATE INDEX IF NOT EXISTS signalsByTime ON signals (seenAt);
    CREATE VIRTUAL TABLE IF NOT EXISTS signalSearch USING fts5(
        title, detail, subject, kind, weight, content='signals', content_rowid='number',
        columnsize=0, tokenize='unicode61 remove_diacritics 2');
    CREATE TRIGGER IF NOT EXISTS signalAdded AFTER INSERT ON signals BEGIN
        INSERT INTO signalSearch (rowid, title, detail, subject, kind, weight)
            VALUES (new.number, new.title, new.detail, new.subject, new.kind, new.weight);
    END;
)sql";

// By the stories' ids, which need not be in the library any more.
constexpr const char* kClaimAnswers = R"sql(
    CREATE TABLE IF NOT EXISTS claimAnswers (
        claim TEXT PRIMARY KEY,
        story TEXT NOT NULL,
        why TEXT NOT NULL
    ) WITHOUT ROWID;
)sql";

// What followed feeds of courts and companies have listed, for good; see RecordHistory.
constexpr const char* kFeedRecordTables = R"sql(
    CREATE TABLE IF NOT EXISTS docketEntries (
        key TEXT PRIMARY KEY,
        feed TEXT NOT NULL,
        happenedAt INTEGER,
        firstSeen INTEGER NOT NULL,
        record TEXT NOT NULL
    );
    CREATE INDEX IF NOT EXISTS docketEntriesByFeed ON docketEntries (feed);
    CREATE TABLE IF NOT EXISTS courtCases (
        key TEXT PRIMARY KEY,
        feed TEXT NOT NULL,
        happenedAt INTEGER,
        firstSeen INTEGER NOT NULL,
        record TEXT NOT NULL
    );
    CREATE INDEX IF NOT EXISTS courtCasesByFeed ON courtCases (feed);
    CREATE TABLE IF NOT EXISTS filings (
        key TEXT PRIMARY KEY,
        feed TEXT NOT NULL,
        happenedAt INTEGER,
        firstSeen INTEGER NOT NULL,
        record TEXT NOT NULL
    );
    CREATE INDEX IF NOT EXISTS filingsByFeed ON filings (feed);
    CREATE TABLE IF NOT EXISTS pressReleases (
        key TEXT PRIMARY KEY,
        feed TEXT NOT NULL,
        happenedAt INTEGER,
        firstSeen INTEGER NOT NULL,
        record TEXT NOT NULL
    );
    CREATE INDEX IF NOT EXISTS pressReleasesByFeed ON pressReleases (feed);
)sql";

// The watch of Apple's public files; see FindingHistory. States, and what a watch remembers, are
// compressed.
constexpr const char* kBackendTables = R"sql(
    CREATE TABLE IF NOT EXISTS backendWatches (
        file TEXT PRIMARY KEY,
        state BLOB NOT NULL,
        body BLOB NOT NULL,
        earlierBody BLOB NOT NULL
    );
    CREATE TABLE IF NOT EXISTS backendStates (
        number INTEGER PRIMARY KEY,
        file TEXT NOT NULL,
        body BLOB NOT NULL
    );
    CREATE INDEX IF NOT EXISTS backendStatesByFile ON backendStates (file);
    CREATE TABLE IF NOT EXISTS backendFindings (
        number INTEGER PRIMARY KEY,
        file TEXT NOT NULL,
        seenAt INTEGER NOT NULL,
        record TEXT NOT NULL,
        beforeState INTEGER,
        afterState INTEGER
    );
)sql";

// Pages that the user follows, what their watch remembers, and the texts that they had. Pages that
// only panels follow have no record of their own. See PageHistory.
constexpr const char* kPageTables = R"sql(
    CREATE TABLE IF NOT EXISTS followedPages (
        id TEXT PRIMARY KEY,
        rank TEXT NOT NULL,
        record TEXT NOT NULL,
        removedAt INTEGER
    );
    CREATE TABLE IF NOT EXISTS pageWatches (
        address TEXT PRIMARY KEY,
        state BLOB NOT NULL,
        blocks BLOB NOT NULL,
        candidate BLOB NOT NULL,
        lookedAt INTEGER NOT NULL,
        nextLook INTEGER NOT NULL
    );
    CREATE TABLE IF NOT EXISTS pageRevisions (
        number INTEGER PRIMARY KEY,
        address TEXT NOT NULL,
        seenAt INTEGER NOT NULL,
        isChange INTEGER NOT NULL,
        record TEXT NOT NULL,
        blocks BLOB NOT NULL,
        html BLOB NOT NULL
    );
    CREATE INDEX IF NOT EXISTS pageRevisionsByPage ON pageRevisions (address, number);
)sql";

// The text of stories' pages for some weeks, as it is and as it was before it last changed.
constexpr const char* kArticleTables = R"sql(
    CREATE TABLE IF NOT EXISTS articles (
        number INTEGER PRIMARY KEY,
        story TEXT NOT NULL UNIQUE,
        url TEXT NOT NULL,
        fetchedAt INTEGER NOT NULL,
        record TEXT NOT NULL,
        earlierAt INTEGER,
        earlier TEXT
    );
    CREATE INDEX IF NOT EXISTS articlesByTime ON articles (fetchedAt);
    CREATE VIRTUAL TABLE IF NOT EXISTS articleSearch USING fts5(
        title, text, tokenize='unicode61 remove_diacritics 2');
    CREATE TABLE IF NOT EXISTS articleCredits (
        story TEXT PRIMARY KEY,
        credits TEXT NOT NULL
    ) WITHOUT ROWID;
    CREATE TRIGGER IF NOT EXISTS articleCreditsDropped AFTER DELETE ON stories BEGIN
        DELETE FROM articleCredits WHERE story = old.id;
    END;
)sql";

// What the user wants to be told of, and what that has matched in the last months. See
// AlertHistory.
constexpr const char* kAlertTables = R"sql(
    CREATE TABLE IF NOT EXISTS alertRules (
        id TEXT PRIMARY KEY,
        rank TEXT NOT NULL,
        record TEXT NOT NULL,
        removedAt INTEGER
    );
    CREATE TABLE IF NOT EXISTS alerts (
        number INTEGER PRIMARY KEY,
        rule TEXT NOT NULL,
        ruleName TEXT NOT NULL,
        event TEXT NOT NULL,
        title TEXT NOT NULL,
        link TEXT NOT NULL,
        words TEXT NOT NULL,
        matchedAt INTEGER NOT NULL,
        toldAt INTEGER,
        outcome TEXT NOT NULL,
        UNIQUE (rule, event)
    );
    CREATE INDEX IF NOT EXISTS alertsByTime ON alerts (matchedAt);
)sql";

}  // namespace

void completeVersion9(Database& database) {
    database.execute(kArticleTables);
    database.execute(kSignalTables);
    database.execute(kClaimAnswers);
    database.execute(kFeedRecordTables);
    database.execute(kBackendTables);
    database.execute(kPageTables);
    database.execute(kAlertTables);
    addKeptTables(database);
    keepSavedStories(database);
    recordUnrecorded(database);
    logPast(database);
}

}  // namespace app
