#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include <boost/json.hpp>

#include "PressRoom/Trackers/TrackerRequestHandler.h"
#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

namespace json = boost::json;
using namespace std::chrono_literals;
using std::chrono::sys_seconds;
using Texts = std::vector<std::string>;

const std::string makersService = "https://tarnwick-brell.example/wp-json/tb-wire/v1/";
const std::string statusFolder = "https://www.apple.com/support/systemstatus/data/";

std::filesystem::path worldFolder() {
    return std::filesystem::path(BRELL_FIXTURES) / "../../PressRoom/World";
}

TrackerRequestHandler trackers(Misbehaviours misbehaviours = {}) {
    return TrackerRequestHandler(readTrackers(worldFolder()), anchor, misbehaviours);
}

std::optional<Response> ask(const TrackerRequestHandler& room, const std::string& address,
                            sys_seconds now = anchor) {
    const auto slash = address.find('/', 8);
    return room.answer(
        {.method = "GET", .host = address.substr(8, slash - 8), .target = address.substr(slash)},
        now);
}

json::value document(const Response& response) {
    auto text = response.body;
    if (text.starts_with("jsonCallback(") && text.ends_with(");")) {
        text = text.substr(13, text.size() - 15);
    }
    return json::parse(text);
}

json::value document(const std::string& address, sys_seconds now = anchor) {
    return document(ask(trackers(), address, now).value());
}

/// "App Store: Outage" for each incident that goes on, both files together.
Texts troubles(int minutes) {
    Texts found;
    for (const auto* file : {"", "developer/"}) {
        const auto status = document(statusFolder + file + "system_status_en_US.js",
                                     anchor + std::chrono::minutes(minutes));
        for (const auto& service : status.at("services").as_array()) {
            for (const auto& event : service.at("events").as_array()) {
                const auto& fields = event.as_object();
                const auto text = [&](const char* key, const char* otherwise) {
                    const auto* value = fields.if_contains(key);
                    return std::string(value ? value->as_string().c_str() : otherwise);
                };
                if (text("eventStatus", "ongoing") != "ongoing") continue;
                EXPECT_TRUE(fields.at("epochEndDate").is_null());
                found.push_back(std::string(service.at("serviceName").as_string()) + ": " +
                                text("statusType", "none"));
            }
        }
    }
    return found;
}

TEST(Trackers, ServicesFailAndRecoverInTheOrderOfTheirStory) {
    const std::pair<int, Texts> moments[] = {
        {0, {}},
        {14, {"App Store: Outage"}},
        {25, {"App Store: Outage", "App Store: Issue", "Apple Music: Outage"}},
        {45, {"App Store: Issue"}},
        {60, {}},
        {70, {"iCloud Mail: Maintenance"}},
        {92, {"Apple Music: Outage", "iCloud Mail: Maintenance", "TestFlight: Issue"}},
        {130, {"Weather: none"}},
        {150, {}},
        {10'000, {}},
    };
    for (const auto& [minutes, expected] : moments) {
        EXPECT_EQ(troubles(minutes), expected) << minutes << " minutes after the anchor";
    }
}

TEST(Trackers, ChannelsTakeNewBuildsAndOneThatIsPulledGoesBack) {
    const auto build = [](const char* platform, const char* channel, int minutes) {
        const auto answer =
            document(makersService + "releases", anchor + std::chrono::minutes(minutes));
        return answer.at("systems").at(platform).at(channel).at("build").as_string();
    };
    EXPECT_EQ(build("iOS", "beta", 19), "24C5044b");
    EXPECT_EQ(build("iOS", "beta", 20), "24C5052a");
    EXPECT_EQ(build("iOS", "public", 20), "24B91");
    EXPECT_EQ(build("macOS", "public", 95), "26B97");
    const auto first = build("visionOS", "beta", 0);
    EXPECT_NE(build("visionOS", "beta", 125), first);
    EXPECT_EQ(build("visionOS", "beta", 150), first);

    const auto status = [](int minutes) {
        const auto events =
            document(makersService + "events", anchor + std::chrono::minutes(minutes));
        return events.at("events").at(2).at("status").as_string();
    };
    EXPECT_EQ(status(21), "expected");
    EXPECT_EQ(status(22), "released");
}

TEST(Trackers, MarketsKeepTheHoursAndTheSummerTimeOfTheirCities) {
    using enum Market;
    const auto at = [](int month, int day, std::chrono::minutes time) {
        using namespace std::chrono;
        return sys_days(year(2026) / month / day) + time;
    };
    const std::tuple<const char*, Market, sys_seconds, std::string_view, sys_seconds> cases[] = {
        {"winter, a minute before", newYork, at(11, 18, 14h + 29min), "PRE",
         at(11, 18, 14h + 30min)},
        {"winter, opening", newYork, at(11, 18, 14h + 30min), "OPEN", at(11, 18, 14h + 30min)},
        {"winter, closing", newYork, at(11, 18, 21h), "POST", at(11, 18, 14h + 30min)},
        {"night", newYork, at(11, 18, 8h), "CLOSED", at(11, 17, 14h + 30min)},
        {"weekend", newYork, at(11, 21, 16h), "CLOSED", at(11, 20, 14h + 30min)},
        {"the Friday before summer time", newYork, at(3, 6, 14h + 30min), "OPEN",
         at(3, 6, 14h + 30min)},
        {"the Monday after it came", newYork, at(3, 9, 13h + 30min), "OPEN", at(3, 9, 13h + 30min)},
        {"the Friday before it goes", newYork, at(10, 30, 13h + 30min), "OPEN",
         at(10, 30, 13h + 30min)},
        {"the Monday after it went", newYork, at(11, 2, 13h + 30min), "PRE",
         at(11, 2, 14h + 30min)},
        {"Taipei opens on its own Monday", taipei, at(7, 6, 1h), "OPEN", at(7, 6, 1h)},
        {"Seoul closes when Monday is young elsewhere", seoul, at(7, 6, 6h + 30min), "CLOSED",
         at(7, 6, 0h)},
    };
    for (const auto& [what, market, now, state, open] : cases) {
        EXPECT_EQ(marketDay(market, now).state, state) << what;
        EXPECT_EQ(marketDay(market, now).session.open, open) << what;
    }
}

TEST(Trackers, AQuoteFitsItselfWhateverTheHour) {
    const sys_seconds wednesday(std::chrono::sys_days(std::chrono::year(2026) / 11 / 18));
    // A day's points stand every five minutes from the opening on.
    for (const auto& [time, dayPoints] :
         {std::pair(13h + 59min, 79u), {14h + 30min, 1u}, {15h + 1min, 7u}, {23h + 0min, 79u}}) {
        for (const auto& [range, points] :
             {std::pair("1d", dayPoints), {"1w", 0u}, {"1m", 22u}, {"1y", 252u}}) {
            const auto answer =
                document(makersService + "quote?range=" + range + "&symbol=AAPL", wednesday + time);
            const auto number = [&](const char* key) { return answer.at(key).to_number<double>(); };
            EXPECT_EQ(answer.at("range").as_string(), range);
            const auto& list = answer.at("points").as_array();
            if (points > 0) {
                EXPECT_EQ(list.size(), points) << range << " at " << time.count();
            }
            EXPECT_GT(number("price"), 100);
            EXPECT_LT(number("price"), 900);
            EXPECT_LE(number("year_low"), number("price"));
            EXPECT_GE(number("year_high"), number("price"));
            if (answer.as_object().contains("day_low")) {
                EXPECT_LE(number("day_low"), number("price"));
                EXPECT_GE(number("day_high"), number("price"));
            }
            for (std::size_t i = 1; i < list.size(); ++i) {
                EXPECT_LT(list[i - 1].at("t").as_int64(), list[i].at("t").as_int64());
            }
            EXPECT_LE(list.back().at("t").as_int64(), answer.at("as_of").as_int64());
            EXPECT_LT(std::abs(number("price") / number("previous_close") - 1), 0.08);
        }
    }
    const auto rows = document(makersService + "quotes", wednesday + 15h).at("quotes").as_array();
    std::set<std::string_view> groups;
    for (const auto& row : rows) groups.insert(row.at("group").as_string());
    EXPECT_GE(rows.size(), 12u);
    EXPECT_GE(groups.size(), 3u);
    EXPECT_EQ(ask(trackers(), makersService + "quote?range=1d&symbol=%5EGSPC")->status, 200);
    EXPECT_EQ(ask(trackers(), makersService + "quote?range=1d&symbol=NONE")->status, 404);
    EXPECT_EQ(ask(trackers(), makersService + "quote?range=9d&symbol=AAPL")->status, 400);
}

TEST(Trackers, EqualAnchorsGiveEqualBytesAndOtherAddressesAreLeftAlone) {
    for (const auto& address :
         {makersService + "releases", makersService + "events", makersService + "quotes",
          makersService + "quote?range=1y&symbol=AAPL", statusFolder + "system_status_en_US.js",
          statusFolder + "developer/system_status_en_US.js"}) {
        const auto moment = anchor + 100min;
        const auto answer = ask(trackers(), address, moment).value();
        EXPECT_EQ(answer.body, ask(trackers(), address, moment + 1s)->body) << address;
        EXPECT_FALSE(SteeredWorld::headerOf(answer, "ETag").empty());
    }
    EXPECT_FALSE(ask(trackers(), "https://www.apple.com/newsroom/rss-feed.rss"));
    EXPECT_FALSE(ask(trackers(), "https://tarnwick-brell.example/feed/"));
    EXPECT_TRUE(ask(trackers(), "https://www.apple.com/support/systemstatus/"));
}

TEST(Trackers, EachMisbehavesAsTold) {
    const auto answer = [](const std::string& tracker, std::string_view kind) {
        const auto address = tracker == "status"
                                 ? statusFolder + "system_status_en_US.js"
                                 : makersService + tracker + "?range=1d&symbol=AAPL";
        return *ask(trackers({{tracker, readMisbehaviour(kind).value()}}), address);
    };
    const std::tuple<std::string, const char*, const char*, const char*> rows[] = {
        {"status", "services", "serviceName", "epochStartDate"},
        {"releases", "systems", "build", "published"},
        {"events", "events", "title", "starts"},
        {"quote", "points", "price", "as_of"},
        {"quotes", "quotes", "price", "t"},
    };
    const auto size = [](const json::value& list) {
        return list.is_array() ? list.as_array().size() : list.as_object().size();
    };
    const auto times = [](const json::value& value, const std::string& text) {
        const auto bytes = json::serialize(value);
        std::size_t count = 0;
        for (auto at = bytes.find(text); at != bytes.npos; at = bytes.find(text, at + 1)) ++count;
        return count;
    };
    for (const auto& [tracker, list, key, date] : rows) {
        const auto usual = document(answer(tracker, "slow:0"));
        EXPECT_EQ(size(document(answer(tracker, "empty")).at(list)), 0u) << tracker;
        EXPECT_EQ(size(document(answer(tracker, "partial")).at(list)), size(usual.at(list)) / 2);
        const auto quoted = "\"" + std::string(key) + "\":";
        EXPECT_EQ(times(document(answer(tracker, "incomplete")), quoted), times(usual, quoted) - 1);
        EXPECT_EQ(times(document(answer(tracker, "undated")),
                        "\"" + std::string(date) + "\":\"last Tuesday\""),
                  1u);
        EXPECT_ANY_THROW(document(answer(tracker, "broken")));
        EXPECT_GT(answer(tracker, "huge").body.size(), 5'000'000u);
        EXPECT_TRUE(answer(tracker, "silent").delivery.neverAnswers);
        EXPECT_TRUE(answer(tracker, "page").body.starts_with("<!DOCTYPE html>"));
        EXPECT_EQ(answer(tracker, "missing").status, 404);
        EXPECT_EQ(answer(tracker, "busy").status, 429);
        EXPECT_THROW(answer(tracker, "retitled"), std::runtime_error);
    }
    Misbehaviours all{{"quotes", {}}, {"macrumors", {}}};
    const TrackerRequestHandler taking(readTrackers(worldFolder()), anchor, all);
    EXPECT_EQ(all.size(), 1u) << "those of sources are left to others";
}

TEST(Trackers, AFaultyFileIsNamedTogetherWithItsKey) {
    const std::tuple<const char*, const char*, const char*> faults[] = {
        {"status.json", R"({"services":[{"nam":"A"}]})", "services[0].name: the key is missing"},
        {"status.json", R"({"services":[{"name":"A","incidents":[{"states":[],"knd":"x"}]}]})",
         "services[0].incidents[0].knd: unknown key"},
        {"status.json", R"({"services":[{"name":"A"},{"name":"A"}]})",
         "services[1]: \"A\" is listed twice"},
        {"status.json",
         R"({"services":[{"name":"A","incidents":[{"states":[{"minutesAgo":1},{"minutesAgo":2}]}]}]})",
         "states: the oldest must come first"},
        {"releases.json", R"({"systems":[{"platform":"iOS"}]})", "neither \"public\" nor \"beta\""},
        {"quotes.json",
         R"({"quotes":[{"symbol":"A","name":"A","group":"G","currency":"USD","market":"newYork",)"
         R"("price":1,"dailySwing":1,"dailyVolume":1}]})",
         "quotes[0].relation"},
    };
    for (const auto& [name, text, expected] : faults) {
        const TemporaryFolder folder;
        std::filesystem::copy(worldFolder() / "trackers", folder.path() / "trackers");
        folder.write(std::string("trackers/") + name, text);
        std::string said = "no complaint";
        try {
            readTrackers(folder.path());
        } catch (const WorldError& error) {
            said = error.what();
        }
        EXPECT_NE(said.find(std::string(name) + ": "), std::string::npos) << said;
        EXPECT_NE(said.find(expected), std::string::npos) << expected << "\n" << said;
    }
}

}  // namespace
}  // namespace pressroom::testing
