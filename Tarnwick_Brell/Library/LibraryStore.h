#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <QObject>
#include <QString>

#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Library/KeptStore.h"

namespace app {

/// What the user keeps, for the window, on the main thread. It holds no copies: what is asked for
/// is read by the worker and handed to `then` on the main thread; writes and reads happen in the
/// order in which they were asked for, so that a reading shows the writes before it. `changed` is
/// emitted after each write, also by another program once `noteForeignChanges` tells of it: pages
/// read again then. When a write fails or is refused, `failed` has the sentence for the user and
/// nothing has changed.
class LibraryStore : public QObject {
    Q_OBJECT
public:
    LibraryStore(DeskWorker& worker, kit::Clock clock);
    ~LibraryStore() override;

    struct Counts {
        std::size_t clips = 0;
        std::size_t notes = 0;
        std::size_t projects = 0;

        bool operator==(const Counts&) const = default;
    };
    void count(std::function<void(Counts)> then);
    /// Rows of a list; 10,000 take some milliseconds of the worker's time.
    void list(KeptQuery query, std::function<void(std::vector<KeptRow>)> then);
    /// What can be restored, the last removed first.
    void listRemoved(std::function<void(std::vector<KeptRow>)> then);
    void search(KeptSearchQuery query, std::function<void(std::vector<SearchHit>)> then);
    void listTags(std::function<void(std::vector<std::string>)> then);
    void listVersions(std::string note, std::function<void(std::vector<kit::NoteVersion>)> then);

    struct ProjectPage {
        kit::Project project{};
        std::vector<kit::TimelineItem> timeline{};
    };
    void readProject(std::string id, std::function<void(std::optional<ProjectPage>)> then);

    /// A clip, note, project or saved story; nothing when there is none that can be read.
    template <class T>
    void read(std::string id, std::function<void(std::optional<T>)> then) {
        readWith<std::optional<T>>(
            [id = std::move(id)](KeptStore& kept, LocalStore&) { return kept.find<T>(id); },
            std::move(then));
    }
    /// The readable ones that the query selects, in the order of the list.
    template <class T>
    void readAll(KeptQuery query, std::function<void(std::vector<T>)> then) {
        readWith<std::vector<T>>(
            [query = std::move(query)](KeptStore& kept, LocalStore&) { return kept.all<T>(query); },
            std::move(then));
    }
    void readText(std::string story, std::function<void(std::optional<kit::SavedText>)> then);

    /// Adds a new one or replaces the one with that id; `then` gets it as it is kept.
    template <class T>
    void put(T value, std::function<void(T)> then = {}) {
        writeWith<T>(
            [value = std::move(value)](KeptStore& kept, LocalStore&) { return kept.put(value); },
            std::move(then));
    }
    /// Clips a passage of the story, under an id that the caller made; what stands around it comes
    /// from the text of its page, if that is stored.
    void clip(kit::Story story, std::string quote, std::string id,
              std::function<void(kit::Clip)> then);
    /// The text of a note while it is typed.
    void saveTyped(kit::Note note, std::function<void(kit::Note)> then = {});

    void remove(KeptKind kind, std::string id);
    void restore(KeptKind kind, std::string id);
    void setMember(std::string project, kit::MemberKind kind, std::string id, bool isIn);
    void setDone(std::string project, std::string memberKey, bool isDone);
    void moveMember(std::string project, std::string memberKey, std::size_t place);
    void moveProject(std::string id, std::size_t place);

    /// Another program has written the library, or a story was saved in this one.
    void noteForeignChanges() { emit changed(); }

signals:
    void changed();
    void failed(const QString& sentence);

private:
    template <class Result>
    void readWith(std::function<Result(KeptStore&, LocalStore&)> work,
                  std::function<void(Result)> then) {
        run<Result>(std::move(work), [then = std::move(then)](Result result) {
            if (then) then(std::move(result));
        });
    }

    template <class Result>
    void writeWith(std::function<Result(KeptStore&, LocalStore&)> work,
                   std::function<void(Result)> then) {
        run<Result>(std::move(work), [this, then = std::move(then)](Result result) {
            if (then) then(std::move(result));
            emit changed();
        });
    }

    template <class Result>
    void run(std::function<Result(KeptStore&, LocalStore&)> work,
             std::function<void(Result)> deliver) {
        worker_.post(
            [work = std::move(work), deliver = std::move(deliver), queue = queue_,
             now = clock_()](DeskWorker::WorkerContext& context) {
                KeptStore kept(context.store, now);
                queue->send([deliver, result = work(kept, context.store)] { deliver(result); });
            },
            [this, queue = queue_](const std::exception& error) {
                queue->send([this, text = QString::fromUtf8(error.what())] { emit failed(text); });
            });
    }

    void change(std::function<bool(KeptStore&)> work);

    DeskWorker& worker_;
    kit::Clock clock_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
