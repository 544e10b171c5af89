#include "NewsroomKit/Alerts/AlertRuleText.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kWordsNamed = 4;

/// "“a”, “b” or “c”"; of many the first ones.
std::string listed(const std::vector<std::string>& items, std::string_view last) {
    std::string text;
    const auto shown = std::min(items.size(), kWordsNamed);
    const auto left = items.size() - shown;
    for (std::size_t i = 0; i < shown; ++i) {
        const bool isLast = i + 1 == shown && left == 0;
        if (i > 0) text += isLast ? fmt::format(" {} ", last) : ", ";
        text += items[i];
    }
    if (left > 0) text += fmt::format(" {} {} more", last, left);
    return text;
}

std::string quoted(const std::vector<std::string>& words) {
    std::vector<std::string> items;
    for (const auto& word : words) items.push_back("“" + word + "”");
    return listed(items, "or");
}

std::string sourcingLabel(Sourcing sourcing) {
    return sourcing == Sourcing::unlabeled ? "unlabeled" : lowercasedASCII(label(sourcing));
}

std::string storiesText(const StoriesTrigger& trigger, const std::string& beatName) {
    std::string text = trigger.beat ? fmt::format("Stories of the beat “{}”",
                                                  beatName.empty() ? *trigger.beat : beatName)
                                    : "Stories";
    const auto& query = trigger.query;
    if (!trigger.beat) {
        if (!query.anyTerms.empty()) text += " with " + quoted(query.anyTerms);
        if (!query.excludedTerms.empty()) text += ", without " + quoted(query.excludedTerms);
        if (!query.sourceIDs.empty())
            text += fmt::format(", from {} {}", query.sourceIDs.size(),
                                query.sourceIDs.size() == 1 ? "source" : "sources");
        std::vector<std::string> sourcings;
        for (const auto sourcing : query.sourcings) sourcings.push_back(sourcingLabel(sourcing));
        if (!sourcings.empty()) text += ", " + listed(sourcings, "or");
    }
    if (trigger.leastSourcing && *trigger.leastSourcing == Sourcing::confirmed) {
        text += ", confirmed";
    } else if (trigger.leastSourcing && *trigger.leastSourcing != Sourcing::unlabeled) {
        text += fmt::format(", {} or firmer", sourcingLabel(*trigger.leastSourcing));
    }
    if (trigger.outlets.value_or(1) > 1)
        text += fmt::format(", once {} outlets have it", *trigger.outlets);
    return text + ".";
}

std::string signalsText(const SignalsTrigger& trigger) {
    std::vector<std::string> kinds;
    for (const auto kind : trigger.kinds) kinds.emplace_back(label(kind));
    std::string text = kinds.empty() ? "Everything in the log" : listed(kinds, "and");
    if (!trigger.words.empty()) text += " with " + quoted(trigger.words);
    if (!trigger.excludedWords.empty()) text += ", without " + quoted(trigger.excludedWords);
    if (trigger.leastWeight == SignalWeight::notable) text += ", notable or major";
    if (trigger.leastWeight == SignalWeight::major) text += ", major only";
    return text + ".";
}

std::string priceText(const PriceTrigger& trigger) {
    using Kind = PriceCondition::Kind;
    const auto& condition = trigger.condition;
    const auto percent = condition.percent.value_or(0);
    switch (condition.kind) {
        case Kind::above:
            return fmt::format("{} rises above {:.2f}.", trigger.symbol,
                               condition.price.value_or(0));
        case Kind::below:
            return fmt::format("{} falls below {:.2f}.", trigger.symbol,
                               condition.price.value_or(0));
        case Kind::dayMove:
            return fmt::format("{} moves by {:g} % in a day.", trigger.symbol, percent);
        case Kind::move:
            return fmt::format("{} moves by {:g} % in {} minutes.", trigger.symbol, percent,
                               condition.minutes.value_or(0));
        case Kind::yearHigh: return fmt::format("{} has a new high of the year.", trigger.symbol);
        case Kind::yearLow: return fmt::format("{} has a new low of the year.", trigger.symbol);
        case Kind::gap:
            return fmt::format("{} opens with a gap of {:g} %.", trigger.symbol, percent);
    }
    return {};
}

/// All words that are wanted are left out too.
bool isLeftOut(const std::vector<std::string>& words, const std::vector<std::string>& excluded) {
    if (words.empty()) return false;
    return std::ranges::all_of(words, [&](const std::string& word) {
        const auto normalized = PhraseMatcher::normalize(word);
        return std::ranges::any_of(excluded, [&](const std::string& other) {
            return PhraseMatcher(other).matches(normalized);
        });
    });
}

std::optional<std::string> triggerProblem(const StoriesTrigger& trigger) {
    const auto& query = trigger.query;
    if (trigger.beat) return std::nullopt;
    if (isLeftOut(query.anyTerms, query.excludedTerms))
        return "Every word that is wanted is left out, too.";
    const bool isTooWeak = !query.sourcings.empty() && trigger.leastSourcing &&
                           std::ranges::all_of(query.sourcings, [&](Sourcing one) {
                               return one > *trigger.leastSourcing;
                           });
    if (isTooWeak) return "No story can be of the chosen sourcing and firm enough.";
    return std::nullopt;
}

std::optional<std::string> triggerProblem(const SignalsTrigger& trigger) {
    if (isLeftOut(trigger.words, trigger.excludedWords))
        return "Every word that is wanted is left out, too.";
    return std::nullopt;
}

std::optional<std::string> triggerProblem(const PriceTrigger& trigger) {
    if (trigger.symbol.empty()) return "A symbol is needed, such as AAPL.";
    return std::nullopt;
}

std::vector<std::string>* excludedWordsOf(AlertRule& rule) {
    if (auto* stories = std::get_if<StoriesTrigger>(&rule.trigger))
        return stories->beat ? nullptr : &stories->query.excludedTerms;
    if (auto* signals = std::get_if<SignalsTrigger>(&rule.trigger)) return &signals->excludedWords;
    return nullptr;
}

}  // namespace

std::string alertTriggerText(const AlertTrigger& trigger, const std::string& beatName) {
    if (const auto* stories = std::get_if<StoriesTrigger>(&trigger))
        return storiesText(*stories, beatName);
    if (const auto* signals = std::get_if<SignalsTrigger>(&trigger)) return signalsText(*signals);
    return priceText(std::get<PriceTrigger>(trigger));
}

std::string alertDeliveryText(const AlertDelivery& delivery) {
    std::vector<std::string> parts;
    if (delivery.how == AlertDelivery::How::quiet) parts.emplace_back("in Activity only");
    if (delivery.minutes)
        parts.push_back(fmt::format("at most one in {} minute{}", *delivery.minutes,
                                    *delivery.minutes == 1 ? "" : "s"));
    if (!delivery.respectsQuietHours && delivery.how == AlertDelivery::How::notify)
        parts.emplace_back("also in quiet hours");
    if (delivery.once) parts.emplace_back("once");
    return fmt::format("{}", fmt::join(parts, ", "));
}

std::optional<std::string> alertRuleProblem(const AlertRule& rule, Instant now) {
    if (rule.delivery.expires && *rule.delivery.expires <= now) return "The rule has ended.";
    return std::visit([](const auto& trigger) { return triggerProblem(trigger); }, rule.trigger);
}

std::optional<AlertRule> withHigherLeast(const AlertRule& rule) {
    auto narrower = rule;
    if (auto* stories = std::get_if<StoriesTrigger>(&narrower.trigger)) {
        const auto least = stories->leastSourcing.value_or(Sourcing::unlabeled);
        if (least == Sourcing::confirmed) return std::nullopt;
        stories->leastSourcing = static_cast<Sourcing>(static_cast<int>(least) - 1);
        return narrower;
    }
    if (auto* signals = std::get_if<SignalsTrigger>(&narrower.trigger)) {
        if (signals->leastWeight == SignalWeight::major) return std::nullopt;
        signals->leastWeight =
            static_cast<SignalWeight>(static_cast<int>(signals->leastWeight) + 1);
        return narrower;
    }
    return std::nullopt;
}

std::optional<AlertRule> withoutWord(const AlertRule& rule, const std::string& word) {
    auto narrower = rule;
    auto* words = excludedWordsOf(narrower);
    if (!words || words->size() >= kMostTermsOfRule || PhraseMatcher(word).phrase.empty())
        return std::nullopt;
    words->push_back(word);
    return narrower;
}

}  // namespace kit
