#include "NewsroomKit/Editorial/AppleOrigin.h"
#include "NewsroomKit/Editorial/AppleTopic.h"
#include "NewsroomKit/Editorial/MarketNews.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Editorial/SourcingRules.h"
#include "NewsroomKit/Editorial/StockNews.h"
#include "NewsroomKit/Editorial/StoryKindRules.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

using kit::PhraseMatcher;

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
        {"kind", kit::rawValue(kit::StoryKindRules::classify(title, summary))},
        {"sourcing", kit::rawValue(kit::SourcingRules::classify(title, summary, isAppleSource))},
        {"stockNews", kit::StockNews::isStockNews(title)}};
    if (const auto reason = kit::MarketNews::reason(title))
        answer["marketReason"] = kit::rawValue(*reason);
    answer["appleTopic"] = kit::AppleTopic::matches(title);
    answer["appleOnRecord"] = kit::AppleOrigin::isAppleOnRecord(title, summary);
    return answer;
}

}  // namespace cli::inspect
