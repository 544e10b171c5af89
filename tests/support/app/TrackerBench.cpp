#include "tests/support/app/TrackerBench.h"

#include <boost/json.hpp>

#include "NewsroomKit/Trackers/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/BoardQuote.h"
#include "NewsroomKit/Trackers/SoftwareRelease.h"
#include "NewsroomKit/Trackers/StockQuote.h"

namespace desk::test {

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
    return answer(
        {{"systems",
          {{"iOS",
            {{"public", newsroom::encode(newsroom::SoftwareRelease{.build = general})},
             {"beta", newsroom::encode(newsroom::SoftwareRelease{.build = beta})}}}}}});
}

Response boardAnswer(const std::vector<std::string>& symbols) {
    json::array quotes;
    for (const auto& symbol : symbols) {
        quotes.push_back(newsroom::encode(newsroom::BoardQuote{.symbol = symbol}));
    }
    return answer({{"quotes", quotes}});
}

Response eventsAnswer(const std::vector<std::string>& titles) {
    json::array events;
    for (const auto& title : titles) {
        events.push_back(newsroom::encode(newsroom::AppleCalendarEvent{.title = title}));
    }
    return answer({{"events", events}});
}

Response quoteAnswer(const std::string& symbol, const std::string& range, double price) {
    return answer(newsroom::encode(
        newsroom::StockQuote{.symbol = symbol, .price = price, .range = range}));
}

}  // namespace desk::test
