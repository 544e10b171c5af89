#include <gtest/gtest.h>

#include <map>

#include "BrellSharedSync/FieldSet.h"
#include "BrellSharedSync/Merge.h"
#include "BrellSharedSync/RecordFields.h"
#include "NewsroomKit/Sources/SourceJSON.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

const kit::Instant kNow{std::chrono::seconds(1'790'000'000)};

kit::NewsSource orchard(const std::string& feed) {
    return {.id = "orchard",
            .name = "Orchard News",
            .feedURL = feed,
            .siteURL = "https://orchard.example/"};
}

/// What is recorded for other computers.
class SharedRecords : public testing::Test {
protected:
    /// By "kind:key", as JSON; "gone" for what was removed.
    std::map<std::string, std::string> recorded() {
        Database database(library, Database::Access::readWrite);
        Statement rows(database, "SELECT kind, key, fields FROM syncRecords");
        std::map<std::string, std::string> records;
        while (rows.step()) {
            const auto name = rows.text(0) + ":" + rows.text(1);
            const auto& kind = *shared::kindOfRecord(name);
            const auto fields = shared::FieldSet::parse(rows.view(2));
            records[name] = shared::isGone(kind, fields)
                                ? "gone"
                                : boost::json::serialize(shared::recordJSON(kind, fields));
        }
        return records;
    }
    void execute(const std::string& sql) {
        Database(library, Database::Access::readWrite).execute(sql.c_str());
    }

    test::TemporaryFolder folder;
    std::filesystem::path library = folder.path() / "library.sqlite";
};

TEST_F(SharedRecords, ASourceIsOneRecordByItsFeedUntilTheFeedIsAnother) {
    LocalStore store(library, Database::Access::readWrite);
    auto& sources = store.sources();
    sources.add(orchard("https://orchard.example/feed"));
    ASSERT_EQ(recorded().size(), 1U);
    const auto [name, record] = *recorded().begin();
    EXPECT_TRUE(name.starts_with("f:")) << name;
    for (const auto* part : {"\"name\":\"Orchard News\"", "\"addedAt\":\"20"})
        EXPECT_NE(record.find(part), std::string::npos) << record;

    auto renamed = orchard("https://ORCHARD.example/feed#top");
    renamed.name = "Pears";
    sources.update(renamed);
    const auto after = recorded().at(name);
    EXPECT_NE(after.find("\"name\":\"Pears\""), std::string::npos) << after;
    EXPECT_NE(after.find("\"addedAt\":\"20"), std::string::npos) << after;

    sources.update(orchard("https://orchard.example/other"));
    EXPECT_EQ(recorded().size(), 2U);
    EXPECT_EQ(recorded().at(name), "gone");

    sources.remove("orchard", kNow);
    for (const auto& [of, text] : recorded()) EXPECT_EQ(text, "gone") << of;
    sources.restore(orchard("https://orchard.example/feed"));
    EXPECT_NE(recorded().at(name), "gone");
}

TEST_F(SharedRecords, WhatIsOlderThanTheRecordingIsRecordedWithTheMigration) {
    {
        LocalStore store(library, Database::Access::readWrite);
    }
    execute(
        "INSERT INTO newsrooms (id, rank, record) VALUES ('N1', 'g', '{\"name\":\"Mine\"}'), "
        "('N2', 'h', 'no JSON')");
    execute(
        "INSERT INTO newsrooms (id, rank, record, removedAt) VALUES "
        "('N3', 'i', '{\"name\":\"Old\"}', 5)");
    execute("INSERT INTO beats (id, rank, record) VALUES ('B1', 'g', '{\"name\":\"Pears\"}')");
    execute("INSERT INTO sourceSwitches (id, enabled) VALUES ('bbc', 1)");
    execute("INSERT INTO customSources (id, record) VALUES ('own', '" +
            boost::json::serialize(kit::encode(orchard("https://orchard.example/feed"))) + "')");
    execute("PRAGMA user_version = 8");
    {
        LocalStore store(library, Database::Access::readWrite);
    }
    const auto records = recorded();
    EXPECT_NE(records.at("n:N1").find("\"Mine\""), std::string::npos);
    EXPECT_EQ(records.at("n:N3"), "gone");
    EXPECT_NE(records.at("b:B1").find("\"Pears\""), std::string::npos);
    EXPECT_EQ(records.at("w:bbc"), "{\"enabled\":true}");
    EXPECT_FALSE(records.contains("n:N2"));
    EXPECT_EQ(records.size(), 5U) << "with the source";

    execute("PRAGMA user_version = 8");
    {
        LocalStore store(library, Database::Access::readWrite);
    }
    EXPECT_EQ(recorded(), records);
}

}  // namespace
}  // namespace app
