#pragma once

#include <string>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Newsrooms/NewsroomSymbols.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Arguments/Suggestion.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Newsrooms/OrderedRecords.h"

namespace cli {

/// The record in its serialised form, or what is known of one that can't be read.
template <class T>
boost::json::value recordOf(const app::RecordEntry<T>& entry) {
    if (entry.value) return kit::encode(*entry.value);
    return boost::json::object{{"id", entry.id}, {"name", entry.name}, {"unreadable", entry.fault}};
}

template <class T>
boost::json::array recordsOf(const app::OrderedRecords<T>& ordered) {
    boost::json::array records;
    for (const auto& entry : ordered.entries()) records.push_back(recordOf(entry));
    return records;
}

/// The entry with that name or id. `what` is "newsroom" or "beat". Throws WrongUsage when there is
/// none or more than one.
template <class T>
const app::RecordEntry<T>& named(const std::vector<app::RecordEntry<T>>& entries,
                                 const std::string& words, std::string_view what) {
    const auto meant = app::OrderedRecords<T>::meant(entries, words);
    if (meant.size() == 1) return *meant.front();
    if (meant.empty()) {
        std::vector<std::string> known;
        for (const auto& entry : entries) known.push_back(entry.name);
        throw WrongUsage(fmt::format("There is no {0} named {1}.{2} brell {0} lists them.", what,
                                     printable(words), arguments::didYouMean(words, known)));
    }
    std::string ids;
    for (const auto* entry : meant) ids += "\n  " + printable(entry->id);
    throw WrongUsage(
        fmt::format("More than one {} is named {}. Use its id:{}", what, printable(words), ids));
}

/// The same among removed entries; of several the last removed one counts.
template <class T>
const app::RecordEntry<T>& lastRemoved(const std::vector<app::RecordEntry<T>>& removed,
                                       const std::string& words, std::string_view what) {
    const auto meant = app::OrderedRecords<T>::meant(removed, words);
    if (!meant.empty()) return *meant.front();
    throw WrongUsage(fmt::format("No {} named {} has been removed.", what, printable(words)));
}

/// The record of a named entry. Throws WorkFailed when it can't be read.
template <class T>
const T& readable(const app::RecordEntry<T>& entry, std::string_view what) {
    if (entry.value) return *entry.value;
    throw WorkFailed(fmt::format("The {} {} can't be read ({}). It is kept unchanged.", what,
                                 printable(entry.name), printable(entry.fault)));
}

/// Throws WrongUsage when an entry has that name already.
template <class T>
void requireFree(const app::OrderedRecords<T>& ordered, const std::string& name,
                 std::string_view what) {
    if (app::OrderedRecords<T>::meant(ordered.entries(), name).empty()) return;
    throw WrongUsage(fmt::format("There is a {} named {} already.", what, printable(name)));
}

/// The same for renaming an entry; its own name in another letter case is allowed.
template <class T>
void requireFreeFor(const app::OrderedRecords<T>& ordered, const app::RecordEntry<T>& entry,
                    const std::string& name, std::string_view what) {
    for (const auto* other : app::OrderedRecords<T>::meant(ordered.entries(), name)) {
        if (other != &entry) requireFree(ordered, name, what);
    }
}

/// Throws WrongUsage unless it is empty or one of NewsroomSymbols.
inline void requireSymbol(const std::string& symbol) {
    if (symbol.empty() || kit::NewsroomSymbols::contains(symbol)) return;
    std::string known;
    for (const auto name : kit::NewsroomSymbols::all) known += "\n  " + std::string(name);
    throw WrongUsage(
        fmt::format("There is no symbol named {}. The symbols are:{}", printable(symbol), known));
}

inline std::string trimmed(std::string_view name) {
    return std::string(kit::trimWhitespaceAndNewlines(name));
}

void write(Session& session, app::RecordTable& table, const app::RecordChange& change);

/// Restores a removed entry, with a number after its name when that is in use again.
template <class T>
app::RecordEntry<T> restored(Session& session, app::RecordTable& table,
                             app::OrderedRecords<T>& ordered, app::RecordEntry<T> entry) {
    const auto name = ordered.freeName(entry.name);
    write(session, table, *ordered.restore(entry.id));
    if (entry.value && name != entry.name) {
        entry.value->name = name;
        write(session, table, ordered.put(*entry.value));
    }
    return *ordered.find(entry.id);
}

/// Writes one change of the records.
inline void write(Session& session, app::RecordTable& table, const app::RecordChange& change) {
    auto transaction = session.store().transaction();
    change.applyTo(table, session.now());
    transaction.commit();
}

}  // namespace cli
