#include <gtest/gtest.h>

#include <functional>

#include "NewsroomKit/Trackers/Charts/AppStoreCharts.h"
#include "NewsroomKit/Trackers/Updates/AppleUpdateCatalog.h"
#include "NewsroomKit/Trackers/Signing/SigningStatus.h"

namespace kit {
namespace {

std::string firmware(const std::string& releasedate) {
    return R"({"version":"26.6","buildid":"23G71","signed":true,"filesize":10503551624)" +
           (releasedate.empty() ? "" : ",\"releasedate\":" + releasedate) + "}";
}

TEST(SigningStatus, AReleaseIsATimeOrADayOrNothingAndNoBuildIsDropped) {
    const std::pair<const char*, const char*> cases[] = {
        {"\"2026-08-17T10:20:30Z\"", "2026-08-17T10:20:30Z"},
        {"\"2026-08-17T10:20:30+02:00\"", "2026-08-17T08:20:30Z"},
        // Neither is an internet date-time: the day is what is left.
        {"\"2026-08-17T10:20:30.5Z\"", "2026-08-17T04:00:00Z"},
        {"\"2026-08-17T10:20:30\"", "2026-08-17T04:00:00Z"},
        {"\"2026-08-17t10:20:30Z\"", "2026-08-17T04:00:00Z"},
        {"\"2026-08-17\"", "2026-08-17T04:00:00Z"},
        {"\"last Tuesday\"", ""},
        {"null", ""},
        {"", ""},
    };
    std::string body = R"({"name":"iPhone 14 Pro","firmwares":[)" + firmware("");
    for (const auto& [text, instant] : cases) body += "," + firmware(text);
    const auto status = SigningStatus::parse(body + "]}");
    EXPECT_EQ(status.name, "iPhone 14 Pro");
    ASSERT_EQ(status.builds.size(), 1 + std::size(cases));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(status.builds[i + 1].released, parseISO8601(cases[i].second)) << cases[i].first;
    }
}

/// `devices`: identifiers between spaces.
std::string asset(const std::string& version, const std::string& posted,
                  const std::string& devices) {
    std::string list;
    for (const char c : devices) list += c == ' ' ? std::string("\",\"") : std::string(1, c);
    return R"({"ProductVersion":")" + version + R"(","Build":"B","PostingDate":")" + posted +
           R"(","SupportedDevices":[")" + list + R"("]})";
}

/// "iOS 18.2 x2 iPhone17,3" for each offer.
std::vector<std::string> offersIn(const std::string& sets) {
    std::vector<std::string> lines;
    for (const auto& offer : AppleUpdateCatalog::parse("{\"PublicAssetSets\":{" + sets + "}}")) {
        lines.push_back(offer.platform + " " + offer.version + " x" +
                        std::to_string(offer.deviceCount) + " " + offer.newestDevice.value_or("-"));
    }
    return lines;
}

using Lines = std::vector<std::string>;

TEST(AppleUpdateCatalog, AnAssetIsAnOfferForEachOfItsPlatforms) {
    EXPECT_EQ(offersIn("\"iOS\":[" +
                       asset("18.2", "2026-04-01",
                             "iPhone17,1 iPad9,1 iPhone17,3 iPad13,16 iPhone9,1 iPod9,1") +
                       "]"),
              (Lines{"iOS 18.2 x4 iPhone17,3", "iPadOS 18.2 x2 iPad13,16"}));
    EXPECT_EQ(
        offersIn("\"iOS\":[" +
                 asset("1", "2026-04-01", "Watch7,1 AppleTV14,1 RealityDevice14,1 HomePod6,1") +
                 "],\"macOS\":[" + asset("1", "2026-03-01", "J132AP Mac16,1 iPhone1,1") +
                 "],\"visionOS\":[" + asset("1", "2026-02-01", "iPad1,1") + "]"),
        (Lines{"iOS 1 x1 HomePod6,1", "watchOS 1 x1 Watch7,1", "tvOS 1 x1 AppleTV14,1",
               "visionOS 1 x1 RealityDevice14,1", "macOS 1 x3 Mac16,1", "visionOS 1 x1 iPad1,1"}))
        << "the set's own name is the platform of an unknown family; Macs are never sorted";
    EXPECT_EQ(offersIn("\"iOS\":[" + asset("1", "2026-04-01", "iPhone1,1 iPhoneA1,1") + "]"),
              (Lines{"iOS 1 x2 iPhone1,1"}))
        << "the first of equal models";
}

TEST(AppleUpdateCatalog, TheLatestComesFirstThenTheHigherVersionThenThePlatformsOrder) {
    const auto phone = [](const char* version, const char* posted) {
        return asset(version, posted, "iPhone1,1");
    };
    EXPECT_EQ(
        offersIn("\"iOS\":[" + phone("18.2", "2026-04-01") + "," + phone("18.10", "2026-04-01") +
                 "," + phone("9", "2026-04-02") + "," + phone("99", "soon") + "],\"audioOS\":[" +
                 asset("18.10", "2026-04-01", "AudioAccessory1,1") + "],\"macOS\":[" +
                 asset("18.10", "2026-04-01", "Mac1,1") + "]"),
        (Lines{"iOS 9 x1 iPhone1,1", "iOS 18.10 x1 iPhone1,1", "macOS 18.10 x1 Mac1,1",
               "audioOS 18.10 x1 AudioAccessory1,1", "iOS 18.2 x1 iPhone1,1"}));
}

TEST(AppStoreCharts, PlacesCountFromOneAndOnlyAddressesAreAddresses) {
    const auto app = [](const std::string& url, const std::string& artwork) {
        return R"({"id":"7","name":"Kettle","artistName":"Steam","url":")" + url +
               R"(","artworkUrl100":")" + artwork + R"("})";
    };
    const auto entries =
        AppStoreCharts::parse("{\"feed\":{\"results\":[" + app("https://a.example/b c", "") + "," +
                              app("not an address", "https://a.example/1.png") + "]}}");
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].url, "https://a.example/b%20c");
    EXPECT_EQ(entries[0].artwork, std::nullopt);
    EXPECT_EQ(entries[1], (ChartEntry{.rank = 2,
                                      .name = "Kettle",
                                      .developer = "Steam",
                                      .artwork = "https://a.example/1.png",
                                      .id = "7"}));
}

TEST(SignalsAPI, AnAnswerWithAFaultAnywhereIsRefusedWholeAndThePlaceIsNamed) {
    const auto signing = [](std::string body) { return [=] { SigningStatus::parse(body); }; };
    const auto updates = [](std::string sets) {
        return [=] { AppleUpdateCatalog::parse("{\"PublicAssetSets\":" + sets + "}"); };
    };
    const auto chart = [](std::string body) { return [=] { AppStoreCharts::parse(body); }; };
    const std::pair<std::string, std::function<void()>> cases[] = {
        {"firmwares: the key is missing", signing(R"({"name":"a"})")},
        {"firmwares[1].buildid: the key is missing",
         signing(R"({"name":"a","firmwares":[)" + firmware("") + R"(,{"version":"1"}]})")},
        {"firmwares[0].signed: true or false is expected",
         signing(R"({"name":"a","firmwares":[{"version":"1","buildid":"2","signed":1}]})")},
        {"firmwares[0].releasedate: a text is expected",
         signing(R"({"name":"a","firmwares":[)" + firmware("5") + "]}")},
        {"PublicAssetSets.iOS[0].SupportedDevices[1]: a text is expected",
         updates(R"({"iOS":[{"ProductVersion":"1","Build":"B","PostingDate":"soon",)"
                 R"("SupportedDevices":["a",null]}]})")},
        {"PublicAssetSets: an object is expected", updates("[]")},
        {"feed.results[0].url: the key is missing",
         chart(R"({"feed":{"results":[{"id":"1","name":"n","artistName":"a"}]}})")},
        {"feed: the key is missing", chart("{}")},
    };
    for (const auto& [fault, parse] : cases) {
        try {
            parse();
            ADD_FAILURE() << "read in spite of: " << fault;
        } catch (const RecordError& error) {
            EXPECT_EQ(error.what(), fault);
        }
    }
}

}  // namespace
}  // namespace kit
