#include "Tarnwick_Brell/Models/Settings/LibraryWorkModel.h"

#include <optional>
#include <utility>

#include "Tarnwick_Brell/Models/Settings/LibraryText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryAccessLock.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryLock.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRepair.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRestore.h"

namespace app {

namespace {

namespace fs = std::filesystem;

QString libraryFileName(const fs::path& file) { return titleText(file.filename().string()); }

QString repaired(const fs::path& library, kit::Instant now, const WorkWatch& watch) {
    const auto done = repairLibrary(library, now, watch);
    return LibraryWorkModel::tr("The library was repaired. The damaged one is now %1.")
        .arg(libraryFileName(done.setAside));
}

QString restored(const fs::path& library, const fs::path& backup, kit::Instant now,
                 const WorkWatch& watch) {
    const auto chosen = backup.empty() ? std::nullopt : std::optional(backup);
    const auto done = restoreLibrary(library, chosen, now, watch);
    auto text =
        LibraryWorkModel::tr("The library was restored from %1.").arg(libraryFileName(done.from));
    if (done.setAside)
        text += u' ' +
                LibraryWorkModel::tr("The old one is now %1.").arg(libraryFileName(*done.setAside));
    return text;
}

}  // namespace

LibraryWorkModel::LibraryWorkModel(LibraryWork work, fs::path library, kit::Clock clock,
                                   std::string holder)
    : work_(std::move(work)),
      library_(std::move(library)),
      clock_(std::move(clock)),
      holder_(std::move(holder)),
      queue_(std::make_shared<MainThreadQueue>()) {}

LibraryWorkModel::~LibraryWorkModel() { queue_->close(); }

QString LibraryWorkModel::title() const {
    return isRepair() ? tr("Repairing the library") : tr("Restoring the library");
}

void LibraryWorkModel::start() {
    if (isRepair() && !work_.isConfirmed)
        preview();
    else
        work();
}

void LibraryWorkModel::preview() {
    run(tr("Finding out what can be kept…"), [this](const WorkWatch& watch) {
        const auto text = repairText(previewRepair(library_, watch));
        return [this, text] {
            sentence_ = text;
            asks_ = true;
            emit changed();
        };
    });
}

void LibraryWorkModel::work() {
    const bool repairs = isRepair();
    run(repairs ? tr("Copying what can be read into a new library…")
                : tr("Checking and copying the backup…"),
        [this, repairs](const WorkWatch& watch) {
            const LibraryLock lock(library_, holder_);
            const auto alone = lockLibraryExclusively(library_);
            const auto outcome = repairs ? repaired(library_, clock_(), watch)
                                         : restored(library_, work_.backup, clock_(), watch);
            return [this, outcome] { finish(outcome); };
        });
}

void LibraryWorkModel::confirm() {
    if (!std::exchange(asks_, false)) return;
    work();
}

void LibraryWorkModel::cancel() {
    if (asks_) return finish(tr("The library was left as it was."));
    thread_.request_stop();
}

void LibraryWorkModel::finish(const QString& outcome) {
    outcome_ = outcome;
    emit finished();
}

/// The members that jobs read don't change while the thread runs.
void LibraryWorkModel::run(const QString& sentence, Job job) {
    sentence_ = sentence;
    share_ = 0;
    thread_ =
        std::jthread([this, queue = queue_, job = std::move(job)](const std::stop_token& stop) {
            const WorkWatch watch{.stop = stop, .progress = [this, queue](double share) {
                                      queue->send([this, share] {
                                          share_ = share;
                                          emit changed();
                                      });
                                  }};
            try {
                queue->send(job(watch));
            } catch (const std::exception& error) {
                const auto text = stop.stop_requested()
                                      ? tr("It was given up. The library is as it was.")
                                      : tr("The library is as it was: %1")
                                            .arg(titleText(error.what(), kExcerptCharacters));
                queue->send([this, text] { finish(text); });
            }
        });
    emit changed();
}

}  // namespace app
