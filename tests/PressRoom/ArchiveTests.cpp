#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <boost/json.hpp>
#include <fmt/chrono.h>
#include <fmt/format.h>

#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

namespace json = boost::json;

const std::string archive = "https://tarnwick-brell.example/wp-json/tb-archive/v1/";
const auto seconds = anchor.time_since_epoch().count();

json::value document(const SteeredWorld& world, const std::string& address) {
    return json::parse(world.get(archive + address).body);
}

std::string text(const json::value& value) { return std::string(value.as_string()); }

std::string storiesAddress(std::int64_t after, std::int64_t before, std::size_t offset, int limit) {
    return fmt::format("stories?after={}&before={}&offset={}&limit={}", after, before, offset,
                       limit);
}

TEST(Archive, PagesOfAPeriodHoldEachOfItsStoriesOnce) {
    const SteeredWorld world(sampleWorld());
    const auto day = 86'400;
    const auto whole = document(world, storiesAddress(seconds - 2 * day, seconds - day, 0, 100));
    const auto total = whole.at("total").to_number<std::size_t>();
    ASSERT_EQ(whole.at("items").as_array().size(), total);
    std::vector<std::string> urls, paged;
    for (const auto& item : whole.at("items").as_array()) {
        urls.push_back(text(item.at("url")));
        const auto published = text(item.at("published_at"));
        EXPECT_TRUE(item.at("day_only").as_bool() ||
                    (published >= "2026-11-16T11:06:40" && published < "2026-11-17T11:06:40"))
            << published;
    }
    for (std::size_t offset = 0; offset < total; offset += 7) {
        const auto page =
            document(world, storiesAddress(seconds - 2 * day, seconds - day, offset, 7));
        EXPECT_EQ(page.at("offset").to_number<std::size_t>(), offset);
        for (const auto& item : page.at("items").as_array()) paged.push_back(text(item.at("url")));
    }
    EXPECT_GT(total, 20u);
    EXPECT_EQ(paged, urls);
    EXPECT_EQ(std::set(urls.begin(), urls.end()).size(), total);
    EXPECT_EQ(world.get(archive + "stories?after=1").status, 400);
}

TEST(Archive, AStoryWaitsTenMinutesAndItsCreditsWithIt) {
    SteeredWorld world(sampleWorld());
    // A story of the 58th minute, which links to one of the 45th.
    world.passTo(60);
    const auto day = fmt::format("{:%Y/%m/%d}", fmt::gmtime(seconds + 58 * 60));
    const auto story = "https://www.macrumors.com/" + day + "/cheaper-vision/";
    const auto address = "credits?urls=https%3A%2F%2Fnobody.example%2F," + story;
    const auto waiting = document(world, address);
    EXPECT_TRUE(waiting.at("credits").as_object().empty());
    EXPECT_EQ(text(waiting.at("pending").at(0)), story);
    EXPECT_FALSE(document(world, "status").at("complete").as_bool());

    world.passTo(68);
    const auto archived = document(world, address);
    EXPECT_TRUE(archived.at("pending").as_array().empty());
    const auto& credit = archived.at("credits").at(story).at(0);
    EXPECT_EQ(text(credit.at("name")), "Bloomberg");
    EXPECT_EQ(text(credit.at("detail")), "Bloomberg reports");
}

TEST(Archive, ATraceBeginsAtTheOriginWhicheverStoryIsAskedFor) {
    SteeredWorld world(sampleWorld());
    world.passTo(80);
    const auto day = fmt::format("{:%Y/%m/%d}", fmt::gmtime(seconds + 58 * 60));
    const auto lines = [&](const std::string& url) {
        std::vector<std::string> nodes;
        const auto trace = document(world, "trace?url=" + url);
        for (const auto& node : trace.at("nodes").as_array()) {
            nodes.push_back(fmt::format(
                "{} {} {}", node.at("depth").to_number<int>(), text(node.at("publisher")),
                node.at("relation").is_null() ? "" : text(node.at("relation"))));
        }
        return nodes;
    };
    const auto nodes = lines("https://www.macrumors.com/" + day + "/cheaper-vision");
    ASSERT_GT(nodes.size(), 5u);
    EXPECT_EQ(nodes[0], "0 Bloomberg ");
    EXPECT_EQ(std::ranges::count(nodes, "1 MacRumors linked"), 1);
    EXPECT_EQ(std::ranges::count(nodes, "1 AppleInsider named"), 1);
    EXPECT_TRUE(lines("https://nobody.example/").empty());
}

TEST(Archive, ItMisbehavesAsTrackersDo) {
    const std::string period = storiesAddress(0, seconds, 0, 5);
    const std::pair<const char*, std::string> parts[] = {
        {"archive-stories", period},
        {"archive-status", "status"},
        {"archive-trace", "trace?url=https://a.example/"}};
    for (const auto& [name, address] : parts) {
        const SteeredWorld world(sampleWorld(), {{name, {MisbehaviourKind::missing}}});
        EXPECT_EQ(world.get(archive + address).status, 404) << name;
    }
    EXPECT_THROW(SteeredWorld(sampleWorld(), {{"archive-trace", {MisbehaviourKind::retitled}}}),
                 std::runtime_error);
}

}  // namespace
}  // namespace pressroom::testing
