#include "Tarnwick_Brell/CommandLine/KeptConsole.h"

#include <algorithm>

#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using app::KeptKind;
using app::KeptRow;

/// As sentences name it.
std::string_view keptWord(KeptKind kind) {
    switch (kind) {
        case KeptKind::clip: return "clip";
        case KeptKind::note: return "note";
        case KeptKind::project: return "project";
        case KeptKind::story: break;
    }
    return "saved story";
}

std::vector<KeptRow> keptMeant(const std::vector<KeptRow>& rows, const std::string& words) {
    std::vector<KeptRow> meant;
    const auto take = [&](const auto& test) {
        if (meant.empty()) std::ranges::copy_if(rows, std::back_inserter(meant), test);
    };
    const auto folded = kit::fold(words);
    const auto id = kit::lowercasedASCII(words);
    const auto lowered = [](const KeptRow& row) { return kit::lowercasedASCII(row.id); };
    take([&](const KeptRow& row) { return lowered(row) == id; });
    take([&](const KeptRow& row) { return row.title == words; });
    take([&](const KeptRow& row) { return kit::fold(row.title) == folded; });
    take([&](const KeptRow& row) { return lowered(row).starts_with(id); });
    return meant;
}

void printKeptRow(Session& session, const KeptRow& row, std::string_view outcome) {
    if (session.options().json) {
        session.out().line(boost::json::serialize(keptRecord(row)));
    } else {
        session.advise(fmt::format("{} {}", printable(row.title), outcome));
    }
}

}  // namespace

std::string shortID(const std::string& id) {
    constexpr std::size_t characters = 8;
    return id.substr(0, characters);
}

boost::json::object keptRecord(const KeptRow& row) {
    boost::json::object object{{"kind", kit::rawValue(row.kind)},
                               {"id", row.id},
                               {"title", row.title},
                               {"line", row.line},
                               {"at", kit::encode(row.at)}};
    if (row.removedAt) object["removedAt"] = kit::encode(*row.removedAt);
    if (!row.fault.empty()) object["unreadable"] = row.fault;
    return object;
}

KeptRow keptNamed(app::LocalStore& store, KeptKind kind, const std::string& words) {
    const auto meant = keptMeant(store.kept().list({.kind = kind}), words);
    const auto word = keptWord(kind);
    if (meant.size() == 1) return meant.front();
    if (meant.empty()) {
        throw WrongUsage(fmt::format(
            "There is no {} named {}.{}", word, printable(words),
            kind == KeptKind::story ? "" : fmt::format(" brell {}s lists them.", word)));
    }
    std::string ids;
    constexpr std::size_t most = 10;
    for (const auto& row : meant) {
        if (&row - meant.data() < static_cast<std::ptrdiff_t>(most))
            ids += "\n  " + printable(row.id) + "  " + printable(row.title);
    }
    throw WrongUsage(
        fmt::format("More than one {} is named {}. Use its id:{}", word, printable(words), ids));
}

void printKept(Session& session, const std::vector<KeptRow>& rows, const std::string& none) {
    if (session.options().json) {
        boost::json::array list;
        for (const auto& row : rows) list.push_back(keptRecord(row));
        session.out().line(boost::json::serialize(list));
        return;
    }
    if (rows.empty()) {
        session.advise(none);
        return;
    }
    TextTable table({Column::whole("id"), Column::whole("when").dropped(1),
                     Column::cut("title", 20), Column::cut("text", 20).dropped(2)});
    for (const auto& row : rows) {
        table.add(
            {row.kind == KeptKind::story ? row.id : shortID(row.id),
             ageText(row.removedAt.value_or(row.at), session.now()), printable(row.title),
             row.fault.empty() ? printable(row.line) : "unreadable: " + printable(row.fault)});
    }
    table.print(session.out());
}

int removeKept(Session& session, KeptKind kind, const std::string& words) {
    auto& store = session.store();
    const auto row = keptNamed(store, kind, words);
    app::KeptStore(store, session.now()).remove(kind, row.id);
    printKeptRow(
        session, row,
        fmt::format("was removed. brell {}s restore restores it within 90 days.", keptWord(kind)));
    return kDone;
}

int restoreKept(Session& session, KeptKind kind, const std::string& words) {
    auto& store = session.store();
    auto removed = store.kept().removed(session.now());
    std::erase_if(removed, [&](const KeptRow& row) { return row.kind != kind; });
    if (removed.empty())
        throw WorkFailed(
            fmt::format("No {} has been removed in the last 90 days.", keptWord(kind)));
    const auto meant = words.empty() ? removed : keptMeant(removed, words);
    if (meant.empty()) {
        throw WrongUsage(
            fmt::format("No {} named {} has been removed.", keptWord(kind), printable(words)));
    }
    app::KeptStore(store, session.now()).restore(kind, meant.front().id);
    auto row = meant.front();
    row.removedAt.reset();
    printKeptRow(session, row, "was restored.");
    return kDone;
}

std::string projectID(app::LocalStore& store, const std::string& words) {
    return words.empty() ? words : keptNamed(store, KeptKind::project, words).id;
}

}  // namespace cli
