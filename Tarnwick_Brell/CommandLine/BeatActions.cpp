#include "Tarnwick_Brell/CommandLine/BeatActions.h"

#include <vector>

#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "Tarnwick_Brell/CommandLine/BeatMatches.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/RecordLookup.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace cli {

namespace {

using app::BeatRecords;
using kit::Beat;

constexpr std::string_view kBeat = "beat";
constexpr int kDays = 7;

std::string stories(std::size_t count) {
    return fmt::format("{} {}", count, count == 1 ? "story" : "stories");
}

kit::StoryQuery givenQuery(app::LocalStore& store, const QueryOptions& options) {
    const auto query = options.query();
    requireKnownSources(store, options.sources);
    if (query.isEmpty()) {
        throw WrongUsage(
            "Say which stories the beat follows: --any, --exclude, --source or --sourcing.");
    }
    return query;
}

/// Throws WrongUsage when the beat exceeds NewsroomLimits.
void requireSound(const Beat& beat) {
    try {
        kit::NewsroomLimits::require(beat);
    } catch (const kit::RecordError& error) {
        throw WrongUsage(fmt::format("This is not a valid beat: {}.", error.what()));
    }
}

void put(Session& session, BeatRecords& records, Beat beat) {
    write(session, session.store().beats(), records.put(std::move(beat)));
}

void confirm(Session& session, const Beat& beat, std::string_view what) {
    if (session.options().json) {
        session.out().line(boost::json::serialize(kit::encode(beat)));
        return;
    }
    const auto matched = matchedLately(session, {beat.query}, kDays).front().size();
    session.out().line(fmt::format("{} {}: {}. It would have matched {} of the last {} days.{}",
                                   what, printable(beat.name), queryText(beat.query),
                                   stories(matched), kDays,
                                   beat.alerts ? " New matches raise notifications." : ""));
}

}  // namespace

int listBeats(Session& session) {
    const auto records = BeatRecords::read(session.storeForReading().beats());
    if (session.options().json) {
        session.out().line(boost::json::serialize(recordsOf(records)));
        return kDone;
    }
    if (records.entries().empty()) {
        session.advise(
            "No beats yet. brell beat new NAME --any TERMS creates one; brell beat test tries it "
            "out.");
        return kDone;
    }
    std::vector<kit::StoryQuery> queries;
    for (const auto& entry : records.entries())
        queries.push_back(entry.value ? entry.value->query : kit::StoryQuery());
    const auto matched = matchedLately(session, queries, kDays);
    TextTable table({Column::whole("beat"), Column::cut("follows", 20),
                     Column::whole("alerts").dropped(1), Column::whole("7 days")});
    for (std::size_t i = 0; i < records.entries().size(); ++i) {
        const auto& entry = records.entries()[i];
        if (entry.value) {
            table.add({printable(entry.name), queryText(entry.value->query),
                       entry.value->alerts ? "on" : "off", std::to_string(matched[i].size())});
        } else {
            table.add({printable(entry.name), "unreadable: " + printable(entry.fault), "", ""});
        }
    }
    table.print(session.out());
    return kDone;
}

int newBeat(Session& session, const BeatOptions& options) {
    requireSymbol(options.symbol);
    const auto query = givenQuery(session.store(), options.query);
    auto records = BeatRecords::read(session.store().beats());
    const auto name = trimmed(options.name);
    requireFree(records, name, kBeat);
    Beat beat;
    try {
        beat = kit::madeBeat(name, options.symbol, query, options.alerts == "on");
    } catch (const kit::RecordError& error) {
        throw WrongUsage(fmt::format("This is not a valid beat: {}.", error.what()));
    }
    put(session, records, beat);
    confirm(session, beat, "Added");
    return kDone;
}

int changeBeat(Session& session, const BeatOptions& options) {
    requireSymbol(options.symbol);
    auto records = BeatRecords::read(session.store().beats());
    const auto& entry = named(records.entries(), options.name, kBeat);
    auto beat = readable(entry, kBeat);
    if (!options.newName.empty()) {
        beat.name = trimmed(options.newName);
        requireFreeFor(records, entry, beat.name, kBeat);
    }
    if (!options.symbol.empty()) beat.symbol = options.symbol;
    if (!options.alerts.empty()) beat.alerts = options.alerts == "on";
    if (options.query.isGiven()) beat.query = givenQuery(session.store(), options.query);
    if (beat == *entry.value) throw WrongUsage("Say what to change; see brell beat change --help.");
    requireSound(beat);
    put(session, records, beat);
    confirm(session, beat, "Changed");
    return kDone;
}

int tryBeat(Session& session, const BeatOptions& options) {
    auto& store = session.storeForReading();
    kit::StoryQuery query;
    if (options.name.empty()) {
        query = givenQuery(store, options.query);
    } else {
        if (options.query.isGiven())
            throw WrongUsage("Name a beat or say what to follow, not both.");
        const auto records = BeatRecords::read(store.beats());
        query = readable(named(records.entries(), options.name, kBeat), kBeat).query;
    }
    const auto matched = matchedLately(session, {query}, static_cast<int>(options.days)).front();
    printMatches(session, query, matched, static_cast<int>(options.days));
    return kDone;
}

int moveBeat(Session& session, const BeatOptions& options) {
    auto records = BeatRecords::read(session.store().beats());
    const auto id = named(records.entries(), options.name, kBeat).id;
    const auto change = records.move(id, static_cast<std::size_t>(options.place - 1));
    write(session, session.store().beats(), *change);
    return listBeats(session);
}

int removeBeat(Session& session, const BeatOptions& options) {
    auto records = BeatRecords::read(session.store().beats());
    const auto entry = named(records.entries(), options.name, kBeat);
    write(session, session.store().beats(), *records.remove(entry.id));
    if (session.options().json) {
        session.out().line(boost::json::serialize(recordOf(entry)));
    } else {
        session.advise(
            fmt::format("Removed {0}. brell beat restore restores it.", printable(entry.name)));
    }
    return kDone;
}

int restoreBeat(Session& session, const BeatOptions& options) {
    auto records = BeatRecords::read(session.store().beats());
    if (records.removed().empty()) throw WorkFailed("No beat has been removed.");
    const auto entry =
        restored(session, session.store().beats(), records,
                 options.name.empty() ? records.removed().front()
                                      : lastRemoved(records.removed(), options.name, kBeat));
    if (session.options().json) {
        session.out().line(boost::json::serialize(recordOf(entry)));
    } else {
        session.out().line(fmt::format("{} was restored.", printable(entry.name)));
    }
    return kDone;
}

}  // namespace cli
