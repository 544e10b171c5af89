#include <cmath>
#include <optional>
#include <stdexcept>
#include <utility>

#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "NewsroomKit/Markets/PriceMoves.h"
#include "NewsroomKit/Markets/PriceWatch.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

namespace {

kit::PriceWatch watchIn(const json::object& input) {
    const auto* value = input.if_contains("rule");
    if (!value || !value->is_object()) throw kit::RecordError("rule", "an object is expected");
    const auto& rule = value->get_object();
    const auto baseline = optional<double>(rule, "baseline");
    if (baseline && !(*baseline > 0 && std::isfinite(*baseline))) {
        throw kit::RecordError("rule.baseline", "a number above zero is expected");
    }
    return {required<std::string>(rule, "symbol"), required<kit::PriceCondition>(rule, "condition"),
            baseline};
}

struct SeenQuote {
    kit::StockQuote quote{};
    kit::Instant at{};
};

/// Nothing where it does not read, or nothing tells when the quote was seen.
std::optional<SeenQuote> seenQuote(const json::value& value) {
    try {
        const auto quote = kit::decode<kit::StockQuote>(value);
        const auto given = optional<kit::Instant>(value.get_object(), "seenAt");
        const auto at = given ? given : kit::quoteTime(quote);
        return at ? std::optional(SeenQuote{.quote = quote, .at = *at}) : std::nullopt;
    } catch (const kit::RecordError&) {
        return std::nullopt;
    }
}

json::object encoded(const kit::PriceFiring& firing, std::size_t index) {
    json::object object{{"index", index}, {"value", kit::numberValue(firing.value)}};
    if (firing.change) object["change"] = kit::numberValue(*firing.change);
    if (firing.direction) object["direction"] = kit::encode(*firing.direction);
    object["sentence"] = firing.sentence;
    return object;
}

kit::TimeZone zoneNamed(const std::string& name) {
    try {
        return kit::TimeZone(name);
    } catch (const std::invalid_argument& error) {
        throw kit::RecordError("zone", error.what());
    }
}

}  // namespace

json::object price(const json::object& input) {
    auto watch = watchIn(input);
    const auto* quotes = input.if_contains("quotes");
    if (!quotes || !quotes->is_array()) throw kit::RecordError("quotes", "a list is expected");
    json::array fired;
    std::vector<std::pair<std::size_t, kit::QuoteFault>> skipped;
    for (std::size_t index = 0; index < quotes->get_array().size(); ++index) {
        const auto seen = seenQuote(quotes->get_array()[index]);
        const auto outcome = seen ? watch.see(seen->quote, seen->at)
                                  : kit::QuoteOutcome{.fault = kit::QuoteFault::unreadable};
        if (outcome.firing) fired.push_back(encoded(*outcome.firing, index));
        if (outcome.fault) skipped.emplace_back(index, *outcome.fault);
        if (outcome.confirmsJump) {
            const auto jump =
                std::ranges::find(skipped.rbegin(), skipped.rend(), kit::QuoteFault::unconfirmed,
                                  [](const auto& each) { return each.second; });
            if (jump != skipped.rend()) skipped.erase(std::next(jump).base());
        }
    }
    const auto& state = watch.state();
    json::object answer{{"status", kit::encode(state.status)}};
    if (state.baseline) answer["baseline"] = kit::numberValue(*state.baseline);
    auto& list = answer["skipped"].emplace_array();
    for (const auto& [index, fault] : skipped) {
        list.push_back(json::object{{"index", index}, {"why", kit::encode(fault)}});
    }
    return {{"fired", std::move(fired)}, {"state", std::move(answer)}};
}

json::object moves(const json::object& input) {
    const auto quote = required<kit::StockQuote>(input, "quote");
    const auto stories = required<std::vector<kit::Story>>(input, "stories");
    const auto zone = zoneNamed(optional<std::string>(input, "zone").value_or(kit::kExchangeZone));
    kit::StoryClusterer clusterer(kit::WordMemory::of(stories));
    clusterer.add(stories);
    auto found = kit::priceMoves(quote, zone);
    kit::addReasons(found, quote, stories, clusterer.clusters());
    return {{"moves", kit::encode(found)}};
}

}  // namespace cli::inspect
