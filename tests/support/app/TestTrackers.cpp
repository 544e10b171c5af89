#include "tests/support/app/TestTrackers.h"

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

}  // namespace app::test
