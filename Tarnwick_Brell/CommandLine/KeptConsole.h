#pragma once

#include <string>
#include <vector>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Library/KeptStore.h"

/// What the commands about clips, notes, projects and what was removed have in common.
namespace cli {

/// The one with that id, the only one whose id begins so, or the only one of that name. Throws
/// WrongUsage.
app::KeptRow keptNamed(app::LocalStore& store, app::KeptKind kind, const std::string& words);

/// The record of a row. Throws WorkFailed when this version can't read it.
template <class T>
T readableKept(Session& session, app::LocalStore& store, const app::KeptRow& row) {
    auto value = app::KeptStore(store, session.now()).find<T>(row.id);
    if (value) return std::move(*value);
    throw WorkFailed(fmt::format("{} can't be read ({}). It is kept unchanged.",
                                 printable(row.title), printable(row.fault)));
}

template <class T>
T keptNamedAs(Session& session, app::LocalStore& store, const std::string& words) {
    return readableKept<T>(session, store, keptNamed(store, app::kKindOf<T>, words));
}

/// "8B3D5F20", what one has to type of an id.
std::string shortID(const std::string& id);

boost::json::object keptRecord(const app::KeptRow& row);

/// Prints rows as a table or as JSON.
void printKept(Session& session, const std::vector<app::KeptRow>& rows, const std::string& none);

int removeKept(Session& session, app::KeptKind kind, const std::string& words);
/// Without words the one that was removed last.
int restoreKept(Session& session, app::KeptKind kind, const std::string& words);

/// The id of the project with that name or id; empty for no words.
std::string projectID(app::LocalStore& store, const std::string& words);

}  // namespace cli
