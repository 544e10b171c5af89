#include "Tarnwick_Brell/CommandLine/AlertRehearsal.h"

#include <optional>
#include <string>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "NewsroomKit/Alerts/AlertRuleText.h"
#include "NewsroomKit/Alerts/Rehearsal.h"
#include "Tarnwick_Brell/Alerts/PastEvents.h"
#include "Tarnwick_Brell/Alerts/QuietSettings.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace cli {

namespace {

bool countsOutlets(const kit::AlertRule& rule) {
    const auto* stories = std::get_if<kit::StoriesTrigger>(&rule.trigger);
    return stories && stories->outlets.value_or(1) > 1;
}

std::string howText(const kit::Rehearsal::Told& told) {
    if (!told.toldAt) return "held";
    if (told.how == kit::AlertTelling::How::summary) return "summary " + momentText(*told.toldAt);
    return std::string(rawValue(told.how));
}

std::string countText(const kit::Rehearsal::Count& count) {
    std::vector<std::string> parts{fmt::format("{} told at once", count.atOnce)};
    if (count.afterQuietHours > 0)
        parts.push_back(fmt::format("{} in a summary after quiet hours", count.afterQuietHours));
    if (count.heldBack > 0)
        parts.push_back(fmt::format("{} held back by its minutes", count.heldBack));
    if (count.overCap > 0)
        parts.push_back(fmt::format("{} over the limit of an hour", count.overCap));
    return fmt::format("{}.", fmt::join(parts, ", "));
}

boost::json::object rehearsalRecord(const kit::Rehearsal& rehearsal) {
    boost::json::array told;
    for (const auto& one : rehearsal.told) {
        boost::json::object record{{"event", one.match.match.event},
                                   {"title", one.match.match.title},
                                   {"at", kit::encode(one.match.match.at)},
                                   {"words", kit::encode(one.match.match.words)},
                                   {"how", kit::encode(one.how)}};
        if (one.toldAt) record["toldAt"] = kit::encode(*one.toldAt);
        if (one.match.why) record["why"] = kit::encode(*one.match.why);
        told.push_back(std::move(record));
    }
    boost::json::array perDay;
    for (const auto count : rehearsal.perDay) perDay.push_back(count);
    return {{"total", rehearsal.total}, {"perDay", std::move(perDay)}, {"told", std::move(told)}};
}

}  // namespace

void printRehearsal(Session& session, const kit::AlertRule& rule, std::size_t days) {
    auto& store = session.storeForReading();
    if (std::holds_alternative<kit::PriceTrigger>(rule.trigger))
        throw WorkFailed(
            "A rule on a price can't be tried on the past: the library keeps one price a day.");
    const auto beats = app::BeatRecords::read(store.beats());
    const auto queryOf = [&](const std::string& id) -> std::optional<kit::StoryQuery> {
        const auto* entry = beats.find(id);
        return entry && entry->value ? std::optional(entry->value->query) : std::nullopt;
    };
    const auto* stories = std::get_if<kit::StoriesTrigger>(&rule.trigger);
    const auto since = session.now() - std::chrono::days(static_cast<int>(days));
    std::vector<kit::AlertEvent> events;
    if (!stories) {
        events = app::pastSignals(store, since);
    } else if (const auto query =
                   stories->beat ? queryOf(*stories->beat) : std::optional(stories->query)) {
        events = app::pastStories(store, since, &*query);
    }
    PanelHoldings holdings(session, session.now());
    const auto clusters =
        countsOutlets(rule) ? holdings.clusters() : std::vector<kit::StoryCluster>();
    const auto rehearsal = kit::rehearse(rule, queryOf, events, clusters,
                                         app::quietOf(session.defaults()), session.now(), days);
    auto& out = session.out();
    if (session.options().json) {
        out.line(boost::json::serialize(rehearsalRecord(rehearsal)));
        return;
    }
    out.line(fmt::format("Would have told {} {} in the last {} days{}", rehearsal.total,
                         rehearsal.total == 1 ? "time" : "times", days,
                         rehearsal.total == 0 ? "." : ": " + countText(rehearsal.count)));
    if (const auto problem = kit::alertRuleProblem(rule, session.now())) out.line(*problem);
    TextTable table({Column::whole("when"), Column::cut("what", 32),
                     Column::whole("how").dropped(1), Column::cut("words", 8).dropped(2)});
    for (const auto& told : rehearsal.told) {
        const auto& match = told.match.match;
        table.add({momentText(match.at), printable(match.title), howText(told),
                   printable(fmt::format("{}", fmt::join(match.words, ", ")))});
    }
    if (!rehearsal.told.empty()) table.print(out);
}

void printAlertHistory(Session& session, const std::vector<app::StoredAlert>& alerts) {
    auto& out = session.out();
    if (session.options().json) {
        boost::json::array records;
        for (const auto& alert : alerts) {
            boost::json::object record{{"rule", alert.rule},
                                       {"ruleName", alert.ruleName},
                                       {"event", alert.event},
                                       {"title", alert.title},
                                       {"words", kit::encode(alert.words)},
                                       {"matchedAt", kit::encode(alert.matchedAt)},
                                       {"how", kit::rawValue(alert.outcome)}};
            if (alert.toldAt) record["toldAt"] = kit::encode(*alert.toldAt);
            records.push_back(std::move(record));
        }
        out.line(boost::json::serialize(records));
        return;
    }
    if (alerts.empty()) {
        session.advise("Nothing has been told yet: brell watch and the window tell it.");
        return;
    }
    TextTable table({Column::whole("when"), Column::cut("rule", 12), Column::cut("what", 32),
                     Column::whole("how"), Column::cut("words", 8).dropped(1)});
    for (const auto& alert : alerts) {
        table.add({momentText(alert.matchedAt), printable(alert.ruleName), printable(alert.title),
                   std::string(kit::rawValue(alert.outcome)),
                   printable(fmt::format("{}", fmt::join(alert.words, ", ")))});
    }
    table.print(out);
}

}  // namespace cli
