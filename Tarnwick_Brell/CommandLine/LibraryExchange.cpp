#include "Tarnwick_Brell/CommandLine/LibraryExchange.h"

#include <memory>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/ImportText.h"
#include "Tarnwick_Brell/CommandLine/InputFile.h"
#include "Tarnwick_Brell/CommandLine/KeptConsole.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"
#include "Tarnwick_Brell/Library/LibraryExchange.h"
#include "Tarnwick_Brell/Storage/Files/WholeFiles.h"

namespace cli {

namespace {

using kit::ExportForm;
using kit::LibraryContents;
using kit::LibraryPart;

struct ExchangeOptions {
    std::string file{};
    std::string form = "json";
    std::vector<std::string> parts{};
    std::string project{};
    bool preview = false;
    bool replace = false;
};

app::ContentsScope scopeOf(app::LocalStore& store, const ExchangeOptions& options) {
    app::ContentsScope scope{.project = projectID(store, options.project)};
    for (const auto& part : options.parts) scope.parts.insert(*kit::enumFromRaw<LibraryPart>(part));
    const auto form = *kit::enumFromRaw<ExportForm>(options.form);
    if (form == ExportForm::csv && scope.parts.size() > 1)
        throw WrongUsage("A table has one kind of records. Name one by --kind.");
    if (form == ExportForm::csv && scope.parts.empty()) scope.parts = {LibraryPart::stories};
    if (form == ExportForm::bookmarks) {
        if (!scope.parts.empty() && scope.parts != std::set{LibraryPart::stories})
            throw WrongUsage("Only saved stories can be bookmarks.");
        scope.parts = {LibraryPart::stories};
    }
    return scope;
}

void printExport(Session& session, const ExchangeOptions& options, const LibraryContents& contents,
                 const std::string& text) {
    const bool isJSON = session.options().json;
    if (options.file.empty() || options.file == "-") {
        // A library is one JSON value already.
        if (!isJSON || options.form == kit::rawValue(ExportForm::json))
            return session.out().write(text);
        return session.out().line(
            boost::json::serialize(boost::json::object{{"form", options.form}, {"text", text}}));
    }
    app::WholeFile file(options.file,
                        options.replace ? app::Existing::isReplaced : app::Existing::stays);
    file.write(text);
    file.commit();
    const auto counts = app::partCounts(contents);
    session.out().line(
        isJSON ? boost::json::serialize(boost::json::object{{"file", options.file},
                                                            {"form", options.form},
                                                            {"exported", countsRecord(counts)}})
               : fmt::format("Exported {} to {}.", countsText(counts), printable(options.file)));
}

int exportLibrary(Session& session, const ExchangeOptions& options) {
    auto& store = session.storeForReading();
    const auto scope = scopeOf(store, options);
    auto [contents, unreadable] = app::keptContents(store, scope);
    if (unreadable > 0) {
        fmt::print(stderr, "brell: Left out {} that a newer version of the desk wrote.\n",
                   unreadable == 1 ? "a record" : fmt::format("{} records", unreadable));
    }
    const kit::ExportDetails details{
        .part = scope.parts.empty() ? LibraryPart::stories : *scope.parts.begin(),
        .madeAt = session.now(),
        .program = "brell " BRELL_VERSION,
        .zone = kit::TimeZone::here()};
    const auto form = *kit::enumFromRaw<ExportForm>(options.form);
    printExport(session, options, contents, kit::exportedLibrary(contents, form, details));
    return kDone;
}

int showPreview(Session& session, const kit::ImportPreview& preview, bool replace) {
    if (session.options().json) {
        auto object = importRecord(preview);
        object["problems"] = problemsRecord(preview.problems);
        session.out().line(boost::json::serialize(object));
        return kDone;
    }
    session.out().line(
        fmt::format("Would be added: {}.", countsText(app::partCounts(preview.fresh))));
    printListed(session, preview.fresh);
    const auto differing = app::partCounts(preview.differing);
    if (replace && differing != app::PartCounts{}) {
        session.out().line(fmt::format("Would be replaced: {}.", countsText(differing)));
        printListed(session, preview.differing);
    }
    printRest(session, preview, replace, preview.problems);
    return kDone;
}

int importNow(Session& session, const kit::ImportPreview& preview, bool replace) {
    const auto outcome = app::importKept(
        session.store(), preview, replace ? app::Differing::isReplaced : app::Differing::stays,
        session.now());
    auto problems = preview.problems;
    problems.insert(problems.end(), outcome.refused.begin(), outcome.refused.end());
    if (session.options().json) {
        auto object = importRecord(preview);
        object["problems"] = problemsRecord(problems);
        object["added"] = countsRecord(outcome.added);
        object["replaced"] = countsRecord(outcome.replaced);
        session.out().line(boost::json::serialize(object));
        return kDone;
    }
    session.out().line(fmt::format("Added: {}.", countsText(outcome.added)));
    if (outcome.replaced != app::PartCounts{})
        session.out().line(fmt::format("Replaced: {}.", countsText(outcome.replaced)));
    printRest(session, preview, replace, problems);
    return kDone;
}

int importLibrary(Session& session, const ExchangeOptions& options) {
    const auto bytes = readInput(options.file, kit::kMostBytesOfImport);
    auto& store = options.preview ? session.storeForReading() : session.store();
    const auto read = kit::previewImport(bytes, app::keptContents(store).contents, session.now());
    if (!read) throw WorkFailed(refusalText(read.error()));
    return options.preview ? showPreview(session, read.value(), options.replace)
                           : importNow(session, read.value(), options.replace);
}

template <class Enum>
std::vector<std::string> namesOf() {
    std::vector<std::string> names;
    for (const auto& row : kit::enumTable<Enum>) names.emplace_back(row.raw);
    return names;
}

}  // namespace

void addLibraryExchangeCommands(arguments::Command& library, Command& chosen) {
    auto options = std::make_shared<ExchangeOptions>();
    auto exporting =
        addAction(library, chosen, options, "export",
                  "Write what you keep for other programs, or to import it again", exportLibrary);
    exporting.option("FILE", options->file, "Where to; without it, or for -, the standard output");
    const auto forms = namesOf<ExportForm>(), parts = namesOf<LibraryPart>();
    exporting
        .option("--form", options->form,
                fmt::format("How it is written: {}", fmt::join(forms, ", ")))
        .oneOf(forms);
    exporting
        .option("--kind", options->parts,
                fmt::format("Only {}; may be repeated", fmt::join(parts, ", ")))
        .oneOf(parts);
    exporting.option("--project", options->project, "Only this project and what is in it")
        .shownAs("NAME");
    exporting.flag("--replace", options->replace, "Write over a file that exists");
    auto importing =
        addAction(library, chosen, options, "import",
                  "Add what this or another program exported: JSON, bookmarks (HTML), links (CSV)",
                  importLibrary);
    importing.option("FILE", options->file, "The file; - is the standard input").required();
    importing.flag("--preview", options->preview, "Only say what would be added");
    importing.flag("--replace", options->replace,
                   "Take the file's content where the library has another");
}

}  // namespace cli
