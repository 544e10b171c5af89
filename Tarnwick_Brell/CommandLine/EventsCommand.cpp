#include <algorithm>
#include <memory>
#include <string>
#include <vector>

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

void print(Session& session, Events events) {
    if (events.empty()) {
        session.out().line("Apple's calendar is empty.");
        return;
    }
    std::ranges::stable_sort(events, {}, &AppleCalendarEvent::starts);
    TextTable table({Column::cut("event", 20), Column::whole("begins"),
                     Column::whole("").dropped(1), Column::cut("status", 10).dropped(2)});
    for (const auto& event : events) {
        table.add({printable(event.title), momentText(event.starts),
                   agoText(event.starts, session.now()), printable(event.status)});
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
