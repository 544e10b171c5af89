#include "Tarnwick_Brell/CommandLine/ImportText.h"

#include <algorithm>

#include "Tarnwick_Brell/CommandLine/KeptConsole.h"

namespace cli {

namespace {

using kit::LibraryContents;
using kit::LibraryPart;

/// So many of each list are shown; JSON has them all.
constexpr std::size_t kShownOfList = 20;

std::string partText(LibraryPart part, std::size_t count) {
    const auto word = [&](const char* one, const char* many) {
        return fmt::format("{} {}", count, count == 1 ? one : many);
    };
    switch (part) {
        case LibraryPart::clips: return word("clip", "clips");
        case LibraryPart::notes: return word("note", "notes");
        case LibraryPart::projects: return word("project", "projects");
        case LibraryPart::stories: break;
    }
    return word("saved story", "saved stories");
}

/// What can be listed of a record.
struct ListedRecord {
    app::KeptKind kind{};
    std::string id{};
    std::string title{};
};

std::vector<ListedRecord> listed(const LibraryContents& contents) {
    std::vector<ListedRecord> rows;
    const auto add = [&](const auto& records) {
        for (const auto& record : records) {
            using Record = std::remove_cvref_t<decltype(record)>;
            const auto face = app::faceOf(record);
            rows.push_back(
                {app::kKindOf<Record>, record.id, face.title.empty() ? face.line : face.title});
        }
    };
    add(contents.projects);
    add(contents.stories);
    add(contents.clips);
    add(contents.notes);
    return rows;
}

boost::json::array listRecord(const LibraryContents& contents) {
    boost::json::array list;
    for (const auto& [kind, id, title] : listed(contents)) {
        list.push_back(
            boost::json::object{{"kind", kit::rawValue(kind)}, {"id", id}, {"title", title}});
    }
    return list;
}

void printProblems(Session& session, std::string_view heading, bool isImported,
                   const std::vector<kit::ImportProblem>& problems) {
    std::vector<std::string> lines;
    for (const auto& problem : problems) {
        if (problem.isImported() != isImported) continue;
        auto line = problem.line > 0 ? fmt::format("  line {}: ", problem.line) : std::string("  ");
        line += fmt::format("{}: {}", printable(problem.text), kit::label(problem.obstacle));
        if (!problem.detail.empty()) line += fmt::format(" ({})", printable(problem.detail));
        lines.push_back(std::move(line));
    }
    if (lines.empty()) return;
    session.out().line(fmt::format("{}: {}.", heading, lines.size()));
    for (std::size_t at = 0; at < std::min(lines.size(), kShownOfList); ++at)
        session.out().line(lines[at]);
    if (lines.size() > kShownOfList)
        session.out().line(fmt::format("  and {} more", lines.size() - kShownOfList));
}

}  // namespace

std::string countsText(const app::PartCounts& counts) {
    std::string text;
    for (const auto& row : kit::enumTable<LibraryPart>) {
        const auto count = counts[static_cast<std::size_t>(row.value)];
        if (count > 0) text += (text.empty() ? "" : ", ") + partText(row.value, count);
    }
    return text.empty() ? "nothing" : text;
}

boost::json::object countsRecord(const app::PartCounts& counts) {
    boost::json::object object;
    for (const auto& row : kit::enumTable<LibraryPart>)
        object[row.raw] = counts[static_cast<std::size_t>(row.value)];
    return object;
}

std::string refusalText(const kit::ImportRefusal& refusal) {
    std::string text(kit::label(refusal.fault));
    if (refusal.line > 0) text += fmt::format(" It ends or breaks in line {}.", refusal.line);
    if (!refusal.detail.empty()) text += fmt::format(" ({})", printable(refusal.detail));
    return text;
}

boost::json::array problemsRecord(const std::vector<kit::ImportProblem>& problems) {
    boost::json::array list;
    for (const auto& problem : problems) {
        boost::json::object object{{"reason", kit::rawValue(problem.obstacle)},
                                   {"text", problem.text},
                                   {"imported", problem.isImported()}};
        if (problem.line > 0) object["line"] = problem.line;
        if (!problem.detail.empty()) object["detail"] = problem.detail;
        list.push_back(std::move(object));
    }
    return list;
}

void printListed(Session& session, const LibraryContents& contents) {
    const auto rows = listed(contents);
    for (std::size_t at = 0; at < std::min(rows.size(), kShownOfList); ++at) {
        session.out().line(fmt::format("  {}  {}",
                                       padTo(std::string(kit::rawValue(rows[at].kind)), 7),
                                       printable(rows[at].title)));
    }
    if (rows.size() > kShownOfList)
        session.out().line(fmt::format("  and {} more", rows.size() - kShownOfList));
}

void printRest(Session& session, const kit::ImportPreview& preview, bool replace,
               const std::vector<kit::ImportProblem>& refused) {
    const auto here = app::partCounts(preview.here);
    if (here != app::PartCounts{})
        session.out().line(fmt::format("Known already: {}.", countsText(here)));
    const auto differing = app::partCounts(preview.differing);
    if (differing != app::PartCounts{} && !replace) {
        session.out().line(
            fmt::format("Here with another content, which stays: {}. --replace takes the file's.",
                        countsText(differing)));
        printListed(session, preview.differing);
    }
    printProblems(session, "Refused", false, refused);
    printProblems(session, "Imported all the same", true, preview.problems);
    for (const auto& part : preview.fresh.unknownParts) {
        session.out().line(
            fmt::format("This version does not know the part \"{}\" of the file; it "
                        "is left out.",
                        printable(std::string(part.key()))));
    }
}

boost::json::object importRecord(const kit::ImportPreview& preview) {
    boost::json::array unknown;
    for (const auto& part : preview.fresh.unknownParts) unknown.emplace_back(part.key());
    return {{"form", kit::rawValue(preview.form)},
            {"new", listRecord(preview.fresh)},
            {"known", countsRecord(app::partCounts(preview.here))},
            {"differing", listRecord(preview.differing)},
            {"unknownParts", std::move(unknown)}};
}

}  // namespace cli
