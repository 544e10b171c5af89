#include "tests/support/ExpressionRules.h"

#include <algorithm>

#include <boost/algorithm/string/replace.hpp>

#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

std::string normalized(std::string_view text) {
    std::string result = fold(text);
    for (const auto* quote : {"\u2019", "\u2018"}) boost::replace_all(result, quote, "'");
    for (const auto* quote : {"\u201C", "\u201D"}) boost::replace_all(result, quote, "\"");
    for (const auto* blank : {"\u2014", "\u2013", "\u00A0"}) boost::replace_all(result, blank, " ");
    return result;
}

std::string escaped(std::string_view phrase) {
    constexpr std::string_view special = "\\^$.|?*+()[]{}-";
    std::string result;
    for (const char byte : phrase) {
        if (special.find(byte) != std::string_view::npos) result += '\\';
        result += byte;
    }
    return result;
}

}  // namespace

PhraseExpression::PhraseExpression(std::string_view phrase, bool alwaysPlain)
    : plain_(trimHorizontalWhitespace(normalized(phrase))) {
    static const Pattern words(R"(^[\p{L}\p{N}\p{Zs}\t\n\u000B\f\r\u0085\u2028\u2029\-.']+\z)");
    if (alwaysPlain || !words.occursIn(plain_)) return;
    bounded_.emplace(R"((?<![\p{L}\p{N}]))" + escaped(plain_) + R"((?![\p{L}\p{N}]))");
}

bool PhraseExpression::matches(std::string_view normalizedText) const {
    if (bounded_) return bounded_->occursIn(normalizedText);
    return !plain_.empty() && normalizedText.find(plain_) != std::string_view::npos;
}

ExpressionRules::ExpressionRules()
    : movement_(
          "\\bshares (fell|fall|falls|rose|rise|rises|slid|slide|slides|dropped|drop|drops|jumped|"
          "jump|jumps|climbed|climb|climbs|gained|gain|gains|tumbled|tumble|tumbles|surged|surge|"
          "surges|sank|sink|sinks|slumped|slump|slumps|rallied|rally|rallies|hit|hits|close|closed|"
          "closes)\\b") {
    for (std::size_t index = 0; index < phraseTableCount; ++index) {
        const auto table = static_cast<PhraseTable>(index);
        for (const std::string_view phrase : phrases(table)) {
            tables_[index].emplace_back(phrase, table == PhraseTable::kindExclusion);
        }
    }
}

bool ExpressionRules::occurs(PhraseTable table, std::string_view normalizedText) const {
    return std::ranges::any_of(tables_[static_cast<std::size_t>(table)],
                               [&](const auto& phrase) { return phrase.matches(normalizedText); });
}

std::optional<std::string_view> ExpressionRules::first(PhraseTable table,
                                                       std::string_view text) const {
    const std::string t = normalized(text);
    const auto& expressions = tables_[static_cast<std::size_t>(table)];
    const auto found =
        std::ranges::find_if(expressions, [&](const auto& phrase) { return phrase.matches(t); });
    if (found == expressions.end()) return std::nullopt;
    return phrases(table)[static_cast<std::size_t>(found - expressions.begin())];
}

StoryKind ExpressionRules::kind(std::string_view title, std::string_view summary) const {
    const std::string t = normalized(title);
    if (occurs(PhraseTable::kindExclusion, t + " " + normalized(summary))) {
        return StoryKind::coverage;
    }
    if (occurs(PhraseTable::deal, t)) return StoryKind::deal;
    if (occurs(PhraseTable::review, t)) return StoryKind::review;
    if (occurs(PhraseTable::roundup, t)) return StoryKind::roundup;
    if (occurs(PhraseTable::sponsored, t)) return StoryKind::sponsored;
    if (occurs(PhraseTable::advertisement, t)) return StoryKind::advertisement;
    return StoryKind::coverage;
}

Sourcing ExpressionRules::sourcing(std::string_view title, std::string_view summary) const {
    const std::string t = normalized(title);
    const std::string s = normalized(firstCharacters(summary, 280));
    const bool rumors = !occurs(PhraseTable::fulfilledRumor, t);
    if (rumors && occurs(PhraseTable::rumor, t)) return Sourcing::rumor;
    if (occurs(PhraseTable::report, t)) return Sourcing::report;
    if (occurs(PhraseTable::appleSpeaks, t)) return Sourcing::onRecord;
    if (occurs(PhraseTable::spokesperson, t) && occurs(PhraseTable::speech, t)) {
        return Sourcing::onRecord;
    }
    if (occurs(PhraseTable::release, t)) return Sourcing::confirmed;
    if (rumors && occurs(PhraseTable::rumor, s)) return Sourcing::rumor;
    if (occurs(PhraseTable::report, s)) return Sourcing::report;
    return Sourcing::unlabeled;
}

bool ExpressionRules::isStockNews(std::string_view text) const {
    const std::string t = normalized(text);
    if (occurs(PhraseTable::stockExclusion, t)) return false;
    return occurs(PhraseTable::stock, t) || movement_.occursIn(t);
}

std::optional<MarketNews::Reason> ExpressionRules::marketReason(std::string_view text) const {
    using enum MarketNews::Reason;
    const std::string t = normalized(text);
    if (occurs(PhraseTable::marketExclusion, t)) return std::nullopt;
    if (occurs(PhraseTable::marketEarnings, t)) return earnings;
    if (occurs(PhraseTable::marketAnalysts, t)) return analysts;
    if (occurs(PhraseTable::marketLegal, t)) return legal;
    if (occurs(PhraseTable::marketTrade, t)) return trade;
    if (occurs(PhraseTable::marketSupply, t)) return supply;
    if (occurs(PhraseTable::marketSales, t)) return sales;
    if (occurs(PhraseTable::marketLeadership, t)) return leadership;
    if (occurs(PhraseTable::marketDeal, t)) return deal;
    return isStockNews(text) ? std::optional(stock) : std::nullopt;
}

}  // namespace kit
