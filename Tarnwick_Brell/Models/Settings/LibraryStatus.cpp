#include "Tarnwick_Brell/Models/Settings/LibraryStatus.h"

#include "Tarnwick_Brell/Models/Settings/LibraryText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRepair.h"

namespace app {

namespace {

namespace fs = std::filesystem;

QString outcomeText(const LibraryFindings& findings) {
    switch (findings.state) {
        case LibraryState::sound: {
            const auto sound = LibraryStatus::tr("The library is sound.");
            return findings.unchecked.empty()
                       ? sound
                       : sound + u' ' + titleText(findings.unchecked, kExcerptCharacters);
        }
        case LibraryState::damaged:
            return LibraryStatus::tr("The library is damaged: %1").arg(titleText(findings.fault));
        case LibraryState::newerVersion:
            return LibraryStatus::tr("A newer version of the desk wrote the library.");
        case LibraryState::absent: return LibraryStatus::tr("There is no library yet.");
    }
    return {};
}

}  // namespace

LibraryStatus::LibraryStatus(fs::path library, kit::Clock clock)
    : library_(std::move(library)),
      clock_(std::move(clock)),
      queue_(std::make_shared<MainThreadQueue>()) {
    read();
}

LibraryStatus::~LibraryStatus() { queue_->close(); }

void LibraryStatus::read() {
    run({}, {}, [](const WorkWatch&) { return Result(); });
}

LibraryStatus::Result LibraryStatus::checked(const fs::path& library, kit::Instant now,
                                             const WorkWatch& watch) {
    const auto found = checkLibrary(library, CheckDepth::full, watch.stop);
    Result result{.outcome = outcomeText(found)};
    if (found.state == LibraryState::sound) {
        LocalStore(library, Database::Access::readWrite).state().set(kLastCheck, now);
    } else if (found.state == LibraryState::damaged) {
        try {
            result.repair = repairText(previewRepair(library, watch));
        } catch (const StoreError&) {
            if (watch.stop.stop_requested()) throw;
            result.outcome += u' ' + tr("It can't be repaired, so only a backup helps.");
        }
    }
    return result;
}

void LibraryStatus::check() {
    run(tr("Checking the library…"), tr("The check was given up."),
        [library = library_, clock = clock_](const WorkWatch& watch) {
            return checked(library, clock(), watch);
        });
}

void LibraryStatus::backUp() {
    run(tr("Copying the library and checking the copy…"), tr("The backup was given up."),
        [library = library_, clock = clock_](const WorkWatch& watch) {
            const auto backup = Backups(library).make(clock(), watch);
            return Result{tr("Copied to %1.").arg(titleText(backup.file.filename().string())), {}};
        });
}

LibraryStatus::Files LibraryStatus::filesOf(const fs::path& library, kit::Instant now) {
    if (!LocalStore::exists(library)) return {};
    LocalStore store(library, Database::Access::readOnly);
    return {.size = fs::file_size(library),
            .stories = store.stories().count(),
            .lastCheck = store.state().instant(kLastCheck),
            .backups = Backups(library).all(now)};
}

/// Every work ends with a look at the files, which it may have changed.
void LibraryStatus::run(const QString& progress, const QString& givenUp, Work work) {
    if (!progress_.isEmpty()) return;
    progress_ = progress;
    share_ = 0;
    outcome_.clear();
    thread_ = std::jthread([this, queue = queue_, library = library_, clock = clock_, givenUp,
                            work = std::move(work)](const std::stop_token& stop) {
        Result result;
        Files files;
        const auto report = [this, queue](double share) {
            queue->send([this, share] {
                share_ = share;
                emit changed();
            });
        };
        try {
            result = work({.stop = stop, .progress = report});
        } catch (const StoreError& error) {
            result.outcome =
                stop.stop_requested() ? givenUp : titleText(error.what(), kExcerptCharacters);
        }
        try {
            files = filesOf(library, clock());
        } catch (const std::exception& error) {
            if (result.outcome.isEmpty())
                result.outcome = titleText(error.what(), kExcerptCharacters);
            files.backups = Backups(library).all(clock());
        }
        files.repair = result.repair;
        queue->send([this, outcome = result.outcome, files = std::move(files)] {
            files_ = files;
            outcome_ = outcome;
            progress_.clear();
            emit changed();
        });
    });
    emit changed();
}

}  // namespace app
