#include "Tarnwick_Brell/Storage/Tables/Schema.h"

#include <array>
#include <string>

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"
#include "Tarnwick_Brell/Storage/Tables/Version6.h"
#include "Tarnwick_Brell/Storage/Tables/Version9.h"

namespace app {

namespace {

/// Leads from one version to the next. Steps are never changed once released.
struct Step {
    const char* sql;
    void (*then)(Database&) = nullptr;  ///< what SQL can't say
};

// By the version that they start from. Instants are microseconds since 1970; enumerations are
// their raw values.
constexpr std::array<Step, 9> kSteps{{
    {R"sql(
    CREATE TABLE stories (
        number INTEGER PRIMARY KEY,
        id TEXT NOT NULL UNIQUE,
        link TEXT NOT NULL,
        title TEXT NOT NULL,
        summary TEXT NOT NULL,
        author TEXT,
        publishedAt INTEGER NOT NULL,
        imageURL TEXT,
        sourceID TEXT NOT NULL,
        sourceName TEXT NOT NULL,
        destinationName TEXT,
        isAppleSource INTEGER NOT NULL,
        kind TEXT NOT NULL,
        sourcing TEXT NOT NULL,
        wordpressID INTEGER,
        articleLink TEXT,
        credits TEXT NOT NULL,
        firstSeen INTEGER NOT NULL
    );
    CREATE INDEX storiesInWireOrder ON stories (publishedAt DESC, firstSeen DESC, id);
    CREATE TABLE customSources (position INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, record TEXT NOT NULL);
    CREATE TABLE sourceSwitches (id TEXT PRIMARY KEY, enabled INTEGER NOT NULL) WITHOUT ROWID;
    CREATE TABLE sourceStatus (id TEXT PRIMARY KEY, lastAttempt INTEGER, lastSuccess INTEGER,
                               lastError TEXT, storyCount INTEGER NOT NULL) WITHOUT ROWID;
    CREATE TABLE validators (url TEXT PRIMARY KEY, entityTag TEXT, lastModified TEXT) WITHOUT ROWID;
    )sql"},

    // A story's number is its place in the wire (see StoryNumber.h): rows lie on disk in that
    // order, and the full-text index, which answers by number, answers newest first.
    // "stamp" counts the writing transactions, so that a desk finds what another program changed.
    {R"sql(
    CREATE TABLE deskState (key TEXT PRIMARY KEY, value) WITHOUT ROWID;
    INSERT INTO deskState VALUES ('stamp', 1);

    DROP INDEX storiesInWireOrder;
    ALTER TABLE stories RENAME TO formerStories;
    CREATE TABLE stories (
        number INTEGER PRIMARY KEY,
        id TEXT NOT NULL UNIQUE,
        link TEXT NOT NULL,
        title TEXT NOT NULL,
        summary TEXT NOT NULL,
        author TEXT,
        publishedAt INTEGER NOT NULL,
        imageURL TEXT,
        sourceID TEXT NOT NULL,
        sourceName TEXT NOT NULL,
        destinationName TEXT,
        isAppleSource INTEGER NOT NULL,
        kind TEXT NOT NULL,
        sourcing TEXT NOT NULL,
        wordpressID INTEGER,
        articleLink TEXT,
        credits TEXT NOT NULL,
        firstSeen INTEGER NOT NULL,
        arrival TEXT NOT NULL,
        titleKey INTEGER NOT NULL,
        stamp INTEGER NOT NULL
    );
    -- Rising, each at its place or, where that is taken, right behind the one before.
    INSERT INTO stories
        SELECT turn + max(place - turn) OVER (ORDER BY turn), id, link, title, summary, author, publishedAt, imageURL, sourceID, sourceName,
               destinationName, isAppleSource, kind, sourcing, wordpressID, articleLink, credits,
               firstSeen, 'seeded', titleKey(title), 1
        FROM (SELECT *, storyPlace(publishedAt) AS place,
                     row_number() OVER (ORDER BY publishedAt, firstSeen, id DESC) AS turn
              FROM formerStories);
    DROP TABLE formerStories;
    CREATE INDEX storiesByTitle ON stories (titleKey);
    CREATE INDEX storiesByStamp ON stories (stamp);
    CREATE INDEX storiesBySource ON stories (sourceID);

    CREATE TABLE marks (number INTEGER PRIMARY KEY, readAt INTEGER, savedAt INTEGER,
                        stamp INTEGER NOT NULL);
    CREATE INDEX marksOfSaved ON marks (number) WHERE savedAt IS NOT NULL;
    CREATE INDEX marksByStamp ON marks (stamp);
    CREATE TABLE wordings (number INTEGER NOT NULL, title TEXT NOT NULL,
                           replacedAt INTEGER NOT NULL,
                           PRIMARY KEY (number, title)) WITHOUT ROWID;

    -- Stories without a date of their own that have been dropped: while their feed still has
    -- them they must not come back as news of today.
    CREATE TABLE departed (id TEXT PRIMARY KEY, lastSeen INTEGER NOT NULL) WITHOUT ROWID;

    CREATE VIRTUAL TABLE storySearch USING fts5(
        title, summary, author, content='stories', content_rowid='number', columnsize=0,
        tokenize='unicode61 remove_diacritics 2');
    INSERT INTO storySearch(storySearch) VALUES ('rebuild');
    CREATE TRIGGER storyAdded AFTER INSERT ON stories BEGIN
        INSERT INTO storySearch (rowid, title, summary, author)
            VALUES (new.number, new.title, new.summary, new.author);
    END;
    CREATE TRIGGER storyRevised AFTER UPDATE OF title, summary, author ON stories BEGIN
        INSERT INTO storySearch (storySearch, rowid, title, summary, author)
            VALUES ('delete', old.number, old.title, old.summary, old.author);
        INSERT INTO storySearch (rowid, title, summary, author)
            VALUES (new.number, new.title, new.summary, new.author);
    END;
    CREATE TRIGGER storyDropped AFTER DELETE ON stories BEGIN
        INSERT INTO storySearch (storySearch, rowid, title, summary, author)
            VALUES ('delete', old.number, old.title, old.summary, old.author);
        DELETE FROM marks WHERE number = old.number;
        DELETE FROM wordings WHERE number = old.number;
    END;

    ALTER TABLE customSources ADD COLUMN removedAt INTEGER;
    ALTER TABLE sourceStatus ADD COLUMN failingSince INTEGER;
    ALTER TABLE sourceStatus ADD COLUMN latency INTEGER;
    ALTER TABLE sourceStatus ADD COLUMN bytes INTEGER;
    ALTER TABLE sourceStatus ADD COLUMN lastFullFetch INTEGER;
    ALTER TABLE sourceStatus ADD COLUMN newestStory INTEGER;
    ALTER TABLE sourceStatus ADD COLUMN collapsed INTEGER NOT NULL DEFAULT 0;
    ALTER TABLE sourceStatus ADD COLUMN collided INTEGER NOT NULL DEFAULT 0;
    ALTER TABLE sourceStatus ADD COLUMN movedTo TEXT;
    CREATE TABLE hostPauses (host TEXT PRIMARY KEY, until INTEGER NOT NULL) WITHOUT ROWID;
    )sql"},

    // Newsrooms and beats are kept as they are written to files: a record that this version
    // can't read stays as it is. Removed ones stay too, for the undo and so that no other
    // program's copy brings them back.
    {R"sql(
    CREATE TABLE newsrooms (id TEXT PRIMARY KEY, position INTEGER NOT NULL,
                            record TEXT NOT NULL, removedAt INTEGER);
    CREATE TABLE beats (id TEXT PRIMARY KEY, position INTEGER NOT NULL,
                        record TEXT NOT NULL, removedAt INTEGER);

    -- The last good answer of each tracker, as it came, and how its fetching goes.
    CREATE TABLE trackerCopies (name TEXT PRIMARY KEY, body TEXT NOT NULL,
                                fetchedAt INTEGER NOT NULL);
    CREATE TABLE trackerHealth (name TEXT PRIMARY KEY, failures INTEGER NOT NULL, lastError TEXT,
                                lastAttempt INTEGER, lastSuccess INTEGER) WITHOUT ROWID;

    -- Every trouble that the desk has seen, for good: Apple keeps no such list. "started" and
    -- "ended" are Apple's words, the other times are when the desk saw it.
    CREATE TABLE serviceIncidents (
        number INTEGER PRIMARY KEY,
        audience TEXT NOT NULL,
        service TEXT NOT NULL,
        report TEXT NOT NULL,
        kind TEXT NOT NULL,
        message TEXT NOT NULL,
        started INTEGER,
        ended INTEGER,
        firstSeen INTEGER NOT NULL,
        lastSeen INTEGER NOT NULL,
        endedSeen INTEGER
    );
    CREATE INDEX serviceIncidentsUnderWay ON serviceIncidents (audience)
        WHERE endedSeen IS NULL;

    CREATE TABLE builds (number INTEGER PRIMARY KEY, platform TEXT NOT NULL,
                         channel TEXT NOT NULL, build TEXT NOT NULL, record TEXT NOT NULL,
                         firstSeen INTEGER NOT NULL, replacedAt INTEGER);
    CREATE INDEX buildsByChannel ON builds (platform, channel, firstSeen);
    )sql"},

    // What changed from one look to the next at what Apple signs and offers, for good, and the
    // places in the App Store's charts as they were last seen on each day.
    {R"sql(
    CREATE TABLE signingChanges (number INTEGER PRIMARY KEY, device TEXT NOT NULL,
                                 deviceName TEXT NOT NULL, version TEXT NOT NULL,
                                 build TEXT NOT NULL, signed INTEGER NOT NULL,
                                 seenAt INTEGER NOT NULL);
    CREATE TABLE offerChanges (number INTEGER PRIMARY KEY, platform TEXT NOT NULL,
                               record TEXT NOT NULL, offered INTEGER NOT NULL,
                               seenAt INTEGER NOT NULL);
    CREATE TABLE chartRanks (chart TEXT NOT NULL, day INTEGER NOT NULL, rank INTEGER NOT NULL,
                             app TEXT NOT NULL, name TEXT NOT NULL, developer TEXT NOT NULL,
                             PRIMARY KEY (chart, day, rank)) WITHOUT ROWID;
    )sql"},

    // The desk itself writes new and revised stories into the full-text index, all those of a
    // transaction at once (see SearchIndex.h).
    {R"sql(
    DROP TRIGGER storyAdded;
    DROP TRIGGER storyRevised;
    -- Its pieces become larger and are merged less often. Eight of a size cost a search little.
    INSERT INTO storySearch (storySearch, rank) VALUES ('hashsize', 4194304);
    INSERT INTO storySearch (storySearch, rank) VALUES ('automerge', 8);
    )sql"},

    // Records have ranks instead of numbers, so that moving one writes one. The newsroom that every
    // library starts with is no record until the user changes it. Marks outlive their stories, and
    // may come before them; "since" is when a mark lost its story or came without one. The change
    // of marks that can be undone names its stories by their ids instead of their numbers.
    {R"sql(
    ALTER TABLE newsrooms RENAME TO formerNewsrooms;
    ALTER TABLE beats RENAME TO formerBeats;
    CREATE TABLE newsrooms (id TEXT PRIMARY KEY, rank TEXT NOT NULL, record TEXT NOT NULL,
                            removedAt INTEGER);
    CREATE TABLE beats (id TEXT PRIMARY KEY, rank TEXT NOT NULL, record TEXT NOT NULL,
                        removedAt INTEGER);
    CREATE TABLE pendingMarks (story TEXT PRIMARY KEY, readAt INTEGER, savedAt INTEGER,
                               since INTEGER NOT NULL) WITHOUT ROWID;
    CREATE INDEX pendingMarksBySince ON pendingMarks (since);
    DELETE FROM marks WHERE number NOT IN (SELECT number FROM stories);
    UPDATE deskState SET value = json_set(value, '$.taken',
            (SELECT json_group_array(json_array(stories.id, json_extract(mark.value, '$[1]')))
             FROM json_each(deskState.value, '$.taken') AS mark
             JOIN stories ON stories.number = json_extract(mark.value, '$[0]')))
        WHERE key = 'lastMarkChange' AND json_extract(value, '$.taken') IS NOT NULL;
    )sql",
     &completeVersion6},

    // What the user has set for a source in place of what the catalogue says, and how its fetches
    // of the last days went.
    {R"sql(
    CREATE TABLE sourceOptions (id TEXT PRIMARY KEY, onlyApple INTEGER, minimumInterval INTEGER,
                                notInAll INTEGER NOT NULL) WITHOUT ROWID;
    CREATE TABLE sourceTries (source TEXT NOT NULL, at INTEGER NOT NULL, outcome TEXT NOT NULL,
                              added INTEGER NOT NULL, reason TEXT NOT NULL,
                              PRIMARY KEY (source, at)) WITHOUT ROWID;
    )sql"},

    // What the user says the rules got wrong. Undone ones stay, so that no other program's copy
    // brings them back.
    {R"sql(
    CREATE TABLE corrections (id TEXT PRIMARY KEY, rank TEXT NOT NULL, record TEXT NOT NULL,
                              removedAt INTEGER);
    )sql"},

    // The log of signals, and records.
    {"", &completeVersion9},
}};

// What the steps need to know about stories and SQL does not.
void defineStoryFunctions(Database& database) {
    database.define("storyPlace", [](const SQLValue& publishedAt) {
        return firstStoryNumber(instantOf(publishedAt.number()));
    });
    database.define("titleKey", [](const SQLValue& title) { return titleKey(title.text()); });
}

constexpr auto kCurrentVersion = static_cast<std::int64_t>(kSteps.size());

void refuseNewer(Database& database, std::int64_t version) {
    if (version <= kCurrentVersion) return;
    throw StoreError(StoreError::Reason::newerVersion,
                     "The library " + database.file().string() +
                         " was written by a newer version of the desk. It was left untouched.");
}

}  // namespace

void migrate(Database& database) {
    refuseNewer(database, versionOf(database));
    if (versionOf(database) == kCurrentVersion) return;
    defineStoryFunctions(database);
    Transaction transaction(database);
    // Read again: another program may have migrated while this one waited for its turn.
    const auto version = versionOf(database);
    refuseNewer(database, version);
    for (auto step = static_cast<std::size_t>(version); step < kSteps.size(); ++step) {
        database.execute(kSteps[step].sql);
        if (kSteps[step].then) kSteps[step].then(database);
    }
    database.execute(("PRAGMA user_version = " + std::to_string(kSteps.size())).c_str());
    transaction.commit();
}

std::int64_t versionOf(Database& database) {
    Statement statement(database, "PRAGMA user_version");
    statement.step();
    return statement.number(0);
}

bool isUnmigrated(Database& database) { return versionOf(database) == 0; }

bool isOutdated(Database& database) {
    const auto version = versionOf(database);
    return version > 0 && version < kCurrentVersion;
}

bool isOfNewerVersion(Database& database) { return versionOf(database) > kCurrentVersion; }

void requireCurrentSchema(Database& database) {
    const auto version = versionOf(database);
    refuseNewer(database, version);
    if (version == kCurrentVersion) return;
    throw StoreError(
        StoreError::Reason::olderVersion,
        "The library " + database.file().string() +
            " is of an older version and can't be brought up to date, because it is read-only.");
}

}  // namespace app
