#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <QObject>
#include <QString>

#include "NewsroomKit/Newsrooms/Beat.h"
#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Newsrooms/OrderedRecords.h"

namespace app {

class LocalStore;

using NewsroomRecords = OrderedRecords<kit::NewsroomSpec>;
using BeatRecords = OrderedRecords<kit::Beat>;

/// The user's newsrooms and beats, on the main thread. A change applies at once and is written by
/// the worker. When that fails, `failed` is emitted and the library is read again.
class NewsroomStore : public QObject {
    Q_OBJECT
public:
    NewsroomStore(DeskWorker& worker, kit::Clock clock);
    ~NewsroomStore() override;

    /// Reads the library, also again after another program has written it. `then` is called
    /// when it has been read or cannot be.
    void load(std::function<void()> then = {});
    bool isLoaded() const { return isLoaded_; }

    const NewsroomRecords& newsrooms() const { return newsrooms_; }
    const BeatRecords& beats() const { return beats_; }

    /// Adds or replaces.
    void put(kit::NewsroomSpec spec);
    void put(kit::Beat beat);
    void removeNewsroom(const std::string& id);
    void restoreNewsroom(const std::string& id);
    void moveNewsroom(const std::string& id, std::size_t place);
    void removeBeat(const std::string& id);
    void restoreBeat(const std::string& id);
    void moveBeat(const std::string& id, std::size_t place);

    /// Takes a newsroom from a file, see importedNewsroom. Throws RecordError.
    kit::NewsroomSpec import(std::string_view file);

signals:
    void newsroomsChanged();
    void beatsChanged();
    void failed(const QString& sentence);

private:
    using Table = RecordTable& (LocalStore::*)();

    void write(Table table, const std::optional<RecordChange>& write);
    void changeNewsrooms(const std::optional<RecordChange>& write);
    void changeBeats(const std::optional<RecordChange>& write);
    void apply(NewsroomRecords newsrooms, BeatRecords beats);

    DeskWorker& worker_;
    kit::Clock clock_;
    NewsroomRecords newsrooms_;
    BeatRecords beats_;
    bool isLoaded_ = false;
    std::uint64_t changes_ = 0;  ///< counted, to detect readings that a change overtook
    std::shared_ptr<MainThreadQueue> queue_;
};

/// The newsroom of a file, ready to stand beside those of the records: with a name and an id that
/// none of them has. Throws RecordError as NewsroomFile::read does.
kit::NewsroomSpec importedNewsroom(std::string_view file, const NewsroomRecords& records);

}  // namespace app
