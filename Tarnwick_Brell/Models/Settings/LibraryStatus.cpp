#include "Tarnwick_Brell/Models/Settings/LibraryStatus.h"

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
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
    run(tr("Checking the library…"), [library = library_](const std::stop_token& stop) {
        return outcomeText(checkLibrary(library, CheckDepth::full, stop));
    });
}

void LibraryStatus::backUp() {
    run(tr("Copying the library…"), [library = library_, clock = clock_](const std::stop_token&) {
        const auto backup = Backups(library).make(clock());
        return tr("Copied to %1.").arg(titleText(backup.file.filename().string()));
    });
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
        std::vector<Backup> backups;
        try {
            outcome = work(stop);
            backups = Backups(library).all(clock());
        } catch (const StoreError& error) {
            outcome = titleText(error.what(), kExcerptCharacters);
        }
        std::error_code error;
        const auto size = fs::file_size(library, error);
        queue->send([this, outcome, backups = std::move(backups),
                     size = error ? std::nullopt : std::optional(size)] {
            size_ = size;
            backups_ = backups;
            outcome_ = outcome;
            progress_.clear();
            emit changed();
        });
    });
    emit changed();
}

}  // namespace app
