#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

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
