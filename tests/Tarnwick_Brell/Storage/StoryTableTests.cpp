#include <gtest/gtest.h>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using kit::Instant;
using kit::Story;

Instant at(int second) { return Instant(std::chrono::seconds(second)); }

Story story(std::string id, int second) {
    return {.id = id,
            .link = "https://a.example/" + id,
            .title = "Title " + id,
            .publishedAt = at(second),
            .sourceID = "a",
            .sourceName = "A"};
}

class LibraryTest : public ::testing::Test {
protected:
    MergeCount merge(std::vector<Story> stories, int seen) {
        auto transaction = store_.transaction();
        const auto merged =
            store_.merging().merge(stories, {.seen = at(seen)}, store_.state().nextStamp());
        transaction.commit();
        return merged.count;
    }

    std::string order() {
        std::string ids;
        store_.stories().eachInWireOrder(std::nullopt, [&](const StoredStory& stored) {
            ids += stored.story.id + " ";
            return true;
        });
        return ids;
    }

    test::TemporaryFolder folder_;
    LocalStore store_{folder_.path() / "library.sqlite", Database::Access::readWrite};
};

TEST_F(LibraryTest, EveryFieldComesBackAsItWasKept) {
    Story full = story("f1", 100);
    full.summary = std::string("nul\0inside", 10);
    full.author = "";
    full.publishedAt += std::chrono::microseconds(7);
    full.imageURL = "https://a.example/p.jpg";
    full.destinationName = "B";
    full.isAppleSource = true;
    full.kind = kit::StoryKind::advertisement;
    full.sourcing = kit::Sourcing::onRecord;
    full.wordpressID = -5;
    full.articleLink = "https://b.example/";
    full.credits = {{.kind = kit::SourceCredit::Kind::apple, .name = "Apple", .postedAt = at(3)}};
    merge({full, story("f2", 50)}, 200);
    EXPECT_EQ(store_.stories().findByID("f1", 2).at(0).story, full);
    EXPECT_EQ(store_.stories().findByID("f1", 2).at(0).firstSeen, at(200));
    EXPECT_EQ(store_.stories().findByID("f2", 2).at(0).story, story("f2", 50));
    EXPECT_EQ(store_.stories().findByID("f", 5).size(), 2u);
    EXPECT_TRUE(store_.stories().findByID("e", 5).empty());
}

TEST_F(LibraryTest, AKnownStoryKeepsIdentityAndTimesAndFollowsItsWording) {
    merge({story("1", 100)}, 200);
    EXPECT_EQ(merge({story("1", 999)}, 300).revised, 0u) << "another time alone is no revision";
    Story reworded = story("1", 999);
    reworded.title = "Better";
    reworded.sourcing = kit::Sourcing::rumor;
    const auto count = merge({reworded}, 300);
    EXPECT_EQ(count.added, 0u);
    EXPECT_EQ(count.revised, 1u);
    const auto kept = store_.stories().findByID("1", 1).at(0);
    EXPECT_EQ(kept.story.title, "Better");
    EXPECT_EQ(kept.story.sourcing, kit::Sourcing::rumor);
    EXPECT_EQ(kept.story.publishedAt, at(100));
    EXPECT_EQ(kept.firstSeen, at(200));
}

TEST_F(LibraryTest, AStoryThatOnlySharesTheIdDoesNotReplaceAnother) {
    merge({story("1", 100)}, 200);
    Story forged = story("1", 100);
    forged.link = "https://evil.example/";
    forged.title = "Forged";
    EXPECT_EQ(merge({forged}, 300).collided, 1u);
    EXPECT_EQ(store_.stories().findByID("1", 1).at(0).story.title, "Title 1");
}

TEST_F(LibraryTest, TheWireGoesByPublicationThenFirstSightThenId) {
    merge({story("b", 100), story("a", 100), story("c", 50)}, 200);
    merge({story("d", 100), story("e", 150)}, 300);
    EXPECT_EQ(order(), "e d a b c ");
    EXPECT_EQ(store_.stories().dropPublishedBefore(at(100), at(400)).size(), 1u);
    EXPECT_EQ(order(), "e d a b ");
}

TEST_F(LibraryTest, WhatIsNotCommittedIsGone) {
    {
        auto transaction = store_.transaction();
        store_.merging().merge(std::vector{story("1", 1)}, {.seen = at(1)}, 2);
    }
    EXPECT_EQ(store_.stories().count(), 0u);
}

TEST_F(LibraryTest, AReaderSeesTheLibraryWhileAnotherProgramHasItOpen) {
    merge({story("1", 1)}, 1);
    auto writing = store_.transaction();
    LocalStore reader(folder_.path() / "library.sqlite", Database::Access::readOnly);
    EXPECT_EQ(reader.stories().count(), 1u);
    EXPECT_THROW(reader.sources().setEnabled("a", true), StoreError);
}

}  // namespace
}  // namespace app
