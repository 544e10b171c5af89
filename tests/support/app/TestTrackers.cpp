#include "tests/support/app/TestTrackers.h"

#include <algorithm>
#include <sstream>

#include <boost/json.hpp>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Market/BoardQuote.h"
#include "NewsroomKit/Trackers/Releases/SoftwareRelease.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"

namespace app::test {

namespace json = boost::json;

using pressroom::Response;

namespace {

Response answer(const json::value& value) { return {.body = json::serialize(value)}; }

}  // namespace

Response statusAnswer(const std::vector<std::string>& services) {
    json::array list;
    for (const auto& word : services) {
        json::array events;
        const auto marks = std::count(word.begin(), word.end(), '!');
        if (marks > 0) {
            events.push_back({{"statusType", "Outage"},
                              {"eventStatus", "ongoing"},
                              {"epochStartDate", 1000 * marks}});
        }
        list.push_back({{"serviceName", word.substr(0, word.find('!'))}, {"events", events}});
    }
    return {.body = "jsonCallback(" + json::serialize(json::value{{"services", list}}) + ");"};
}

Response releasesAnswer(const std::string& general, const std::string& beta) {
    return answer({{"systems",
                    {{"iOS",
                      {{"public", kit::encode(kit::SoftwareRelease{.build = general})},
                       {"beta", kit::encode(kit::SoftwareRelease{.build = beta})}}}}}});
}

Response boardAnswer(const std::vector<std::string>& symbols) {
    json::array quotes;
    for (const auto& symbol : symbols) {
        quotes.push_back(kit::encode(kit::BoardQuote{.symbol = symbol}));
    }
    return answer({{"quotes", quotes}});
}

Response eventsAnswer(const std::vector<std::string>& titles) {
    json::array events;
    for (const auto& title : titles) {
        events.push_back(kit::encode(kit::AppleCalendarEvent{.title = title}));
    }
    return answer({{"events", events}});
}

Response quoteAnswer(const std::string& symbol, const std::string& range, double price) {
    return answer(kit::encode(kit::StockQuote{.symbol = symbol, .price = price, .range = range}));
}

std::string joined(const std::string& list,
                   const std::function<std::string(const std::string& word)>& item) {
    std::istringstream words(list);
    std::string text, word;
    while (words >> word) text += (text.empty() ? "" : ",") + item(word);
    return text;
}

std::string signingBody(const std::string& list, const std::string& name) {
    const auto item = [](const std::string& word) {
        const bool isSigned = word.ends_with('+');
        const auto version = word.substr(0, word.size() - (isSigned ? 1 : 0));
        return R"({"version":")" + version + R"(","buildid":"B)" + version + R"(","signed":)" +
               (isSigned ? "true}" : "false}");
    };
    return R"({"name":")" + name + R"(","firmwares":[)" + joined(list, item) + "]}";
}

std::string updatesBody(const std::string& list) {
    const auto item = [](const std::string& word) {
        return R"({"ProductVersion":")" + word + R"(","Build":"B)" + word +
               R"(","PostingDate":"2026-11-02","SupportedDevices":["iPhone17,1"]})";
    };
    return R"({"PublicAssetSets":{"iOS":[)" + joined(list, item) + "]}}";
}

std::string chartBody(const std::string& list) {
    const auto item = [](const std::string& word) {
        return R"({"id":")" + word +
               R"(","name":"n","artistName":"a","url":"","artworkUrl100":""})";
    };
    return R"({"feed":{"results":[)" + joined(list, item) + "]}}";
}

}  // namespace app::test
