#include "NewsroomKit/Editorial/AppleOrigin.h"
#include "NewsroomKit/Editorial/AppleTopic.h"
#include "NewsroomKit/Editorial/MarketNews.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Editorial/SourcingRules.h"
#include "NewsroomKit/Editorial/StockNews.h"
#include "NewsroomKit/Editorial/StoryKindRules.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace brell::inspect {

using newsroom::PhraseMatcher;

json::object fold(const json::object& input) {
    return {{"folded", PhraseMatcher::normalize(required<std::string>(input, "text"))}};
}

json::object phrase(const json::object& input) {
    const PhraseMatcher matcher(required<std::string>(input, "phrase"));
    const auto text = PhraseMatcher::normalize(required<std::string>(input, "text"));
    return {{"phrase", matcher.phrase},
            {"storage", matcher.isBounded() ? "bounded" : "plain"},
            {"matches", matcher.matches(text)}};
}

json::object label(const json::object& input) {
    const auto title = required<std::string>(input, "title");
    const auto summary = required<std::string>(input, "summary");
    const bool isAppleSource = required<bool>(input, "isAppleSource");
    json::object answer{
        {"kind", newsroom::rawValue(newsroom::StoryKindRules::classify(title, summary))},
        {"sourcing",
         newsroom::rawValue(newsroom::SourcingRules::classify(title, summary, isAppleSource))},
        {"stockNews", newsroom::StockNews::isStockNews(title)}};
    if (const auto reason = newsroom::MarketNews::reason(title))
        answer["marketReason"] = newsroom::rawValue(*reason);
    answer["appleTopic"] = newsroom::AppleTopic::matches(title);
    answer["appleOnRecord"] = newsroom::AppleOrigin::isAppleOnRecord(title, summary);
    return answer;
}

}  // namespace brell::inspect
