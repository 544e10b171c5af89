#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/CountdownContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::AppleCalendarEvent;
using Events = std::vector<AppleCalendarEvent>;

boost::json::object eventsObject(const Events& events) {
    boost::json::array list;
    for (const auto& event : events) {
        auto record = kit::encode(event).get_object();
        record["anniversary"] = event.isAnniversary();
        record["released"] = event.isReleased();
        list.push_back(std::move(record));
    }
    return {{"events", std::move(list)}};
}

std::string noteOf(const AppleCalendarEvent& event) {
    std::string note = printable(event.window);
    if (!note.empty()) note += " ";
    return note + "(" + printable(event.publisher) + ")";
}

std::string beginText(const kit::CountdownRow& row) {
    if (!row.starts) return "no date yet";
    return row.isExpected ? "around " + dayText(*row.starts) : momentText(*row.starts);
}

std::string distanceText(const kit::CountdownRow& row, kit::Instant now) {
    if (!row.starts) return "";
    return row.isExpected ? daysAwayText(row.days) : agoText(*row.starts, now);
}

void print(Session& session, Events events) {
    if (events.empty()) {
        session.out().line("Apple's calendar is empty.");
        return;
    }
    const auto rowOf = [&](const AppleCalendarEvent& event) {
        return kit::countdownRow(
            event, [&](kit::Instant then) { return daysBetween(session.now(), then); });
    };
    // What has no date comes last.
    std::ranges::stable_sort(events, {}, [&](const auto& event) {
        return rowOf(event).starts.value_or(kit::Instant::max());
    });
    TextTable table({Column::cut("event", 20), Column::whole("begins"),
                     Column::whole("").dropped(1), Column::cut("status", 10).dropped(2)});
    for (const auto& event : events) {
        const auto row = rowOf(event);
        table.add({printable(event.title), beginText(row), distanceText(row, session.now()),
                   printable(event.status)});
        table.addNote(noteOf(event));
    }
    table.print(session.out());
}

int runEvents(Session& session, bool isStored) {
    const auto reading =
        fetchOrLoad(session, isStored, [](const auto& files) { return files.events(); });
    return showTracker<Events>(
        session, isStored, reading,
        {.json = eventsObject, .text = [&](const Events& events) { print(session, events); }});
}

}  // namespace

void addEventsCommand(arguments::Command& app, Command& chosen) {
    auto isStored = std::make_shared<bool>(false);
    auto command = app.subcommand("events", "Apple's calendar of events and releases");
    addStoredFlag(command, *isStored);
    command.whenChosen([isStored, &chosen] {
        chosen = [isStored](Session& session) { return runEvents(session, *isStored); };
    });
}

}  // namespace cli
