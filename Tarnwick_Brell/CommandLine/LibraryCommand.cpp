#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/LibraryExchange.h"
#include "Tarnwick_Brell/CommandLine/LibraryKept.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryLock.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRepair.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRestore.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryAccessLock.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace cli {

namespace {

namespace fs = std::filesystem;
using app::LibraryState;

struct RestoreOptions {
    std::optional<fs::path> file;
    bool empty = false;
};

std::string sizeText(std::uintmax_t bytes) {
    return bytes < 1'000'000 ? fmt::format("{:.1f} KB", static_cast<double>(bytes) / 1e3)
                             : fmt::format("{:.1f} MB", static_cast<double>(bytes) / 1e6);
}

void printField(Session& session, std::string_view label, std::string_view text) {
    session.out().line(fmt::format("{:<13}{}", label, text));
}

std::string when(std::optional<kit::Instant> instant) {
    return instant ? momentText(*instant) : "never";
}

int showLibrary(Session& session) {
    const auto& library = session.paths().library;
    const bool isThere = app::LocalStore::exists(library);
    const auto backups = app::Backups(library).all(session.now());
    const auto lastBackup = backups.empty() ? std::nullopt : std::optional(backups.front().made);
    auto& store = session.storeForReading();
    const auto lastCheck = store.state().instant(app::kLastCheck);
    const auto bytes = isThere ? fs::file_size(library) : 0;
    if (session.options().json) {
        boost::json::object object{{"path", library.string()},
                                   {"size", bytes},
                                   {"stories", store.stories().count()},
                                   {"version", store.version()},
                                   {"backups", backups.size()}};
        if (lastBackup) object["lastBackup"] = kit::iso8601Text(*lastBackup);
        if (lastCheck) object["lastCheck"] = kit::iso8601Text(*lastCheck);
        session.out().line(boost::json::serialize(object));
        return kDone;
    }
    printField(session, "library", library.string() + (isThere ? "" : " (none yet)"));
    printField(session, "size", sizeText(bytes));
    printField(session, "stories", std::to_string(store.stories().count()));
    printField(session, "version", std::to_string(store.version()));
    printField(session, "last backup", when(lastBackup));
    printField(session, "last check", when(lastCheck));
    return kDone;
}

std::string newerVersion(const fs::path& library) {
    return "The library " + library.string() +
           " was written by a newer version of the desk. It was left untouched.";
}

/// Stores the time of the check. A read-only library must not hide the check's result.
void recordCheck(Session& session) {
    try {
        session.store().state().set(app::kLastCheck, session.now());
    } catch (const app::StoreError& error) {
        fmt::print(stderr, "brell: The time of the check could not be stored. {}\n", error.what());
    }
}

/// Throws when there is no library or a newer version wrote it.
app::LibraryFindings checkedInFull(const fs::path& library) {
    auto found = app::checkLibrary(library, app::CheckDepth::full);
    if (found.state == LibraryState::absent) {
        throw WorkFailed("There is no library at " + library.string() + ".");
    }
    if (found.state == LibraryState::newerVersion) throw WorkFailed(newerVersion(library));
    return found;
}

int checkNow(Session& session) {
    const auto& library = session.paths().library;
    const auto found = checkedInFull(library);
    if (found.state == LibraryState::damaged) throw app::damagedLibrary(library, found.fault);
    recordCheck(session);
    if (session.options().json) {
        boost::json::object object{{"path", library.string()}, {"state", "sound"}};
        if (!found.unchecked.empty()) object["unchecked"] = found.unchecked;
        session.out().line(boost::json::serialize(object));
    } else {
        session.out().line("The library " + library.string() + " is sound.");
        if (!found.unchecked.empty()) session.out().line(found.unchecked);
    }
    return kDone;
}

app::Repair repaired(Session& session) {
    const auto& library = session.paths().library;
    const auto alone = app::lockLibraryExclusively(library);
    try {
        return app::repairLibrary(library, session.now());
    } catch (const app::StoreError& error) {
        if (error.reason() != app::StoreError::Reason::damaged) throw;
        throw WorkFailed("The library " + library.string() +
                         " can't be repaired, because its tables are damaged. \"brell library "
                         "restore\" puts its last good backup in its place.");
    }
}

int repair(Session& session) {
    const auto& library = session.paths().library;
    session.paths().createFolders();
    const app::LibraryLock lock(library, "brell library repair");
    if (checkedInFull(library).state == LibraryState::sound) {
        throw WorkFailed("The library " + library.string() +
                         " is sound, so it was left unchanged.");
    }
    const auto done = repaired(session);
    if (session.options().json) {
        session.out().line(boost::json::serialize(
            boost::json::object{{"setAside", done.setAside.string()}, {"stories", done.stories}}));
        return kDone;
    }
    session.out().line("The old library is now " + done.setAside.string() + ".");
    session.out().line(fmt::format("The library was repaired. Stories in it: {}.", done.stories));
    return kDone;
}

int backUpNow(Session& session) {
    const auto& library = session.paths().library;
    if (!app::LocalStore::exists(library)) {
        throw WorkFailed("There is no library at " + library.string() + ".");
    }
    const auto backup = app::Backups(library).make(session.now());
    const auto file = backup.file.string();
    session.out().line(session.options().json
                           ? boost::json::serialize(boost::json::object{{"backup", file}})
                           : "The library was copied to " + file + ".");
    return kDone;
}

boost::json::object restorationJSON(const app::Restoration& done) {
    boost::json::object object;
    if (!done.from.empty()) object["restoredFrom"] = done.from.string();
    if (done.setAside) object["setAside"] = done.setAside->string();
    boost::json::array unsound;
    for (const auto& file : done.unsound) unsound.emplace_back(file.string());
    object["unsound"] = std::move(unsound);
    return object;
}

void printRestoration(Session& session, const app::Restoration& done) {
    if (session.options().json) {
        session.out().line(boost::json::serialize(restorationJSON(done)));
        return;
    }
    for (const auto& file : done.unsound) {
        session.out().line("The backup " + file.string() + " is damaged too and was skipped.");
    }
    if (done.setAside) {
        session.out().line("The old library is now " + done.setAside->string() + ".");
    }
    session.out().line(done.from.empty()
                           ? "The desk begins with an empty library."
                           : "The library was restored from " + done.from.string() + ".");
}

app::Restoration restored(const fs::path& library, const RestoreOptions& options,
                          kit::Instant now) {
    const auto alone = app::lockLibraryExclusively(library);
    if (options.empty) {
        const app::Restoration done{.setAside = app::quarantineLibrary(library, now)};
        app::LocalStore::begin(library);
        return done;
    }
    try {
        return app::restoreLibrary(library, options.file, now);
    } catch (const app::StoreError& error) {
        if (options.file || error.reason() != app::StoreError::Reason::damaged) throw;
        throw WorkFailed(
            std::string(error.what()) +
            " \"brell library restore --empty\" sets it aside and begins an empty one.");
    }
}

int restore(Session& session, const RestoreOptions& options) {
    const auto& library = session.paths().library;
    session.paths().createFolders();
    const app::LibraryLock lock(library, "brell library restore");
    const bool isWished = options.file || options.empty;
    const auto state = app::checkLibrary(library, app::CheckDepth::full).state;
    if (state == LibraryState::newerVersion && !isWished) throw WorkFailed(newerVersion(library));
    if (state == LibraryState::sound && !isWished) {
        throw WorkFailed("The library " + library.string() +
                         " is sound, so it was left unchanged. Name a backup to go back to it.");
    }
    printRestoration(session, restored(library, options, session.now()));
    return kDone;
}

}  // namespace

void addLibraryCommand(arguments::Command& app, Command& chosen) {
    auto command = app.subcommand(
        "library", "Show the library's place and state; check, back up, repair or restore it");
    command.whenChosen([&chosen] { chosen = showLibrary; });
    command.subcommand("check", "Read the whole library and report whether it is sound")
        .whenChosen([&chosen] { chosen = checkNow; });
    command.subcommand("backup", "Copy the library into its folder of backups")
        .whenChosen([&chosen] { chosen = backUpNow; });

    command
        .subcommand("repair", "Rebuild a damaged library from its tables and set the old one aside")
        .whenChosen([&chosen] { chosen = repair; });

    addLibraryKeptCommands(command, chosen);
    addLibraryExchangeCommands(command, chosen);

    auto options = std::make_shared<RestoreOptions>();
    auto restoring = command.subcommand(
        "restore", "Set a damaged library aside and put its last good backup in its place");
    auto file =
        restoring.option("FILE", options->file, "Restore this backup, even over a sound library");
    restoring.flag("--empty", options->empty, "No backup: begin with an empty library")
        .excludes(file);
    restoring.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return restore(session, *options); };
    });
}

}  // namespace cli
