#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include <boost/json.hpp>

#include "PressRoom/AppleData/AppleDataRequestHandler.h"
#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

namespace json = boost::json;
using namespace std::chrono_literals;
using std::chrono::minutes;
using Texts = std::vector<std::string>;

const std::string phone = "https://api.ipsw.me/v4/device/iPhone18,3?type=ipsw";
const std::string catalogue = "https://gdmf.apple.com/v2/pmv";
const std::string topFree =
    "https://rss.marketingtools.apple.com/api/v2/us/apps/top-free/25/apps.json";

std::filesystem::path worldFolder() {
    return std::filesystem::path(BRELL_FIXTURES) / "../../PressRoom/World";
}

std::optional<Response> ask(const std::string& address, minutes time = 0min,
                            Misbehaviours misbehaviours = {}) {
    const AppleDataRequestHandler room(readAppleData(worldFolder()), anchor, misbehaviours);
    const auto slash = address.find('/', 8);
    return room.answer(
        {.method = "GET", .host = address.substr(8, slash - 8), .target = address.substr(slash)},
        anchor + time);
}

json::value document(const std::string& address, minutes time = 0min) {
    return json::parse(ask(address, time)->body);
}

TEST(AppleData, BuildsAreSignedUntilTheirTimeAndOffersComeAndGo) {
    const auto signedBuilds = [](const std::string& address, minutes time) {
        Texts builds;
        const auto answer = document(address, time);
        for (const auto& firmware : answer.at("firmwares").as_array()) {
            if (firmware.at("signed").as_bool())
                builds.emplace_back(firmware.at("version").as_string());
        }
        return builds;
    };
    EXPECT_EQ(signedBuilds(phone, 39min), (Texts{"27.1.1", "27.1"}));
    EXPECT_EQ(signedBuilds(phone, 40min), (Texts{"27.1.1"}));
    const std::string mac = "https://api.ipsw.me/v4/device/Mac16%2C12?type=ipsw";
    EXPECT_EQ(signedBuilds(mac, 94min), (Texts{"27.1.1"}));
    EXPECT_EQ(signedBuilds(mac, 95min), (Texts{"27.1.2", "27.1.1"}));
    EXPECT_EQ(signedBuilds(mac, 110min), (Texts{"27.1.2"}));

    const auto count = [](const char* set, minutes time) {
        return document(catalogue, time).at("PublicAssetSets").at(set).as_array().size();
    };
    EXPECT_EQ(count("iOS", 60min), count("iOS", 59min) - 1);
    EXPECT_EQ(count("macOS", 95min), count("macOS", 94min) + 1);
}

TEST(AppleData, AppsMoveUpAndDownAndNewOnesComeFromBelow) {
    const auto names = [](minutes time, const std::string& address = topFree) {
        Texts apps;
        const auto answer = document(address, time);
        for (const auto& app : answer.at("feed").at("results").as_array()) {
            apps.emplace_back(app.at("name").as_string());
        }
        return apps;
    };
    const auto first = names(0min);
    ASSERT_EQ(first.size(), 25u);
    const auto risen = names(15min);
    EXPECT_EQ(risen[0], first[4]);
    EXPECT_EQ((Texts(risen.begin() + 1, risen.begin() + 5)),
              (Texts(first.begin(), first.begin() + 4)));
    const auto withNew = names(50min);
    EXPECT_EQ(std::ranges::count(first, withNew[6]), 0);
    const auto fallen = names(120min);
    EXPECT_EQ(fallen[11], first[0]);
    EXPECT_EQ(fallen[10], withNew[11]) << "those behind make room upwards";
    EXPECT_EQ(
        names(0min, "https://rss.marketingtools.apple.com/api/v2/us/apps/top-paid/3/apps.json")
            .size(),
        3u);
}

TEST(AppleData, EachMisbehavesAsToldAndOtherAddressesAreLeftAlone) {
    const auto faulty = [](const std::string& address, const char* name, std::string_view kind) {
        return *ask(address, 0min, {{name, readMisbehaviour(kind).value()}});
    };
    const std::tuple<const char*, std::string, const char*, const char*> rows[] = {
        {"signing", phone, "/firmwares", "buildid"},
        {"updates", catalogue, "/PublicAssetSets", "Build"},
        {"charts", topFree, "/feed/results", "artistName"},
    };
    for (const auto& [name, address, list, key] : rows) {
        const auto listOf = [&](const Response& response) {
            const auto value = json::parse(response.body).at_pointer(list);
            return value.is_array() ? value.get_array().size() : value.get_object().size();
        };
        EXPECT_EQ(listOf(faulty(address, name, "empty")), 0u);
        EXPECT_EQ(listOf(faulty(address, name, "partial")), listOf(*ask(address)) / 2);
        EXPECT_LT(faulty(address, name, "incomplete").body.size(), ask(address)->body.size());
        EXPECT_GT(faulty(address, name, "huge").body.size(), 6'291'456u);
        EXPECT_EQ(faulty(address, name, "busy").status, 429);
        EXPECT_THROW(faulty(address, name, "retitled"), std::runtime_error);
        EXPECT_EQ(ask(address, 7min)->body, ask(address, 8min)->body);
    }
    EXPECT_FALSE(ask("https://api.ipsw.me/v4/device/iPhone1,99?type=ipsw"));
    EXPECT_FALSE(ask("https://gdmf.apple.com/v2/assets"));
    EXPECT_FALSE(
        ask("https://rss.marketingtools.apple.com/api/v2/us/apps/top-grossing/25/apps.json"));
    EXPECT_FALSE(ask("https://www.apple.com/v2/pmv"));
}

TEST(AppleData, AFaultyFileIsNamedTogetherWithItsKey) {
    const std::tuple<const char*, const char*, const char*> faults[] = {
        {"signing.json",
         R"({"systems":[],"devices":[{"identifier":"a","name":"b","system":"iOS"}]})",
         "there is no system iOS"},
        {"updates.json",
         R"({"assets":[{"set":"iOS","version":"1","build":"B","minutesAgo":1,"devices":[]}],
             "managed":[],"improvements":[]})",
         "B has no devices"},
        {"charts.json",
         R"({"charts":[{"kind":"top-free","apps":[],"moves":[{"minutesAgo":1,"app":"7","rank":1}]}]})",
         "top-free.moves: there is no app 7"},
    };
    for (const auto& [name, text, expected] : faults) {
        const TemporaryFolder folder;
        std::filesystem::copy(worldFolder() / "apple", folder.path() / "apple");
        folder.write(std::string("apple/") + name, text);
        try {
            readAppleData(folder.path());
            ADD_FAILURE() << "no complaint about " << name;
        } catch (const WorldError& error) {
            EXPECT_NE(std::string(error.what()).find(expected), std::string::npos) << error.what();
        }
    }
}

}  // namespace
}  // namespace pressroom::testing
