#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "NewsroomKit/Panels/Brief.h"
#include "NewsroomKit/Panels/Claims.h"
#include "NewsroomKit/Panels/Coverage.h"
#include "NewsroomKit/Panels/RecentClusters.h"
#include "NewsroomKit/Panels/Scoops.h"
#include "NewsroomKit/Panels/StoryTimeline.h"
#include "NewsroomKit/Panels/TopStories.h"

namespace kit {
namespace {

using namespace std::chrono_literals;

const Instant kNow = std::chrono::sys_days(std::chrono::year(2026) / 10 / 1) + 15h + 30min;

/// A story by its essentials; it came when it was published unless `late` hours later.
struct Told {
    std::string id;
    std::string outlet;
    double hoursAgo;
    Sourcing sourcing = Sourcing::unlabeled;
    bool isApple = false;
    double late = 0;
    const char* destination = nullptr;
};

Instant hoursAgo(double hours) {
    return kNow - std::chrono::microseconds(static_cast<std::int64_t>(hours * 3'600'000'000));
}

/// Panel stories, newest first, and their clusters.
class News {
public:
    News(std::vector<Told> told, std::vector<std::vector<std::string>> clusters) {
        std::stable_sort(told.begin(), told.end(),
                         [](const Told& a, const Told& b) { return a.hoursAgo < b.hoursAgo; });
        for (const Told& t : told) {
            Story& story = all_.emplace_back();
            story.id = t.id;
            story.title = "Apple title of " + t.id;
            story.sourceName = t.outlet;
            story.publishedAt = hoursAgo(t.hoursAgo);
            story.sourcing = t.sourcing;
            story.isAppleSource = t.isApple;
            if (t.destination) story.destinationName = t.destination;
            stories_.push_back({.story = &story, .firstSeen = hoursAgo(t.hoursAgo - t.late)});
        }
        for (auto& ids : clusters) clusters_.push_back({.id = ids.front(), .storyIDs = ids});
    }
    PanelNews get() const { return {.stories = stories_, .clusters = clusters_, .now = kNow}; }

private:
    std::deque<Story> all_;
    std::vector<PanelStory> stories_;
    std::vector<StoryCluster> clusters_;
};

std::string names(const std::vector<StoryMention>& mentions) {
    std::string text;
    for (const auto& mention : mentions) text += (text.empty() ? "" : ",") + mention.outlet;
    return text;
}

// clang-format off
TEST(TopStories, RankByOutletsFirmnessAndFreshnessAndEndWithTheirSpan) {
    const News news(
        {{"a1", "Post", 10}, {"a2", "Tide", 9, Sourcing::report}, {"a3", "POST", 1},
         {"b1", "Post", 12, Sourcing::rumor}, {"b2", "Dale", 11},
         {"b3", "Links", 8, Sourcing::report, false, 0, "Tide"}, {"c1", "Post", 7},
         {"c2", "Dale", 6}, {"d1", "Post", 5}, {"d2", "Póst", 4}, {"e1", "Post", 70},
         {"e2", "Tide", 49}, {"f1", "Post", 3}},
        {{"a1", "a2", "a3"}, {"b1", "b2", "b3"}, {"c1", "c2", "elsewhere"}, {"d1", "d2"},
         {"e1", "e2"}, {"elsewhere", "gone"}});
    // clang-format on
    std::string text;
    for (const auto& story : topStories(news.get())) {
        text += story.first.storyID + ": " + names(story.outlets) + " " +
                std::string(rawValue(story.sourcing)) + " " + std::to_string(story.unread) + "\n";
    }
    EXPECT_EQ(text,
              "a1: Post,Tide report 3\n"
              "b1: Post,Dale,Links report 3\n"
              "c1: Post,Dale unlabeled 2\n");
}

TEST(Claims, AreWhatWasSaidBeforeAppleSaidAnything) {
    const auto rumor = Sourcing::rumor, report = Sourcing::report, onRecord = Sourcing::onRecord,
               confirmed = Sourcing::confirmed;
    struct Case {
        const char* what;
        std::vector<Told> told;
        std::string expected;
    };
    const Case cases[] = {
        {"a rumor alone", {{"a", "Post", 9, rumor}}, "rumored by Post, 1"},
        {"a rumor and a report",
         {{"a", "Post", 9, rumor},
          {"b", "Tide", 8, report},
          {"c", "Dale", 7},
          {"d", "Tide", 6, rumor}},
         "reported by Post, 2"},
        {"unlabeled news first",
         {{"a", "Post", 9}, {"b", "Tide", 8, report}},
         "reported by Tide, 1"},
        {"Apple's own post later",
         {{"a", "Post", 9, rumor}, {"b", "Apple", 8, confirmed, true}, {"c", "Dale", 7, report}},
         "confirmed by Post, 1, Apple"},
        {"a word on the record, then the deed",
         {{"a", "Post", 9, report}, {"b", "Tide", 8, onRecord}, {"c", "Dale", 7, confirmed}},
         "confirmed by Post, 1, Dale"},
        {"a word on the record",
         {{"a", "Post", 9, report}, {"b", "Tide", 8, onRecord}},
         "answered by Post, 1, Tide"},
        {"Apple first", {{"a", "Apple", 9, confirmed, true}, {"b", "Tide", 8, report}}, "none"},
        {"no claim", {{"a", "Post", 9}, {"b", "Tide", 8}}, "none"},
        {"too old", {{"a", "Post", 24 * 15, rumor}}, "none"},
        {"Apple first, just before the span",
         {{"a", "Apple", 24 * 15, confirmed, true}, {"b", "Tide", 24 * 13, report}},
         "none"},
        {"older than what counts",
         {{"a", "Apple", 24 * 17, confirmed, true}, {"b", "Tide", 24 * 13, report}},
         "reported by Tide, 1"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> ids;
        for (const auto& told : c.told) ids.push_back(told.id);
        const News news(c.told, {ids});
        const auto found = claims(news.get());
        std::string text = "none";
        if (!found.empty()) {
            const auto& claim = found.front();
            text = std::string(rawValue(claim.state)) + " by " + claim.first.outlet + ", " +
                   std::to_string(claim.outlets);
            if (claim.answer) text += ", " + claim.answer->outlet;
        }
        EXPECT_EQ(text, c.expected) << c.what;
    }
}

// clang-format off
TEST(Coverage, CountsStoriesOfEachOutletAndHowOftenItWasFirst) {
    const News news({{"a1", "Post", 10}, {"a2", "Tide", 9}, {"b1", "tide", 8}, {"b2", "Post", 7},
                     {"c1", "Tide", 6}, {"d1", "Dale", 5}, {"d2", "Dale", 4}, {"e1", "Post", 800},
                     {"e2", "Tide", 3}, {"f1", "Abbey", 2}},
                  // clang-format on
                  {{"a1", "a2"}, {"b1", "b2"}, {"d1", "d2"}, {"e1", "e2"}});
    const auto rows = coverage(news.get());
    std::string text;
    for (const auto& row : rows) {
        text += row.outlet + " " + std::to_string(row.stories) + " " +
                std::to_string(row.timesFirst) + "\n";
    }
    EXPECT_EQ(text, "Tide 4 1\nPost 2 1\nDale 2 0\nAbbey 1 0\n");
    EXPECT_EQ(rows[0].first, hoursAgo(9));
    EXPECT_EQ(rows[0].last, hoursAgo(3));
}

// clang-format off
TEST(Scoops, NameWhoWasFirstOnlyWhereThatCanBeTold) {
    const News news({{"a1", "Post", 10}, {"a2", "Post", 9}, {"a3", "Tide", 8.5}, {"a4", "Dale", 8},
                     {"b1", "Apple", 7, Sourcing::confirmed, true}, {"b2", "Tide", 6},
                     {"c1", "Post", 5}, {"c2", "Tide", 5},
                     {"d1", "Dale", 15.5}, {"d2", "Tide", 3},
                     {"e1", "Dale", 4}, {"e2", "Post", 2},
                     {"f1", "Dale", 24 * 8}, {"f2", "Post", 24 * 6},
                     {"g1", "Tide", 40}, {"g2", "Dale", 20}},
                    {{"a1", "a2", "a3", "a4"}, {"b1", "b2"}, {"c1", "c2"}, {"d1", "d2"},
                     {"e1", "e2"}, {"f1", "f2"}, {"g1", "g2"}});
    // clang-format on
    const auto found = scoops(news.get());
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].story.storyID, "e1");
    EXPECT_EQ(found[1].story.storyID, "a1");
    EXPECT_EQ(found[1].attribution.second, "Tide");
    EXPECT_EQ(found[1].followers, 2U);
}

TEST(StoryTimeline, NamesEachOutletOnceAndTheFirstOnlyWhereTimesSaySo) {
    struct Case {
        std::vector<std::pair<const char*, double>> told;  ///< by whom, hours after midnight
        const char* text;
    };
    const Case cases[] = {
        {{{"Post", 1}, {"post", 2}, {"Tide", 3}, {"Post", 4}}, "Post +0 Tide +120 lead 120"},
        {{{"Post", 1}, {"Post", 2}}, ""},
        {{{"Post", 0}, {"Tide", 3}}, "Post Tide first unknown"},
        {{{"Post", 1}, {"Tide", 24}}, "Post +0 Tide"},
        {{{"Post", 1}, {"Tide", 1}}, "Post +0 Tide +0 first unknown"},
    };
    const auto text = [](Instant::duration span) { return std::to_string(span / 1min); };
    for (const auto& [told, expected] : cases) {
        std::vector<ClusterMember> members;
        for (const auto& [outlet, hours] : told) {
            members.push_back({.story = {.id = std::to_string(members.size()),
                                         .publishedAt = hoursAgo(15.5 - hours),
                                         .sourceName = outlet},
                               .why = "because of " + std::to_string(members.size())});
        }
        const auto timeline = storyTimeline(members);
        std::string all;
        for (const auto& [mention, delay, isFirst, why] : timeline.rows) {
            EXPECT_EQ(why, "because of " + mention.storyID);
            all += " " + mention.outlet + (delay ? " +" + text(*delay) : "");
        }
        if (const auto lead = timeline.attribution.lead)
            all += " lead " + text(std::chrono::seconds(*lead));
        if (!timeline.rows.empty() && !timeline.rows.front().isFirst) all += " first unknown";
        EXPECT_EQ(all.substr(std::min<std::size_t>(1, all.size())), expected);
    }
}

TEST(Brief, TellsWhatCameSinceTheLastLookTheMostToldFirst) {
    const auto apple = [](std::string id, double hours) {
        return Told{std::move(id), "Apple", hours, Sourcing::confirmed, true};
    };
    // clang-format off
    const News news({{"old", "Post", 9}, {"a1", "Post", 3}, {"b1", "Dale", 2.5, Sourcing::rumor},
                     {"c1", "Tide", 2, Sourcing::report}, {"a2", "Tide", 1}, apple("n1", 1.5),
                     apple("n2", 0.5), {"lately", "Dale", 12, Sourcing::unlabeled, false, 11},
                   // clang-format on
                   {"archive", "Dale", 24 * 40, Sourcing::unlabeled, false, 24 * 40 - 1}},
                  {{"old", "a1", "a2"}});
    const auto text = [](const BriefContent& content) {
        auto all = std::to_string(content.stories) + " of " + std::to_string(content.outlets);
        if (content.apple)
            all +=
                ", " + std::to_string(content.apple->count) + "x " + content.apple->latest.storyID;
        for (const auto& topic : content.topics)
            all += "; " + topic.headline.storyID + " " + names(topic.outlets);
        return all;
    };
    EXPECT_EQ(text(brief(news.get(), hoursAgo(4))),
              "7 of 4, 2x n2; a1 Post,Tide; c1 Tide; b1 Dale; lately Dale");
    EXPECT_EQ(text(brief(news.get(), hoursAgo(0.7))), "1 of 1, 1x n2");
    EXPECT_EQ(text(brief(news.get(), kNow)), "0 of 0");
    EXPECT_EQ(text(brief(news.get(), hoursAgo(24 * 300))),
              text(brief(news.get(), hoursAgo(24 * 30))))
        << "a long absence is cut to a month";
    EXPECT_EQ(brief(news.get(), hoursAgo(24 * 300)).since, hoursAgo(24 * 30));
    EXPECT_EQ(brief(news.get(), std::nullopt).topics.front().headline.storyID, "old");
}

TEST(Brief, ChangesOfTrackersStandAmongTheTopics) {
    using Incident = AppleServiceStatus::Incident;
    const auto problem = [](const char* name, std::optional<double> hours) {
        Incident incident{.status = "ongoing"};
        if (hours) incident.started = hoursAgo(*hours);
        return AppleServiceStatus::Service{.name = name, .events = {incident}};
    };
    const AppleServiceStatus::Services services{problem("Tune Box", 1), problem("Old Trouble", 99),
                                                problem("Undated", std::nullopt)};
    const std::vector<PlatformRelease> releases{
        {.platform = "iOS",
         .current = SoftwareRelease{.title = "iOS 26.5", .published = hoursAgo(99)},
         .beta = SoftwareRelease{
             .version = "26.6", .stage = "beta 1", .build = "23G5", .published = hoursAgo(1)}}};
    const auto logged = [](const char* title, double hours) {
        return LoggedSignal{.signal = {.title = title, .seenAt = hoursAgo(hours)}};
    };
    const std::vector records{logged("Glassworks filed a form.", 1), logged("Long ago.", 99)};
    const std::vector findings{logged("A path is blocked.", 2)};
    const TrackerAnswers answers{.consumer = {&services, kNow},
                                 .releases = &releases,
                                 .records = records,
                                 .findings = findings};
    const auto changes = [&](const StoryQuery& query) {
        return trackerChanges(answers, query.compiled(), hoursAgo(4));
    };
    BriefContent content{.topics = {{.headline = {.title = "A"}}, {.headline = {.title = "B"}}},
                         .apple = BriefContent::ApplePosts{.count = 1}};
    const auto text = [&](const StoryQuery& query) {
        std::string all;
        for (const auto& item : briefItems(content, changes(query))) {
            if (const auto* topic = std::get_if<BriefContent::Topic>(&item)) {
                all += topic->headline.title + "; ";
            } else if (const auto* change = std::get_if<TrackerChange>(&item)) {
                all += change->subject + "; ";
            } else {
                all += "Apple; ";
            }
        }
        return all;
    };
    EXPECT_EQ(text({}),
              "A; Tune Box; B; Undated; iOS 26.6 beta 1; Glassworks filed a form.; "
              "A path is blocked.; Apple; ");
    EXPECT_EQ(text({.anyTerms = {"Glassworks"}}), "A; Glassworks filed a form.; B; Apple; ");
    EXPECT_EQ(text({.anyTerms = {"23G5"}}), "A; iOS 26.6 beta 1; B; Apple; ");
    EXPECT_EQ(text({.sourceIDs = {"somewhere"}}), "A; Apple; B; ") << "trackers are no source";
    EXPECT_EQ(changes({})[0].seenAt, kNow);
    EXPECT_TRUE(trackerChanges({}, StoryQuery().compiled(), hoursAgo(4)).empty());
}

TEST(RecentClusters, ReachAsFarBackAsTheLongestPanel) {
    const auto story = [](std::string id, std::string source, double hours) {
        return Story{.id = id,
                     .link = "https://" + source + ".example/" + id,
                     .title = "Quillmark headset appears in blue factory photos",
                     .publishedAt = hoursAgo(hours),
                     .sourceID = source};
    };
    const double day = 24;
    RecentClusters clusters;
    EXPECT_FALSE(clusters.hasChanged());
    for (const double days : {1.0, 13.0, 31.0, 33.0}) {
        clusters.add(story("a" + std::to_string(days), "post", days * day), kNow);
        clusters.add(story("b" + std::to_string(days), "tide", days * day - 1), kNow);
    }
    EXPECT_TRUE(clusters.hasChanged());
    EXPECT_EQ(clusters.clusters(kNow).size(), 3u);
    EXPECT_FALSE(clusters.hasChanged());
    EXPECT_EQ(clusters.clusters(kNow + 48h).size(), 2u) << "what has become too old is dropped";
}

}  // namespace
}  // namespace kit
