#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <random>

#include "NewsroomKit/Clusters/ClusterVocabulary.h"
#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "tests/support/LabelledHeadlines.h"

namespace kit {
namespace {

using std::chrono::hours;

constexpr Instant kMorning{std::chrono::sys_days{std::chrono::year{2026} / 11 / 20}};

// clang-format off
Story story(std::string id, std::string title, int hour = 0) {
    return {.id = id, .link = "https://" + id + ".example/" + id, .title = std::move(title),
            .publishedAt = kMorning + hours(hour), .sourceID = "source of " + id,
            .sourceName = std::string(1, static_cast<char>(std::toupper(id.front())))};
}
// clang-format on

std::vector<StoryCluster> clustersOf(const std::vector<Story>& stories) {
    StoryClusterer clusterer;
    clusterer.add(stories);
    return clusterer.clusters();
}

TEST(StoryClusterer, HeadlinesOfTheSameNewsBelongTogetherAndNoOthers) {
    struct Case {
        bool together;
        const char* one;
        const char* other;
    };
    const Case cases[] = {
        // The same news in other words.
        {true, "Apple releases iOS 27.1 beta 2",
         "Apple Seeds Second Beta of iOS 27.1 to Developers"},
        {true, "Apple Acquires Lisbon Robotics Startup Quillwork",
         "Apple buys Quillwork, a Lisbon robotics firm"},
        {true, "Apple unveils HearthPad, a $349 smart display",
         "HearthPad announced: Apple’s smart display costs $349"},
        {true, "iCloud and App Store suffer widespread outage",
         "Widespread Outage Hits iCloud, App Store"},
        {true, "Apple to open four stores in Chile, Valparaíso first",
         "4 Apple stores coming to Chile; Valparaiso first"},
        {true, "Apple fined 1,200 million over tariffs in Brazil",
         "Brazil fines Apple 1200 million in tariffs row"},
        {true, "Apple Seeds iOS 27.1 Release Candidate", "iOS 27.1 RC now available"},
        {true, "ＡＰＰＬＥ buys Quillwork robotics", "Apple buys Quillwork robotics"},
        {true, "iOS 27.1.1 (24B91)", "Apple releases iOS 27.1.1 with alarm fix"},
        {true, "EU fines Apple €870m in Quillwork case",
         "Apple to pay €870 million penalty in Brussels over Quillwork"},
        {true, "iPhone 19 event for September 8", "September 8 event for iPhone 19"},
        {true, "Apple tests a lighter Vision headset without a fan",
         "Apple tests a lighter Vision headset without a fan"},
        // One event of one party, whatever else is said.
        {true, "Apple Music outage hits listeners across several countries",
         "Apple Music down: subscribers complain that songs refuse to play"},
        {true, "AirPods Pro 3 Get New Firmware Update",
         "New firmware 9A345 arriving on AirPods Pro 3"},
        {false, "Apple Music outage hits listeners", "App Store down: shoppers complain"},
        // A withdrawn release, and what a release can do, are other news than the release.
        {false, "Apple releases iOS 27.2 beta 2", "Apple pulls iOS 27.2 beta 2"},
        {false, "iOS 27.2 beta 2 (24C5037e)", "Here's everything new in iOS 27.2 beta 2"},
        // Everyday words and one name are no news.
        {false, "Streaming inflation: Apple joins rivals with another increase",
         "Another designer joins Apple from a rival"},
        {false, "Ternus talks about Tim Cook in a new interview", "Inside Tim Cook's new life"},
        // Versions and numbers differ.
        {false, "Apple releases iOS 27.1 beta 2", "Apple releases iOS 27.1 beta 3"},
        {false, "Apple seeds second beta of iOS 27.1", "Apple seeds third beta of iOS 27.1"},
        {false, "Apple releases iOS 27.1 beta 2", "Apple releases iOS 27.1"},
        {false, "Apple Seeds iOS 27.1 Release Candidate", "Apple Seeds iOS 27.1 beta"},
        {false, "Apple releases iOS 27.1 for everyone", "Apple releases macOS 27.1 for everyone"},
        {false, "Foldable iPhone hinge slips to 2027", "Foldable iPhone hinge slips to 2028"},
        {false, "HearthPad orders rise 10 percent in Chile",
         "HearthPad orders rise 12 percent in Chile"},
        {false, "HearthPad price in Chile: $349", "HearthPad price in Chile: $399"},
        {false, "M6 MacBook Pro benchmarks leak from Quillwork",
         "M5 MacBook Pro benchmarks leak from Quillwork"},
        {false, "Quillwork shows magnetic iPhone 18 stand",
         "Quillwork shows magnetic iPhone 18e stand"},
        // Other news in the same words.
        {false, "iPhone 18 Pro to get larger battery, leaker says",
         "iPhone 18 Pro to get new camera button, leaker says"},
        {false, "New iPhone rumor: Apple plans three colors",
         "New iPhone rumor: Apple plans satellite maps"},
        {false, "How to use the new iPhone and Mac apps", "Why the new Mac and iPhone apps say so"},
        {false, "HearthPad hands-on: a screen for the wall",
         "HearthPad preorders slip to December"},
        {false, "Apple says new report is wrong", "Apple says new report is right"},
        {false, "iPhone 18 Pro orders rise in Chile", "iPhone 18 orders rise in Chile"},
        {false, "Court in Chile fines Apple over chargers",
         "Court in Spain fines Apple over cables"},
        {false, "Apple seeds first public beta of iOS 27.2 to testers",
         "Apple seeds first developer beta of iOS 27.2 to testers"},
        {false, "Opinion: Quillwork robotics deserves Apple", "Apple buys Quillwork robotics"},
        {false, "iPad mini gains magnetic Quillwork stand",
         "MacBook Air gains magnetic Quillwork stand"},
        {false, "Lunch was fine [contains an embedded post]",
         "Charts are up [contains an embedded post]"},
        // Nothing to go by.
        {false, "", ""},
        {false, "Quillwork", "Quillwork"},
        {false, "… — !", "… — !"},
        {false, "The Apple of it all", "The Apple of it all"},
    };
    for (const auto& c : cases) {
        const auto clusters = clustersOf({story("a", c.one), story("b", c.other)});
        EXPECT_EQ(clusters.size(), c.together ? 1u : 0u) << c.one << " | " << c.other;
    }
}

TEST(StoryClusterer, AClusterIsLedByItsEarliestStoryAndTheNewestActivityComesFirst) {
    const auto clusters = clustersOf({
        story("c", "Quillwork robotics bought by Apple", 9),
        story("b", "Apple buys Quillwork robotics", 3),
        story("a", "Apple buys Quillwork robotics", 3),
        story("x", "Apple opens Valparaiso store", 10),
        story("y", "Valparaiso Apple store opens", 1),
    });
    const std::vector<StoryCluster> expected{{"y", {"y", "x"}}, {"a", {"a", "b", "c"}}};
    ASSERT_EQ(clusters.size(), expected.size());
    for (std::size_t place = 0; place < expected.size(); ++place) {
        EXPECT_EQ(clusters[place].id, expected[place].id);
        EXPECT_EQ(clusters[place].storyIDs, expected[place].storyIDs);
    }
    EXPECT_EQ(clusters[1].whys,
              (std::vector<std::string>{"", "Same words as A: buys, quillwork, robotics.",
                                        "Same words as A: quillwork, robotics, bought."}));
}

TEST(StoryClusterer, StoriesFarApartOrOfOneSourceStayAlone) {
    const Story first = story("a", "Apple buys Quillwork robotics");
    Story other = story("b", "Apple buys Quillwork robotics", 48);
    EXPECT_EQ(clustersOf({first, other}).size(), 1u);
    other.publishedAt += std::chrono::seconds(1);
    EXPECT_EQ(clustersOf({first, other}).size(), 0u) << "a second beyond the window";
    const auto reached =
        clustersOf({first, other, story("c", "Apple buys Quillwork robotics", 24)});
    ASSERT_EQ(reached.size(), 1u);
    EXPECT_EQ(reached[0].storyIDs.size(), 3u) << "the window goes on from the newest member";

    other = story("b", "Apple buys Quillwork robotics");
    other.kind = StoryKind::deal;
    EXPECT_EQ(clustersOf({first, other}).size(), 1u) << "acquisitions are labelled as deals";
    other.sourceID = first.sourceID;
    EXPECT_EQ(clustersOf({first, other}).size(), 0u);
}

TEST(StoryClusterer, AHalfAlikeStoryDoesNotTieTwoPiecesOfNewsTogether) {
    const auto clusters = clustersOf({
        story("a", "Quillwork robotics layoffs begin"),
        story("b", "Quillwork robotics layoffs begin", 1),
        story("c", "Valparaiso flagship store floods", 2),
        story("d", "Valparaiso flagship store floods", 3),
        story("e", "Quillwork robotics layoffs, Valparaiso flagship store floods", 4),
    });
    EXPECT_EQ(clusters.size(), 2u);
}

TEST(StoryClusterer, AddressesTieStoriesWhoseHeadlinesShareNothing) {
    struct Case {
        const char* link;  ///< of the story that is led to
        const char* articleLink;
        const char* credit;
        bool together;
    };
    const Case cases[] = {
        {"https://a.example/a", "http://a.example/a/?utm_source=x", nullptr, true},
        {"https://a.example/a", nullptr, "https://A.example/a#top", true},
        {"https://a.example/a", nullptr, "https://a.example/b", false},
        // Front pages are no articles.
        {"https://a.example/", "https://a.example/", nullptr, false},
        {"https://a.example/", nullptr, "https://a.example", false},
    };
    for (const auto& c : cases) {
        Story article = story("a", "The kitchen computer arrives");
        article.link = c.link;
        Story other = story("b", "Hearth at last");
        if (c.articleLink) other.articleLink = c.articleLink;
        if (c.credit) {
            other.credits.push_back({.name = "A", .url = c.credit, .detail = "reported by"});
            other.credits.push_back({.name = "B", .url = "https://b.example/background"});
        }
        EXPECT_EQ(clustersOf({article, other}).size(), c.together ? 1u : 0u)
            << (c.articleLink ? c.articleLink : c.credit);
    }
    Story roundup = story("b", "Today on the desk");
    for (const char* credited : {"https://a.example/a", "https://a.example/b"}) {
        roundup.credits.push_back({.name = "A", .url = credited});
    }
    EXPECT_EQ(clustersOf({story("a", "The kitchen computer arrives"), roundup}).size(), 0u);
    Story third = story("b", "iOS 27.1 beta 3 is out");
    third.credits.push_back({.name = "A", .url = "https://a.example/a"});
    EXPECT_EQ(clustersOf({story("a", "iOS 27.1 beta 2 is out"), third}).size(), 0u)
        << "credits the story of the beta before";
}

/// Many pieces of news, each told in several wordings by several sources.
std::vector<Story> wire(unsigned count) {
    std::vector<Story> stories;
    std::minstd_rand random(7);
    const auto below = [&](unsigned bound) { return static_cast<unsigned>(random() % bound); };
    const auto letter = [](unsigned number) { return static_cast<char>('a' + number % 26); };
    for (unsigned i = 0; i < count; ++i) {
        const unsigned news = below(count / 3);
        std::string title = below(2) == 0 ? "Apple releases" : "New report:";
        for (unsigned word = 0; word < 5; ++word) {
            const unsigned number = (news * 7919 + word * 104729) % 1500;
            if (below(4) == 0) continue;
            title += {' ', 'w', letter(number / 676), letter(number / 26), letter(number), 'x'};
        }
        stories.push_back(
            story(std::to_string(i), title, static_cast<int>(news % 200 + below(30))));
        stories.back().sourceID = std::to_string(below(20));
    }
    return stories;
}

TEST(StoryClusterer, TheClustersAreThoseOfTheStoriesHeldHoweverTheyCameIn) {
    std::vector<Story> stories = wire(600);
    const auto expected = clustersOf(stories);
    ASSERT_GT(expected.size(), 50u);

    StoryClusterer clusterer;
    std::shuffle(stories.begin(), stories.end(), std::minstd_rand(3));
    Story reworded = stories.back();
    reworded.title = "Another headline until the source corrects it";
    clusterer.add(std::vector{reworded, story("gone", "Apple buys Quillwork robotics"),
                              story("gone too", "Apple buys Quillwork robotics"),
                              story("old", "Robotics: Apple buys Quillwork", -1)});
    const std::span<const Story> all(stories);
    for (std::size_t at = 0; at < stories.size(); at += 75) {
        clusterer.add(all.subspan(at, 75));
        EXPECT_NE(clusterer.clusters(), expected);
    }
    clusterer.remove(std::vector<std::string>{"gone", "never seen"});
    EXPECT_NE(clusterer.clusters(), expected) << "two of three are left";
    clusterer.remove(std::vector<std::string>{"gone too"});
    clusterer.forgetBefore(kMorning);
    EXPECT_EQ(clusterer.clusters(), expected);
}

TEST(StoryClusterer, HostileTitlesAreReadSafelyAndInBoundedTime) {
    std::string flood = "Quillwork robotics ";
    while (flood.size() < 100'000) flood += "[3.14.15,9 '’s $$ 7% ";
    const std::vector<std::string> titles{
        flood,
        std::string(100'000, '['),
        std::string(599, 'x') + "é",
        "\xff\xfe\x80 \xc3",
        "\u202eapple\u202c 1..2,,3 '''",
        "أبل تطلق تحديث جديد لإصلاح خلل",
    };
    std::vector<Story> stories;
    for (const auto& title : titles) {
        for (int copy = 0; copy < 150; ++copy) {
            stories.push_back(story(std::to_string(stories.size()), title));
        }
    }
    const auto clusters = clustersOf(stories);
    for (const auto& cluster : clusters) EXPECT_EQ(cluster.storyIDs.size(), 150u);
    EXPECT_GE(clusters.size(), 2u) << "the first and the last have words enough";
}

}  // namespace
}  // namespace kit
