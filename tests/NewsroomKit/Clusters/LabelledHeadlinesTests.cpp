#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <stdexcept>

#include "NewsroomKit/Clusters/ClusterVocabulary.h"
#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "tests/support/LabelledHeadlines.h"

namespace kit {
namespace {

test::LabelledHeadlines reportingHalf() {
    return test::LabelledHeadlines::read(BRELL_FIXTURES "/clusters/reporting.txt");
}

TEST(LabelledHeadlines, ClustersAgreeWithTheSubjectsOfHeadlinesThatNothingWasTunedOn) {
    const auto labelled = reportingHalf();
    StoryClusterer clusterer(WordMemory::of(labelled.stories));
    clusterer.add(labelled.stories);
    const auto scores = test::scoresOf(labelled, test::partsOf(labelled, clusterer.clusters()));
    EXPECT_GE(scores.f1, 0.88);
    EXPECT_GE(scores.precision, 0.94);
    EXPECT_LE(scores.hardPairsJoined, 0.02);
    EXPECT_GT(scores.hardPairs, 1000u);
}

TEST(LabelledHeadlines, WhileStoriesComeInAClustersIdentityOnlyChangesToThatOfAnEarlierOne) {
    auto labelled = reportingHalf();
    auto& stories = labelled.stories;
    const auto earlier = [](const Story& a, const Story& b) {
        return a.publishedAt != b.publishedAt ? a.publishedAt < b.publishedAt : a.id < b.id;
    };
    std::sort(stories.begin(), stories.end(), earlier);
    StoryClusterer clusterer(WordMemory::of(stories));
    std::map<std::string, std::string> identities;
    std::size_t changes = 0;
    std::map<std::string, std::size_t> placeOf;
    for (const Story& story : stories) placeOf.emplace(story.id, placeOf.size());
    for (const Story& story : stories) {
        clusterer.add({&story, 1});
        for (const auto& cluster : clusterer.clusters()) {
            for (const auto& id : cluster.storyIDs) {
                const auto [row, isNew] = identities.try_emplace(id, cluster.id);
                if (!isNew && placeOf.at(cluster.id) > placeOf.at(row->second)) ++changes;
                row->second = cluster.id;
            }
        }
    }
    EXPECT_EQ(changes, 0u);
}

TEST(ClusterVocabulary, TheTableReadsAndNoAliasStandsForTwoNamesWithoutContext) {
    // The constructor refuses rows that do not read and aliases that are there twice.
    const auto& words = ClusterVocabulary::shared().words();
    EXPECT_GT(words.size(), 500u);
    const auto* ios = ClusterVocabulary::shared().find("ios");
    ASSERT_TRUE(ios);
    EXPECT_EQ(ios->role, WordRole::system);
    EXPECT_EQ(ClusterVocabulary::shared().find("dye"), nullptr) << "needs a context";
}

TEST(ClusterVocabulary, FaultyRowsAreRefused) {
    for (const char* text : {
             "[sense 0.01]\nbuy = acquire\nhire = acquire",  // twice
             "[sense 0.01]\nbuy = Acquire",                  // a capital letter
             "[sense 0.01]\nbuy = take over all of it",      // five words
             "[sense 0.01]\nbuy = sold ?@nothing",           // no such role
             "[sense 0.01]\nbuy = sold ?",                   // no context
             "[verb 0.01]\nbuy",                             // no such role
             "[sense 2]\nbuy",                               // a share above 1
         }) {
        EXPECT_THROW(ClusterVocabulary{text}, std::invalid_argument) << text;
    }
    const ClusterVocabulary good("[sense 0.01]\nbuy = acquire; sold ?apple\nsale = sold");
    EXPECT_EQ(good.find("acquired")->name, "buy");
    EXPECT_EQ(good.find("sold")->name, "sale");
}

}  // namespace
}  // namespace kit
