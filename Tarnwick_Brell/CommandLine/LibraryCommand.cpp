#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Storage/Backups.h"
#include "Tarnwick_Brell/Storage/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/LibraryLock.h"
#include "Tarnwick_Brell/Storage/LibraryRepair.h"
#include "Tarnwick_Brell/Storage/LibraryRestore.h"
#include "Tarnwick_Brell/Storage/LibraryUse.h"
#include "Tarnwick_Brell/Storage/StoreError.h"

namespace brell {

namespace {

namespace fs = std::filesystem;
using desk::LibraryState;

struct RestoreOptions {
    std::optional<fs::path> file;
    bool empty = false;
};

std::string sizeText(std::uintmax_t bytes) {
    return bytes < 1'000'000 ? fmt::format("{:.1f} KB", static_cast<double>(bytes) / 1e3)
                             : fmt::format("{:.1f} MB", static_cast<double>(bytes) / 1e6);
}

void say(Session& session, std::string_view label, std::string_view text) {
    session.out().line(fmt::format("{:<13}{}", label, text));
}

std::string when(std::optional<newsroom::Instant> instant) {
    return instant ? dayAndTime(*instant) : "never";
}

int showLibrary(Session& session) {
    const auto& library = session.paths().library;
    const bool isThere = desk::LocalStore::exists(library);
    const auto backups = desk::Backups(library).all(session.now());
    const auto lastBackup = backups.empty() ? std::nullopt : std::optional(backups.front().made);
    auto& store = session.storeForReading();
    const auto lastCheck = store.state().instant(desk::kLastCheck);
    const auto bytes = isThere ? fs::file_size(library) : 0;
    if (session.options().json) {
        boost::json::object object{{"path", library.string()},
                                   {"size", bytes},
                                   {"stories", store.stories().count()},
                                   {"version", store.version()},
                                   {"backups", backups.size()}};
        if (lastBackup) object["lastBackup"] = newsroom::iso8601Text(*lastBackup);
        if (lastCheck) object["lastCheck"] = newsroom::iso8601Text(*lastCheck);
        session.out().line(boost::json::serialize(object));
        return kDone;
    }
    say(session, "library", library.string() + (isThere ? "" : " (none yet)"));
    say(session, "size", sizeText(bytes));
    say(session, "stories", std::to_string(store.stories().count()));
    say(session, "version", std::to_string(store.version()));
    say(session, "last backup", when(lastBackup));
    say(session, "last check", when(lastCheck));
    return kDone;
}

std::string newerVersion(const fs::path& library) {
    return "The library " + library.string() +
           " was written by a newer version of the desk. It was left untouched.";
}

/// Where the library can't be written, its owner still learns how it is.
void noteCheck(Session& session) {
    try {
        session.store().state().set(desk::kLastCheck, session.now());
    } catch (const desk::StoreError& error) {
        fmt::print(stderr, "brell: The check could not be noted. {}\n", error.what());
    }
}

/// Throws when there is none that this version can work on.
desk::LibraryFindings checkedInFull(const fs::path& library) {
    auto found = desk::checkLibrary(library, desk::CheckDepth::full);
    if (found.state == LibraryState::absent) {
        throw WorkFailed("There is no library at " + library.string() + ".");
    }
    if (found.state == LibraryState::newerVersion) throw WorkFailed(newerVersion(library));
    return found;
}

int checkNow(Session& session) {
    const auto& library = session.paths().library;
    const auto found = checkedInFull(library);
    if (found.state == LibraryState::damaged) throw desk::damagedLibrary(library, found.fault);
    noteCheck(session);
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

desk::Repair repaired(Session& session) {
    const auto& library = session.paths().library;
    const auto alone = desk::keepLibraryAlone(library);
    try {
        return desk::repairLibrary(library, session.now());
    } catch (const desk::StoreError& error) {
        if (error.reason() != desk::StoreError::Reason::damaged) throw;
        throw WorkFailed("The library " + library.string() +
                         " can't be repaired, because its tables are damaged. \"brell library "
                         "restore\" puts its last good backup in its place.");
    }
}

int repair(Session& session) {
    const auto& library = session.paths().library;
    session.paths().createFolders();
    const desk::LibraryLock lock(library, "brell library repair");
    if (checkedInFull(library).state == LibraryState::sound) {
        throw WorkFailed("The library " + library.string() +
                         " is sound, so it was left as it is.");
    }
    const auto done = repaired(session);
    if (session.options().json) {
        session.out().line(boost::json::serialize(boost::json::object{
            {"setAside", done.setAside.string()}, {"stories", done.stories}}));
        return kDone;
    }
    session.out().line("The library that was there is now " + done.setAside.string() + ".");
    session.out().line(fmt::format("The library was repaired. Stories in it: {}.", done.stories));
    return kDone;
}

int backUpNow(Session& session) {
    const auto& library = session.paths().library;
    if (!desk::LocalStore::exists(library)) {
        throw WorkFailed("There is no library at " + library.string() + ".");
    }
    const auto backup = desk::Backups(library).make(session.now());
    const auto file = backup.file.string();
    session.out().line(session.options().json
                           ? boost::json::serialize(boost::json::object{{"backup", file}})
                           : "The library was copied to " + file + ".");
    return kDone;
}

boost::json::object restorationJSON(const desk::Restoration& done) {
    boost::json::object object;
    if (!done.from.empty()) object["restoredFrom"] = done.from.string();
    if (done.setAside) object["setAside"] = done.setAside->string();
    boost::json::array unsound;
    for (const auto& file : done.unsound) unsound.emplace_back(file.string());
    object["unsound"] = std::move(unsound);
    return object;
}

void tell(Session& session, const desk::Restoration& done) {
    if (session.options().json) {
        session.out().line(boost::json::serialize(restorationJSON(done)));
        return;
    }
    for (const auto& file : done.unsound) {
        session.out().line("The backup " + file.string() +
                           " is damaged itself and was passed over.");
    }
    if (done.setAside) {
        session.out().line("The library that was there is now " + done.setAside->string() + ".");
    }
    session.out().line(done.from.empty()
                           ? "The desk begins with an empty library."
                           : "The library was restored from " + done.from.string() + ".");
}

desk::Restoration restored(const fs::path& library, const RestoreOptions& options,
                           newsroom::Instant now) {
    const auto alone = desk::keepLibraryAlone(library);
    if (options.empty) {
        const desk::Restoration done{.setAside = desk::setLibraryAside(library, now)};
        desk::LocalStore::begin(library);
        return done;
    }
    try {
        return desk::restoreLibrary(library, options.file, now);
    } catch (const desk::StoreError& error) {
        if (options.file || error.reason() != desk::StoreError::Reason::damaged) throw;
        throw WorkFailed(std::string(error.what()) +
                         " \"brell library restore --empty\" sets it aside and begins anew.");
    }
}

int restore(Session& session, const RestoreOptions& options) {
    const auto& library = session.paths().library;
    session.paths().createFolders();
    const desk::LibraryLock lock(library, "brell library restore");
    const bool isWished = options.file || options.empty;
    const auto state = desk::checkLibrary(library, desk::CheckDepth::full).state;
    if (state == LibraryState::newerVersion && !isWished) throw WorkFailed(newerVersion(library));
    if (state == LibraryState::sound && !isWished) {
        throw WorkFailed("The library " + library.string() +
                         " is sound, so it was left as it is. Name a backup to go back to it.");
    }
    tell(session, restored(library, options, session.now()));
    return kDone;
}

}  // namespace

void addLibraryCommand(arguments::Command& app, Command& chosen) {
    auto command = app.subcommand(
        "library",
        "Show where the library is and how it does; check, back up, repair or restore it");
    command.whenChosen([&chosen] { chosen = showLibrary; });
    command.subcommand("check", "Read the whole library and tell whether it is sound")
        .whenChosen([&chosen] { chosen = checkNow; });
    command.subcommand("backup", "Copy the library into its folder of backups")
        .whenChosen([&chosen] { chosen = backUpNow; });

    command
        .subcommand("repair", "Rebuild a damaged library from its tables and set the old one aside")
        .whenChosen([&chosen] { chosen = repair; });

    auto options = std::make_shared<RestoreOptions>();
    auto restoring = command.subcommand(
        "restore", "Set a damaged library aside and put its last good backup in its place");
    auto file = restoring.option("FILE", options->file, "This backup, whatever the library");
    restoring.flag("--empty", options->empty, "No backup: begin with an empty library")
        .excludes(file);
    restoring.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return restore(session, *options); };
    });
}

}  // namespace brell
