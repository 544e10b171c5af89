#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

#include <utility>

#include "NewsroomKit/Newsrooms/NewsroomFile.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

using WorkerContext = DeskWorker::WorkerContext;

NewsroomStore::NewsroomStore(DeskWorker& worker, kit::Clock clock)
    : worker_(worker), clock_(std::move(clock)), queue_(std::make_shared<MainThreadQueue>()) {}

// Jobs in flight continue; their results are dropped.
NewsroomStore::~NewsroomStore() { queue_->close(); }

void NewsroomStore::load(std::function<void()> then) {
    const auto read = [this, queue = queue_, changesThen = changes_, then](WorkerContext& context) {
        auto newsrooms = NewsroomRecords::read(context.store.newsrooms());
        auto beats = BeatRecords::read(context.store.beats());
        queue->send(
            [this, changesThen, newsrooms = std::move(newsrooms), beats = std::move(beats), then] {
                // The user's changes since then are newer than this reading.
                if (changesThen != changes_) return load(then);
                apply(newsrooms, beats);
                if (then) then();
            });
    };
    worker_.post(read, [this, queue = queue_, then](const std::exception& error) {
        queue->send([this, text = QString::fromUtf8(error.what()), then] {
            emit failed(text);
            if (then) then();
        });
    });
}

void NewsroomStore::apply(NewsroomRecords newsrooms, BeatRecords beats) {
    const bool isFirst = !std::exchange(isLoaded_, true);
    if (isFirst || newsrooms != newsrooms_) {
        newsrooms_ = std::move(newsrooms);
        emit newsroomsChanged();
    }
    if (isFirst || beats != beats_) {
        beats_ = std::move(beats);
        emit beatsChanged();
    }
}

void NewsroomStore::write(Table table, const std::optional<RecordChange>& write) {
    if (!write) return;
    ++changes_;
    const auto job = [write = *write, table, at = clock_()](WorkerContext& context) {
        auto transaction = context.store.transaction();
        write.applyTo((context.store.*table)(), at);
        transaction.commit();
    };
    worker_.post(job, [this, queue = queue_](const std::exception& error) {
        queue->send([this, text = QString::fromUtf8(error.what())] {
            emit failed(text);
            load();
        });
    });
}

void NewsroomStore::changeNewsrooms(const std::optional<RecordChange>& change) {
    write(&LocalStore::newsrooms, change);
    if (change) emit newsroomsChanged();
}

void NewsroomStore::changeBeats(const std::optional<RecordChange>& change) {
    write(&LocalStore::beats, change);
    if (change) emit beatsChanged();
}

void NewsroomStore::put(kit::NewsroomSpec spec) {
    changeNewsrooms(newsrooms_.put(std::move(spec)));
}

void NewsroomStore::put(kit::Beat beat) { changeBeats(beats_.put(std::move(beat))); }

void NewsroomStore::removeNewsroom(const std::string& id) {
    changeNewsrooms(newsrooms_.remove(id));
}

void NewsroomStore::restoreNewsroom(const std::string& id) {
    changeNewsrooms(newsrooms_.restore(id));
}

void NewsroomStore::moveNewsroom(const std::string& id, std::size_t place) {
    changeNewsrooms(newsrooms_.move(id, place));
}

void NewsroomStore::removeBeat(const std::string& id) { changeBeats(beats_.remove(id)); }

void NewsroomStore::restoreBeat(const std::string& id) { changeBeats(beats_.restore(id)); }

void NewsroomStore::moveBeat(const std::string& id, std::size_t place) {
    changeBeats(beats_.move(id, place));
}

kit::NewsroomSpec NewsroomStore::import(std::string_view file) {
    auto spec = importedNewsroom(file, newsrooms_);
    put(spec);
    return spec;
}

kit::NewsroomSpec importedNewsroom(std::string_view file, const NewsroomRecords& records) {
    auto spec = kit::NewsroomFile::read(file);
    const auto isTaken = [&](const std::vector<NewsroomRecords::Entry>& entries) {
        const auto id = spec.id.text();
        return std::any_of(entries.begin(), entries.end(),
                           [&](const auto& entry) { return entry.id == id; });
    };
    if (isTaken(records.entries()) || isTaken(records.removed())) spec.id = kit::UUID::random();
    spec.name = records.freeName(std::string(kit::trimWhitespaceAndNewlines(spec.name)));
    return spec;
}

}  // namespace app
