#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/Tarnwick_Brell/Storage/LibraryFile.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

std::string fixture(const char* name) {
    std::ifstream file(std::filesystem::path(BRELL_FIXTURES) / "libraries" / name);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// A library as an earlier version left it.
class EarlierLibrary {
public:
    explicit EarlierLibrary(int version) {
        const auto name = "version-" + std::to_string(version) + ".sql";
        Database(file_, Database::Access::readWrite).execute(fixture(name.c_str()).c_str());
    }

    const std::filesystem::path& file() const { return file_; }

    /// The first column of what the statement selects.
    std::string list(const std::string& sql) const {
        Database database(file_, Database::Access::readOnly);
        Statement rows(database, sql);
        std::string list;
        while (rows.step()) list += rows.text(0) + " ";
        return list;
    }

private:
    test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "library.sqlite";
};

std::string namesOf(const std::vector<RecordTable::Row>& rows) {
    std::string names;
    for (const auto& row : rows) {
        names += kit::parseJSON(row.record).at("name").as_string().c_str() + std::string(" ");
    }
    return names;
}

TEST(LibraryVersions, EveryEarlierVersionComesOverWithWhatTheUserMade) {
    const struct {
        int version;
        const char* stories;
        const char* read;
        const char* newsrooms;
        const char* removedNewsrooms;
        const char* beats;
    } cases[] = {
        {1, "b2 a1 c3 ", "", "Today ", "", ""},
        {2, "a8e8e5a32fcf6fe b2 a1 c3 ", "b2 ", "Today ", "", ""},
        {3, "a8e8e5a32fcf6fe b2 a1 c3 ", "b2 ", "Chips Today Later ", "Gone ", "Own Glass "},
        {4, "a8e8e5a32fcf6fe b2 a1 c3 ", "b2 ", "Chips Today Later ", "Gone ", "Own Glass "},
        {5, "a8e8e5a32fcf6fe b2 a1 c3 ", "b2 ", "Chips Today Later ", "Gone ", "Own Glass "},
        {6, "a8e8e5a32fcf6fe b2 a1 c3 ", "b2 ", "Chips Today Later ", "Gone ", "Own Glass "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.version);
        const EarlierLibrary library(c.version);
        LocalStore store(library.file(), Database::Access::readWrite);
        std::string stories, read;
        store.stories().eachInWireOrder(std::nullopt, [&](const StoredStory& stored) {
            stories += stored.story.id + " ";
            if (stored.readAt) read += stored.story.id + " ";
            return true;
        });
        EXPECT_EQ(stories, c.stories);
        EXPECT_EQ(read, c.read);
        EXPECT_EQ(namesOf(store.newsrooms().all()), c.newsrooms);
        EXPECT_EQ(namesOf(store.newsrooms().removed()), c.removedNewsrooms);
        EXPECT_EQ(namesOf(store.beats().all()), c.beats);
        EXPECT_EQ(store.sources().customSources().size(), 1u);
        EXPECT_EQ(store.validators().load().size(), 1u);
        store.search().each({.search = SearchText::parse("lisbon")}, [&](const StoredStory& found) {
            EXPECT_EQ(found.story.id, "a1");
            return true;
        });
        Database(library.file(), Database::Access::readWrite).execute(test::kCheckSearchIndex);
    }
}

TEST(LibraryVersions, TodayIsARecordOnlyWhereTheUserHasChangedIt) {
    const std::string today = "SELECT id FROM newsrooms WHERE id LIKE '8B3D5F20%'";
    const struct {
        const char* change;
        bool isRecord;
    } cases[] = {
        {"", false},
        {"UPDATE newsrooms SET record = replace(record, '\"newspaper\"', '\"bolt\"')", true},
        {"UPDATE newsrooms SET record = replace(record, '\"width\":5', '\"width\":4')", true},
        {"UPDATE newsrooms SET removedAt = 7", true},
        {"UPDATE newsrooms SET record = '{}'", true},
    };
    for (const auto& c : cases) {
        const EarlierLibrary library(5);
        Database(library.file(), Database::Access::readWrite).execute(c.change);
        LocalStore(library.file(), Database::Access::readWrite);
        EXPECT_EQ(!library.list(today).empty(), c.isRecord) << c.change;
    }
}

TEST(LibraryVersions, TheLastChangeOfMarksCanStillBeUndone) {
    const EarlierLibrary library(5);
    Database(library.file(), Database::Access::readWrite)
        .execute(
            "INSERT INTO deskState SELECT 'lastMarkChange', '{\"mark\":\"saved\",\"taken\":[['"
            " || number || ',5],[7,5]]}' FROM stories WHERE id = 'a1';"
            "INSERT INTO marks VALUES (7, 5, NULL, 1)");
    LocalStore store(library.file(), Database::Access::readWrite);
    EXPECT_EQ(store.marks().counts().read, 1u) << "marks without a story are gone";
    EXPECT_EQ(store.marks().undoLastChange(kit::Instant())->numbers.size(), 1u);
    EXPECT_TRUE(store.stories().findByID("a1", 1).at(0).savedAt);
}

TEST(LibraryVersions, ThePastIsLoggedOnceAndCountsAsSeen) {
    const EarlierLibrary library(6);
    Database(library.file(), Database::Access::readWrite)
        .execute(
            "INSERT INTO signingChanges VALUES (1, 'iPad9,1', 'Pad', '27', 'A', 0, 5000000);"
            "INSERT INTO offerChanges VALUES (1, 'iOS', 'unreadable', 1, 6000000);"
            "INSERT INTO serviceIncidents VALUES "
            "(70, 'consumer', 'Mail', 'Mail|1.0', 'Outage', 'Down', 1000000, 8000000, 4000000, "
            " 7000000, 9000000)");
    for (int run = 0; run < 2; ++run) {
        LocalStore store(library.file(), Database::Access::readWrite);
        std::string titles;
        for (const auto& [number, signal] : store.signalLog().newest(50)) {
            if (signal.subject == "Mail" || signal.subject == "iPad9,1")
                titles += signal.title + "; ";
        }
        EXPECT_EQ(titles,
                  "Mail works again after a moment; iPadOS 27 (A) is no longer signed for Pad; "
                  "Mail has an outage; ");
        EXPECT_EQ(store.state().number(DeskState::kLookedAtSignal), store.signalLog().lastNumber());
    }
}

TEST(LibraryVersions, ALibraryOfALaterVersionIsLeftAlone) {
    const EarlierLibrary library(5);
    Database(library.file(), Database::Access::readWrite).execute("PRAGMA user_version = 10");
    for (const auto access : {Database::Access::readWrite, Database::Access::readOnly}) {
        try {
            LocalStore(library.file(), access);
            ADD_FAILURE() << "it was opened";
        } catch (const StoreError& error) {
            EXPECT_EQ(error.reason(), StoreError::Reason::newerVersion);
            EXPECT_NE(std::string(error.what()).find("newer version"), std::string::npos);
        }
    }
    EXPECT_EQ(library.list("PRAGMA user_version"), "10 ");
}

TEST(LibraryVersions, ALibraryOfTheFirstVersionComesOverWhole) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "library.sqlite";
    Database(file, Database::Access::readWrite).execute(fixture("version-1.sql").c_str());
    LocalStore store(file, Database::Access::readWrite);

    std::string order;
    store.stories().eachInWireOrder(std::nullopt, [&](const StoredStory& stored) {
        order += stored.story.id + " ";
        return true;
    });
    EXPECT_EQ(order, "b2 a1 c3 ") << "of one moment, what was seen later stands before";
    const auto story = store.stories().findByID("b2", 1).at(0);
    EXPECT_EQ(story.story.credits.at(0).name, "B");
    EXPECT_EQ(story.story.destinationName, "The Verge");
    EXPECT_EQ(story.firstSeen, kit::Instant(std::chrono::seconds(1793613800)));

    std::string found;
    store.search().each({.search = SearchText::parse("cafe zoe")}, [&](const StoredStory& stored) {
        found += stored.story.id;
        return true;
    });
    EXPECT_EQ(found, "a1");
    EXPECT_EQ(store.sources().customSources().at(0).name, "Own");
    EXPECT_FALSE(store.sources().switches().at("macrumors"));
    EXPECT_EQ(store.sources().statuses().at("own").storyCount, 3);
    EXPECT_EQ(store.validators().load().size(), 1u);

    // The guard against changed links knows the headlines of before.
    auto reslugged = store.stories().findByID("c3", 1).at(0).story;
    reslugged.id = "d4";
    reslugged.link = "https://a.example/4";
    EXPECT_EQ(store.merging()
                  .merge(std::vector{reslugged}, {.seen = reslugged.publishedAt}, 2)
                  .count.moved,
              1u);
}

TEST(LibraryVersions, ALibraryWhoseIndexFollowedEachStoryStaysSearchable) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "library.sqlite";
    Database(file, Database::Access::readWrite).execute(fixture("version-4.sql").c_str());
    LocalStore store(file, Database::Access::readWrite);
    const auto found = [&](const char* words) {
        std::string ids;
        store.search().each({.search = SearchText::parse(words)}, [&](const StoredStory& stored) {
            ids += stored.story.id + " ";
            return true;
        });
        return ids;
    };
    EXPECT_EQ(found("cafe"), "a1 ");

    auto revised = store.stories().findByID("a1", 1).at(0).story;
    revised.summary = "A bakery next door.";
    auto added = revised;
    added.id = "d4";
    added.link = "https://a.example/4";
    added.title = "Porto store opens";
    auto transaction = store.transaction();
    store.merging().merge(std::vector{revised, added}, {.seen = revised.publishedAt},
                          store.state().nextStamp());
    store.stories().dropPublishedBefore(revised.publishedAt, revised.publishedAt);
    transaction.commit();
    EXPECT_EQ(found("cafe"), "");
    EXPECT_EQ(found("bakery store"), "d4 a1 ");
    EXPECT_EQ(found("author:ana"), "") << "dropped";
    EXPECT_EQ(found("window"), "b2 ");
    Database(file, Database::Access::readWrite).execute(test::kCheckSearchIndex);
}

}  // namespace
}  // namespace app
