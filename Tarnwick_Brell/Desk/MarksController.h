#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Tables/MarkTable.h"

namespace app {

class DeskJobs;
class Wire;

/// Changes the read and saved marks. The wire has a change at once and the library soon; a
/// change that cannot be written is rolled back, and so is its undo.
class MarksController : public QObject {
    Q_OBJECT
public:
    MarksController(Wire& wire, DeskJobs& jobs, kit::Clock clock);

    void setRead(const std::vector<std::string>& storyIDs, bool read, Undoable undoable);
    void setSaved(const std::vector<std::string>& storyIDs, bool saved);
    /// Returns how many of these stories were unread.
    std::size_t markAllRead(const std::vector<std::int64_t>& numbers);

    /// False when there is nothing to undo.
    bool undo();
    bool canUndo() const { return canUndo_; }

    /// Applies what an update says about the undo, unless a change is still being written: the
    /// update was made without it.
    void applyCanUndo(bool canUndo);
    /// Applies the changes that are still being written to stories of an update, which was made
    /// without them.
    void reapplyPending();

signals:
    void marksChanged(const std::vector<std::int64_t>& numbers);
    void undoChanged();
    /// Another program has dropped stories whose marks were to change.
    void failed(const QString& sentence);

private:
    struct MarkChange {
        Mark mark = Mark::read;
        bool on = false;
        std::vector<std::int64_t> numbers{};
    };
    struct UndoState {
        bool isPossible = false;
        std::optional<MarkChange> change{};  ///< when this desk made it
    };
    struct PendingChange {
        MarkChange change{};
        std::optional<UndoState> undo{};  ///< after the change; absent when it leaves it
    };

    std::vector<std::int64_t> numbersOf(const std::vector<std::string>& storyIDs) const;
    std::vector<std::int64_t> apply(const MarkChange& change);
    std::vector<std::int64_t> change(MarkChange asked, Undoable undoable);
    void write(PendingChange pending, Undoable undoable);
    void finish(std::uint64_t id, const MarkedNumbers& marked);
    void rollBack(std::uint64_t id);
    void revert(MarkChange change);
    void applyUndone(std::uint64_t id, const std::optional<UndoneChange>& undone);
    bool reversesLastOwn(const MarkChange& change) const;
    const UndoState& undoState() const;
    void updateCanUndo();

    Wire& wire_;
    DeskJobs& jobs_;
    kit::Clock clock_;
    UndoState written_;  ///< the library's
    bool canUndo_ = false;
    /// The user's changes that have not been undone, the last one at the end.
    std::deque<MarkChange> own_;
    std::map<std::uint64_t, PendingChange> pending_;  ///< not yet in the library, oldest first
    std::uint64_t lastID_ = 0;
};

}  // namespace app
