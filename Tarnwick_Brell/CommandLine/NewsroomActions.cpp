#include "Tarnwick_Brell/CommandLine/NewsroomActions.h"

#include <algorithm>
#include <vector>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "NewsroomKit/Queries/TermList.h"
#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/RecordLookup.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace cli {

namespace {

using app::NewsroomRecords;
using kit::NewsroomSpec;
using kit::PanelKind;

constexpr std::string_view kNewsroom = "newsroom";

/// Throws WrongUsage for an unknown kind and for an empty list.
std::vector<PanelKind> kindsNamed(const std::string& list) {
    const auto offered = kit::offeredPanelKinds();
    std::vector<PanelKind> kinds;
    for (const auto& word : kit::separatedTerms(list)) {
        const auto kind = kit::enumFromRaw<PanelKind>(word);
        if (kind && std::find(offered.begin(), offered.end(), *kind) != offered.end()) {
            kinds.push_back(*kind);
            continue;
        }
        std::string known;
        for (const auto one : offered) {
            known += fmt::format("\n  {:<11} {}", rawValue(one), kindRow(one).description);
        }
        throw WrongUsage(fmt::format("No panel of the kind {} can be added. The kinds are:{}",
                                     printable(word), known));
    }
    if (kinds.empty()) throw WrongUsage("Name the kinds of the panels: --panels stream,status");
    return kinds;
}

kit::StoryQuery givenFocus(Session& session, const QueryOptions& options) {
    const auto focus = options.query();
    requireKnownSources(session.store(), options.sources);
    return focus;
}

[[noreturn]] void refuse(const kit::RecordError& error) {
    throw WrongUsage(fmt::format("This is not a valid newsroom: {}.", error.what()));
}

NewsroomRecords recordsToChange(Session& session) {
    return NewsroomRecords::read(session.store().newsrooms());
}

void put(Session& session, NewsroomRecords& records, NewsroomSpec spec) {
    write(session, session.store().newsrooms(), records.put(std::move(spec)));
}

void printOutcome(Session& session, const NewsroomRecords::Entry& entry,
                  const std::string& sentence) {
    session.out().line(session.options().json ? boost::json::serialize(recordOf(entry))
                                              : withGivenOptions(sentence, session.options()));
}

void printOutcome(Session& session, const NewsroomRecords& records, const NewsroomSpec& spec,
                  std::string_view what) {
    printOutcome(session, *records.find(spec.id.text()),
                 fmt::format("{} {}: {}, {}.", what, printable(spec.name), panelsText(spec),
                             queryText(spec.focus)));
}

}  // namespace

std::string panelsText(const kit::NewsroomSpec& spec) {
    if (spec.panels.empty()) return "no panels";
    std::string text;
    for (std::size_t i = 0; i < spec.panels.size(); ++i) {
        if (i > 0) text += i + 1 == spec.panels.size() ? " and " : ", ";
        text += rawValue(spec.panels[i].kind);
    }
    return text;
}

int listNewsrooms(Session& session) {
    const auto records = NewsroomRecords::read(session.storeForReading().newsrooms());
    if (session.options().json) {
        session.out().line(boost::json::serialize(recordsOf(records)));
        return kDone;
    }
    if (records.entries().empty()) {
        session.advise(
            "No newsrooms. brell newsroom new NAME --panels KINDS creates one; brell newsroom "
            "restore restores a removed one.");
        return kDone;
    }
    TextTable table({Column::whole("newsroom"), Column::whole("panels").dropped(1),
                     Column::cut("follows", 20)});
    for (const auto& entry : records.entries()) {
        if (!entry.value) {
            table.add({printable(entry.name), "unreadable", ""});
            table.addNote(printable(entry.fault));
            continue;
        }
        table.add({printable(entry.name), std::to_string(entry.value->panels.size()),
                   queryText(entry.value->focus)});
    }
    table.print(session.out());
    return kDone;
}

int newNewsroom(Session& session, const NewsroomOptions& options) {
    requireSymbol(options.symbol);
    const auto kinds = kindsNamed(options.panels);
    auto focus = givenFocus(session, options.focus);
    auto records = recordsToChange(session);
    const auto name = trimmed(options.name);
    requireFree(records, name, kNewsroom);
    NewsroomSpec spec;
    try {
        spec = kit::madeNewsroom(name, options.symbol, kinds, std::move(focus));
    } catch (const kit::RecordError& error) {
        refuse(error);
    }
    put(session, records, spec);
    printOutcome(session, records, spec, "Added");
    return kDone;
}

int changeNewsroom(Session& session, const NewsroomOptions& options) {
    requireSymbol(options.symbol);
    auto records = recordsToChange(session);
    const auto& entry = named(records.entries(), options.name, kNewsroom);
    auto spec = readable(entry, kNewsroom);
    if (!options.newName.empty()) {
        const auto name = trimmed(options.newName);
        requireFreeFor(records, entry, name, kNewsroom);
        spec.name = name;
    }
    if (!options.symbol.empty()) spec.symbol = options.symbol;
    if (options.everything && options.focus.isGiven())
        throw WrongUsage("Say what to follow, or --everything, not both.");
    if (options.everything) spec.focus = {};
    if (options.focus.isGiven()) spec.focus = givenFocus(session, options.focus);
    if (spec == *entry.value)
        throw WrongUsage("Say what to change; see brell newsroom change --help.");
    try {
        kit::NewsroomLimits::require(spec);
    } catch (const kit::RecordError& error) {
        refuse(error);
    }
    put(session, records, spec);
    printOutcome(session, records, spec, "Changed");
    return kDone;
}

int duplicateNewsroom(Session& session, const NewsroomOptions& options) {
    auto records = recordsToChange(session);
    const auto& spec = readable(named(records.entries(), options.name, kNewsroom), kNewsroom);
    auto name = trimmed(options.newName);
    if (name.empty()) {
        name = records.freeName(spec.name);
    } else {
        requireFree(records, name, kNewsroom);
    }
    NewsroomSpec copy;
    try {
        copy = kit::duplicated(spec, name);
    } catch (const kit::RecordError& error) {
        refuse(error);
    }
    put(session, records, copy);
    printOutcome(session, records, copy, "Added");
    return kDone;
}

int moveNewsroom(Session& session, const NewsroomOptions& options) {
    auto records = recordsToChange(session);
    const auto id = named(records.entries(), options.name, kNewsroom).id;
    const auto change = records.move(id, static_cast<std::size_t>(options.place - 1));
    write(session, session.store().newsrooms(), *change);
    return listNewsrooms(session);
}

int removeNewsroom(Session& session, const NewsroomOptions& options) {
    auto records = recordsToChange(session);
    const auto entry = named(records.entries(), options.name, kNewsroom);
    write(session, session.store().newsrooms(), *records.remove(entry.id));
    printOutcome(
        session, entry,
        fmt::format("Removed {}. brell newsroom restore restores it.", printable(entry.name)));
    return kDone;
}

int restoreNewsroom(Session& session, const NewsroomOptions& options) {
    auto records = recordsToChange(session);
    if (records.removed().empty()) throw WorkFailed("No newsroom has been removed.");
    const auto entry =
        restored(session, session.store().newsrooms(), records,
                 options.name.empty() ? records.removed().front()
                                      : lastRemoved(records.removed(), options.name, kNewsroom));
    printOutcome(session, entry, fmt::format("{} was restored.", printable(entry.name)));
    return kDone;
}

}  // namespace cli
