#include "NewsroomKit/Editorial/StockNews.h"

#include "NewsroomKit/Editorial/PhraseAutomaton.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Text/Pattern.h"

namespace kit {

namespace {

using Where = RuleHit::Where;

bool reportsMovement(std::string_view normalizedText) {
    // Avoids running the expression on nearly every text.
    if (normalizedText.find("shares ") == std::string_view::npos) return false;
    static const Pattern movement(
        "\\bshares "
        "(fell|fall|falls|rose|rise|rises|slid|slide|slides|dropped|drop|drops|jumped|jump|jumps|"
        "climbed|climb|climbs|gained|gain|gains|tumbled|tumble|tumbles|surged|surge|surges|"
        "sank|sink|sinks|slumped|slump|slumps|rallied|rally|rallies|hit|hits|close|closed|closes)"
        "\\b");
    return movement.occursIn(normalizedText);
}

}  // namespace

bool StockNews::isStockNews(std::string_view text) { return explain(text).isStockNews; }

bool StockNews::isStockNews(const Story& story) { return isStockNews(story.title); }

StockDecision StockNews::explain(std::string_view text) {
    const std::string normalized = PhraseMatcher::normalize(text);
    return explainNormalized(normalized, findPhrases(normalized));
}

StockDecision StockNews::explainNormalized(std::string_view normalizedText,
                                           const PhraseHits& hits) {
    if (auto why = ruleHit(PhraseTable::stockExclusion, hits, Where::text)) {
        return {.isStockNews = false, .why = why};
    }
    if (auto why = ruleHit(PhraseTable::stock, hits, Where::text)) {
        return {.isStockNews = true, .why = why};
    }
    if (reportsMovement(normalizedText)) {
        return {.isStockNews = true,
                .why = RuleHit{"share price movements", "shares", Where::text}};
    }
    return {};
}

}  // namespace kit
