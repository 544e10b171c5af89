#include "Tarnwick_Brell/CommandLine/LibraryKept.h"

#include <algorithm>
#include <memory>
#include <string>

#include "Tarnwick_Brell/CommandLine/KeptConsole.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using app::KeptRow;

struct RemovedOptions {
    std::string id{};
};

int listRemoved(Session& session, const RemovedOptions&) {
    auto& store = session.storeForReading();
    const auto rows = store.kept().removed(session.now());
    if (session.options().json) {
        boost::json::array list;
        for (const auto& row : rows) list.push_back(keptRecord(row));
        session.out().line(boost::json::serialize(list));
        return kDone;
    }
    if (rows.empty()) {
        session.advise("Nothing has been removed in the last 90 days.");
        return kDone;
    }
    TextTable table({Column::whole("id"), Column::whole("kind"), Column::whole("removed"),
                     Column::cut("title", 20), Column::cut("text", 20).dropped(1)});
    for (const auto& row : rows) {
        table.add({row.kind == app::KeptKind::story ? row.id : shortID(row.id),
                   std::string(kit::rawValue(row.kind)), momentText(*row.removedAt),
                   printable(row.title), printable(row.line)});
    }
    table.print(session.out());
    return kDone;
}

int restoreRemoved(Session& session, const RemovedOptions& options) {
    auto& store = session.store();
    const auto rows = store.kept().removed(session.now());
    const auto found = std::ranges::find_if(
        rows, [&](const KeptRow& row) { return row.id.starts_with(options.id); });
    if (found == rows.end()) {
        throw WrongUsage(fmt::format(
            "Nothing that was removed has the id {}. brell library removed lists what there is.",
            printable(options.id)));
    }
    return restoreKept(session, found->kind, found->id);
}

}  // namespace

void addLibraryKeptCommands(arguments::Command& library, Command& chosen) {
    auto options = std::make_shared<RemovedOptions>();
    auto removed =
        addAction(library, chosen, options, "removed",
                  "List what was removed in the last 90 days, or restore it", listRemoved);
    addAction(removed, chosen, options, "restore", "Restore what was removed", restoreRemoved)
        .option("ID", options->id, "Its id or the beginning of it")
        .required();
}

}  // namespace cli
