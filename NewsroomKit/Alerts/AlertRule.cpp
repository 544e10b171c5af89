#include "NewsroomKit/Alerts/AlertRule.h"

#include <string_view>
#include <utility>

namespace kit {

namespace {

void requireFewTerms(const std::vector<std::string>& terms, std::string_view key) {
    if (terms.size() <= kMostTermsOfRule) return;
    throw RecordError(std::string(key),
                      "at most " + std::to_string(kMostTermsOfRule) + " words are possible");
}

void requirePositive(const std::optional<std::int64_t>& number, std::string_view key) {
    if (number && *number <= 0) {
        throw RecordError(std::string(key), "a number above zero is expected");
    }
}

json::object encodeTrigger(const StoriesTrigger& stories, DateStyle dates) {
    json::object object{{"kind", "stories"}};
    if (stories.beat) {
        object.emplace("beat", *stories.beat);
    } else {
        object.emplace("query", encode(stories.query, dates));
    }
    if (stories.leastSourcing) {
        object.emplace("leastSourcing", encode(*stories.leastSourcing, dates));
    }
    if (stories.outlets) object.emplace("outlets", *stories.outlets);
    return object;
}

json::object encodeTrigger(const SignalsTrigger& signal, DateStyle dates) {
    json::object object{{"kind", "signals"},
                        {"kinds", encode(signal.kinds, dates)},
                        {"words", encode(signal.words, dates)}};
    if (!signal.excludedWords.empty()) {
        object.emplace("excludedWords", encode(signal.excludedWords, dates));
    }
    object.emplace("leastWeight", encode(signal.leastWeight, dates));
    return object;
}

json::object encodeTrigger(const PriceTrigger& price, DateStyle dates) {
    return {
        {"kind", "price"}, {"symbol", price.symbol}, {"condition", encode(price.condition, dates)}};
}

StoriesTrigger storiesTrigger(const json::object& object) {
    StoriesTrigger stories;
    codec::decodeField(object, stories, field("beat", &StoriesTrigger::beat));
    if (!stories.beat) {
        codec::decodeField(object, stories, field("query", &StoriesTrigger::query));
    }
    codec::decodeField(object, stories, field("leastSourcing", &StoriesTrigger::leastSourcing));
    codec::decodeField(object, stories, field("outlets", &StoriesTrigger::outlets));
    requireFewTerms(stories.query.anyTerms, "query.anyTerms");
    requireFewTerms(stories.query.excludedTerms, "query.excludedTerms");
    requirePositive(stories.outlets, "outlets");
    return stories;
}

SignalsTrigger signalsTrigger(const json::object& object) {
    SignalsTrigger wanted;
    codec::decodeField(object, wanted, field("kinds", &SignalsTrigger::kinds));
    codec::decodeField(object, wanted, field("words", &SignalsTrigger::words));
    if (object.contains("excludedWords")) {
        codec::decodeField(object, wanted, field("excludedWords", &SignalsTrigger::excludedWords));
    }
    if (object.contains("leastWeight")) {
        codec::decodeField(object, wanted, field("leastWeight", &SignalsTrigger::leastWeight));
    }
    requireFewTerms(wanted.words, "words");
    requireFewTerms(wanted.excludedWords, "excludedWords");
    return wanted;
}

PriceTrigger priceTrigger(const json::object& object) {
    PriceTrigger price;
    codec::decodeField(object, price, field("symbol", &PriceTrigger::symbol));
    codec::decodeField(object, price, field("condition", &PriceTrigger::condition));
    return price;
}

struct TriggerKind {
    std::string kind{};
};

}  // namespace

json::value Codec<AlertTrigger>::encode(const AlertTrigger& trigger, DateStyle dates) {
    return std::visit([dates](const auto& one) -> json::value { return encodeTrigger(one, dates); },
                      trigger);
}

AlertTrigger Codec<AlertTrigger>::decode(const json::value& value) {
    if (!value.is_object()) throw RecordError("", "an object is expected");
    const auto& object = value.get_object();
    TriggerKind trigger;
    codec::decodeField(object, trigger, field("kind", &TriggerKind::kind));
    if (trigger.kind == "stories") return storiesTrigger(object);
    if (trigger.kind == "signals") return signalsTrigger(object);
    if (trigger.kind == "price") return priceTrigger(object);
    throw RecordError("kind", "unknown value \"" + trigger.kind + "\"");
}

}  // namespace kit
