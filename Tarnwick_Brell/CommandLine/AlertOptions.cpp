#include "Tarnwick_Brell/CommandLine/AlertOptions.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "NewsroomKit/Queries/TermList.h"
#include "Tarnwick_Brell/Arguments/Arguments.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/RecordLookup.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace cli {

namespace {

constexpr double kLeast = 0.0001;
constexpr double kLargestPrice = 1e9;
constexpr double kLargestPercent = 1'000;

template <class E>
std::vector<std::string> rawNames() {
    std::vector<std::string> names;
    for (const auto& row : kit::enumTable<E>) names.emplace_back(row.raw);
    return names;
}

}  // namespace

void AlertOptions::addTriggerTo(arguments::Command& command) {
    query.addTo(command);
    command.option("--beat", beat, "Stories of this beat").shownAs("NAME");
    command
        .option("--least-sourcing", leastSourcing,
                "Only stories that are sourced like this or firmer")
        .oneOf(rawNames<kit::Sourcing>());
    command.number("--outlets", outlets, "Only once so many outlets have the news");
    command
        .option("--kind", kinds,
                "What is logged of this kind: release, filing, page, …; may be repeated")
        .oneOf(rawNames<kit::SignalKind>());
    command.option("--words", words, "What is logged with one of these in its title or subject")
        .shownAs("TERMS");
    command.option("--without", without, "Leave out what is logged with one of these")
        .shownAs("TERMS");
    command.option("--least-weight", leastWeight, "Only what is logged with this weight or more")
        .oneOf(rawNames<kit::SignalWeight>());
    command.option("--symbol", symbol, "The price of this symbol; with one of the next options")
        .shownAs("SYMBOL");
    command.number("--above", above, {kLeast, kLargestPrice}, "When it rises to this price");
    command.number("--below", below, {kLeast, kLargestPrice}, "When it falls to this price");
    command.number("--day-move", dayMove, {kLeast, kLargestPercent},
                   "When it moves by so many per cent in a day");
    const auto moving = command.number("--move", move, {kLeast, kLargestPercent},
                                       "When it moves by so many per cent within --within minutes");
    command.number("--within", withinMinutes, "The minutes of --move").needs(moving);
    command.flag("--year-high", yearHigh, "When it has a new high of the year");
    command.flag("--year-low", yearLow, "When it has a new low of the year");
    command.number("--gap", gap, {kLeast, kLargestPercent},
                   "When it opens so many per cent from the previous close");
}

void AlertOptions::addDeliveryTo(arguments::Command& command) {
    command.flag("--quiet", quiet, "Only note it in the history and in Activity");
    command.flag("--sound", sound, "Play a sound");
    command.flag("--in-quiet-hours", inQuietHours, "Tell in quiet hours, too");
    command.number("--minutes", minutes, "Tell at most once in so many minutes, then as a summary");
    command.flag("--once", once, "Tell the first match only");
    command.option("--ends", ends, "Stop at this day or time").shownAs("WHEN");
}

bool AlertOptions::isOfStories() const {
    return query.isGiven() || !beat.empty() || !leastSourcing.empty() || outlets;
}

bool AlertOptions::isOfSignals() const {
    return !kinds.empty() || !words.empty() || !without.empty() || !leastWeight.empty();
}

bool AlertOptions::hasTrigger() const { return isOfStories() || isOfSignals() || !symbol.empty(); }

kit::AlertTrigger AlertOptions::trigger(app::LocalStore& store) const {
    const int given = static_cast<int>(isOfStories()) + static_cast<int>(isOfSignals()) +
                      static_cast<int>(!symbol.empty());
    if (given == 0)
        throw WrongUsage(
            "Say what the rule tells of: stories (--any, --beat …), what is logged (--kind, "
            "--words …) or a price (--symbol).");
    if (given > 1)
        throw WrongUsage("A rule is about stories, about what is logged, or about a price: one.");
    if (isOfStories()) return storiesTrigger(store);
    if (isOfSignals()) return signalsTrigger();
    return priceTrigger();
}

kit::StoriesTrigger AlertOptions::storiesTrigger(app::LocalStore& store) const {
    kit::StoriesTrigger trigger{.outlets = outlets};
    if (!leastSourcing.empty())
        trigger.leastSourcing = kit::enumFromRaw<kit::Sourcing>(leastSourcing);
    if (outlets && *outlets < 1) throw WrongUsage("--outlets needs a number of at least 1.");
    if (!beat.empty()) {
        if (query.isGiven()) throw WrongUsage("Name a beat or say what to follow, not both.");
        const auto beats = app::BeatRecords::read(store.beats());
        trigger.beat = named(beats.entries(), beat, "beat").id;
        return trigger;
    }
    requireKnownSources(store, query.sources);
    trigger.query = query.query();
    return trigger;
}

kit::SignalsTrigger AlertOptions::signalsTrigger() const {
    kit::SignalsTrigger trigger{.words = kit::separatedTerms(words),
                                .excludedWords = kit::separatedTerms(without)};
    for (const auto& kind : kinds)
        trigger.kinds.push_back(kit::enumFromRaw<kit::SignalKind>(kind).value());
    if (!leastWeight.empty())
        trigger.leastWeight = kit::enumFromRaw<kit::SignalWeight>(leastWeight).value();
    return trigger;
}

kit::PriceTrigger AlertOptions::priceTrigger() const {
    using Kind = kit::PriceCondition::Kind;
    std::vector<kit::PriceCondition> conditions;
    if (above) conditions.push_back({.kind = Kind::above, .price = above});
    if (below) conditions.push_back({.kind = Kind::below, .price = below});
    if (dayMove) conditions.push_back({.kind = Kind::dayMove, .percent = dayMove});
    if (move) conditions.push_back({.kind = Kind::move, .percent = move, .minutes = withinMinutes});
    if (yearHigh) conditions.push_back({.kind = Kind::yearHigh});
    if (yearLow) conditions.push_back({.kind = Kind::yearLow});
    if (gap) conditions.push_back({.kind = Kind::gap, .percent = gap});
    if (conditions.size() != 1)
        throw WrongUsage(
            "Say one thing that the price must do: --above, --below, --day-move, --move, "
            "--year-high, --year-low or --gap.");
    if (move && withinMinutes.value_or(0) < 1)
        throw WrongUsage("--move needs --within and a number of minutes.");
    try {
        return {.symbol = app::SettingKey::named(app::SettingKey::kFocusSymbol)->stored(symbol),
                .condition = conditions.front()};
    } catch (const std::invalid_argument&) {
        throw WrongUsage("\"" + symbol + "\" is not the symbol of a share or an index.");
    }
}

kit::AlertDelivery AlertOptions::delivery(kit::Instant now) const {
    if (minutes && *minutes < 1) throw WrongUsage("--minutes needs a number of at least 1.");
    kit::AlertDelivery delivery{
        .how = quiet ? kit::AlertDelivery::How::quiet : kit::AlertDelivery::How::notify,
        .sound = sound,
        .respectsQuietHours = !inQuietHours,
        .minutes = minutes,
        .once = once};
    if (!ends.empty()) delivery.expires = parseTimeArgument(ends, now);
    return delivery;
}

}  // namespace cli
