#include <gtest/gtest.h>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/Tarnwick_Brell/Storage/LibraryFile.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using kit::Instant;
using kit::Story;

Instant at(int minute) { return Instant(std::chrono::minutes(minute)); }

Story story(int source, int number, const std::string& title) {
    const auto host = "s" + std::to_string(source) + ".example";
    const auto id = std::to_string(source) + "-" + std::to_string(number);
    return {.id = id,
            .link = "https://" + host + "/" + id,
            .title = title,
            .publishedAt = at(number),
            .sourceID = host,
            .sourceName = host};
}

class SearchIndexTest : public ::testing::Test {
protected:
    void merge(const std::vector<Story>& stories) {
        store_.merging().merge(stories, {.seen = at(100)}, store_.state().nextStamp());
    }

    void merge(const Story& story) { merge(std::vector{story}); }

    std::string found(const char* words) {
        std::string ids;
        store_.search().each({.search = SearchText::parse(words)}, [&](const StoredStory& stored) {
            ids += stored.story.id + " ";
            return true;
        });
        return ids;
    }

    void check() {
        Database(library_, Database::Access::readWrite).execute(test::kCheckSearchIndex);
    }

    test::TemporaryFolder folder_;
    std::filesystem::path library_ = folder_.path() / "library.sqlite";
    LocalStore store_{library_, Database::Access::readWrite};
};

TEST_F(SearchIndexTest, WhatChangesSeveralTimesInATransactionIsFoundByItsLastWords) {
    {
        auto transaction = store_.transaction();
        merge(story(1, 1, "Cherries"));
        merge(story(1, 1, "Plums"));
        merge(story(1, 2, "Apricots"));
        transaction.commit();
    }
    EXPECT_EQ(found("cherries") + found("plums"), "1-1 ");
    {
        auto transaction = store_.transaction();
        merge(story(1, 2, "Figs"));
        merge(story(1, 1, "Quinces"));
        merge(story(1, 1, "Medlars"));
        transaction.commit();
    }
    EXPECT_EQ(found("plums") + found("quinces") + found("apricots"), "");
    EXPECT_EQ(found("medlars") + found("figs"), "1-1 1-2 ");
    check();
}

TEST_F(SearchIndexTest, WhatIsRolledBackLeavesTheIndexAsItWas) {
    {
        auto transaction = store_.transaction();
        merge(story(1, 1, "Cherries"));
        transaction.commit();
    }
    {
        auto transaction = store_.transaction();
        merge({story(1, 1, "Plums"), story(1, 2, "Figs")});
    }
    {
        auto transaction = store_.transaction();
        merge(story(1, 3, "Quinces"));
        transaction.commit();
    }
    EXPECT_EQ(found("cherries") + found("plums") + found("figs") + found("quinces"), "1-1 1-3 ");
    check();
}

TEST_F(SearchIndexTest, TheStoriesOfATransactionMakeOnePieceOfTheIndex) {
    // Every source has stories of the same days, so that numbers fall from one to the next.
    {
        auto transaction = store_.transaction();
        auto merging = store_.merging();
        for (int source = 0; source < 20; ++source) {
            std::vector<Story> feed;
            for (int number = 0; number < 10; ++number) {
                feed.push_back(story(source, number, "Fruit of week " + std::to_string(source)));
            }
            merging.merge(feed, {.seen = at(100)}, 2);
        }
        transaction.commit();
    }
    Database database(library_, Database::Access::readOnly);
    Statement pieces(database, "SELECT count(DISTINCT segid) FROM storySearch_idx");
    pieces.step();
    EXPECT_EQ(pieces.number(0), 1);
    check();
}

}  // namespace
}  // namespace app
