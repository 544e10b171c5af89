#include "Tarnwick_Brell/Storage/Schema.h"

#include <array>
#include <string>

#include "Tarnwick_Brell/Storage/StoreError.h"

namespace desk {

namespace {

// Each step leads from the version of its index to the next one. Steps are never changed
// once released. Instants are microseconds since 1970; enumerations are their raw values.
constexpr std::array<const char*, 1> kSteps{
    R"sql(
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
    )sql",
};

std::int64_t versionOf(Database& database) {
    Statement statement(database, "PRAGMA user_version");
    statement.step();
    return statement.number(0);
}

void refuseNewer(Database& database, std::int64_t version) {
    if (version <= static_cast<std::int64_t>(kSteps.size())) return;
    throw StoreError(StoreError::Reason::newerVersion,
                     "The library " + database.file().string() +
                         " was written by a newer version of the desk. It was left untouched.");
}

}  // namespace

void migrate(Database& database) {
    refuseNewer(database, versionOf(database));
    if (versionOf(database) == static_cast<std::int64_t>(kSteps.size())) return;
    Transaction transaction(database);
    // Read again: another program may have migrated while this one waited for its turn.
    const auto version = versionOf(database);
    refuseNewer(database, version);
    for (auto step = static_cast<std::size_t>(version); step < kSteps.size(); ++step) {
        database.execute(kSteps[step]);
    }
    database.execute(("PRAGMA user_version = " + std::to_string(kSteps.size())).c_str());
    transaction.commit();
}

bool isUnmigrated(Database& database) { return versionOf(database) == 0; }

void requireCurrentSchema(Database& database) {
    const auto version = versionOf(database);
    refuseNewer(database, version);
    if (version == static_cast<std::int64_t>(kSteps.size())) return;
    throw StoreError(
        StoreError::Reason::readOnly,
        "The library " + database.file().string() +
            " is of an older version and can't be brought up to date, because it is read-only.");
}

}  // namespace desk
