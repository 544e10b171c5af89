#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <string>

#include "NewsroomKit/Panels/TimelinePageContent.h"
#include "NewsroomKit/Panels/TopStoriesContent.h"

namespace kit {
namespace {

using namespace std::chrono_literals;

const Instant kToday = std::chrono::sys_days(std::chrono::year(2026) / 10 / 1) + 15h + 30min;

/// Stories in pairs: the first outlet's, and that of another one four minutes later.
class Pairs {
public:
    void add(const std::string& outlet, std::chrono::hours ago) {
        const auto number = std::to_string(clusters_.size());
        StoryCluster cluster{.id = number + "a"};
        for (const char* part : {"a", "b"}) {
            Story& story = all_.emplace_back();
            story.id = number + part;
            story.title = "Apple news " + number;
            story.sourceName = *part == 'a' ? outlet : "Echo";
            story.link = "https://" + story.id + ".example/";
            story.publishedAt = kToday - ago + (*part == 'a' ? 0min : 4min);
            cluster.storyIDs.push_back(story.id);
        }
        clusters_.push_back(std::move(cluster));
    }
    PanelNews news() {
        stories_.clear();
        for (const auto& story : all_)
            stories_.push_back({.story = &story, .firstSeen = story.publishedAt});
        return {.stories = stories_, .clusters = clusters_, .now = kToday};
    }

private:
    std::deque<Story> all_;
    std::vector<PanelStory> stories_;
    std::vector<StoryCluster> clusters_;
};

TEST(TopStoriesContent, CountsFirstsOfThirtyDaysAndListsScoopsOfSeven) {
    Pairs pairs;
    for (const int days : {1, 3, 9, 20}) pairs.add("Tide", days * 24h);
    pairs.add("Dale", 48h * 2);
    pairs.add("Old", 24h * 31);
    const auto content = topStoriesContent(pairs.news());
    std::string firsts;
    for (const auto& each : content.firsts)
        firsts += each.outlet + " " + std::to_string(each.times) + " ";
    EXPECT_EQ(firsts, "Tide 4 Dale 1 ");
    EXPECT_EQ(content.allFirsts, 5u);
    EXPECT_EQ(content.scoops.size(), 3u);
    ASSERT_EQ(content.subjects.size(), 1u) << "of 48 hours";
    EXPECT_EQ(content.subjects[0].stories.size(), 2u);
}

TEST(TopStoriesContent, SumsUpTheOutletsBeyondTheMost) {
    Pairs pairs;
    for (int i = 0; i < 9; ++i) pairs.add("Outlet " + std::to_string(i), 24h * (i + 1));
    const auto content = topStoriesContent(pairs.news());
    EXPECT_EQ(content.firsts.size(), kMostFirsts);
    EXPECT_EQ(content.otherOutlets, 3u);
    EXPECT_EQ(content.otherFirsts, 3u);
}

TEST(TimelinePage, HasAScaleThatFitsItsSpan) {
    struct Case {
        std::chrono::hours ago;
        std::chrono::hours bar;
    };
    for (const auto& [ago, bar] : {Case{5h, 1h}, Case{24h * 30, 24h}, Case{24h * 200, 24h * 7}}) {
        Pairs pairs;
        pairs.add("Tide", ago);
        const auto page = timelinePage(pairs.news(), {});
        EXPECT_EQ(page.barSpan, bar) << ago.count();
        std::size_t stories = 0;
        for (const auto& each : page.bars) stories += each.stories;
        EXPECT_EQ(stories, 2u);
    }
    EXPECT_EQ(timelinePage({.now = kToday}, {}).bars.size(), 1u) << "of nothing too";
}

TEST(TimelinePage, TellsVersionsInHeadlinesApart) {
    struct Case {
        const char* title;
        std::size_t found;
    };
    const SeenBuild build{.platform = "iOS", .release = {.version = "27.1", .build = "24B91"}};
    for (const auto& [title, found] :
         {Case{"What iOS 27.1 brings", 1}, Case{"iOS 27.1.", 1}, Case{"iOS 27.1.1 is out", 0},
          Case{"iOS 27.1.1 follows iOS 27.1", 1}, Case{"iOS 27", 0}}) {
        const Story story{.title = title};
        const PanelStory shown{.story = &story};
        EXPECT_EQ(releaseSignals({&build, 1}, {&shown, 1}).size(), found) << title;
    }
}

}  // namespace
}  // namespace kit
