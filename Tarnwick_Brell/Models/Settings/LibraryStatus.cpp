#include "Tarnwick_Brell/Models/Settings/LibraryStatus.h"

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"

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
    run({}, [](const std::stop_token&) { return QString(); });
}

void LibraryStatus::check() {
    canCancel_ = true;
    run(tr("Checking the library…"),
        [library = library_, clock = clock_](const std::stop_token& stop) {
            const auto found = checkLibrary(library, CheckDepth::full, stop);
            if (found.state == LibraryState::sound)
                LocalStore(library, Database::Access::readWrite).state().set(kLastCheck, clock());
            return outcomeText(found);
        });
}

void LibraryStatus::backUp() {
    canCancel_ = false;
    run(tr("Copying the library…"), [library = library_, clock = clock_](const std::stop_token&) {
        const auto backup = Backups(library).make(clock());
        return tr("Copied to %1.").arg(titleText(backup.file.filename().string()));
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
void LibraryStatus::run(const QString& progress,
                        std::function<QString(const std::stop_token&)> work) {
    if (!progress_.isEmpty()) return;
    progress_ = progress;
    outcome_.clear();
    thread_ = std::jthread([this, queue = queue_, library = library_, clock = clock_,
                            work = std::move(work)](const std::stop_token& stop) {
        QString outcome;
        Files files;
        try {
            outcome = work(stop);
        } catch (const StoreError& error) {
            outcome = stop.stop_requested() ? tr("The check was given up.")
                                            : titleText(error.what(), kExcerptCharacters);
        }
        try {
            files = filesOf(library, clock());
        } catch (const std::exception& error) {
            if (outcome.isEmpty()) outcome = titleText(error.what(), kExcerptCharacters);
        }
        queue->send([this, outcome, files = std::move(files)] {
            files_ = files;
            outcome_ = outcome;
            progress_.clear();
            emit changed();
        });
    });
    emit changed();
}

}  // namespace app
