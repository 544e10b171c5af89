#include "Tarnwick_Brell/Desk/MarksController.h"

#include <algorithm>
#include <utility>

#include "Tarnwick_Brell/Desk/DeskJobs.h"
#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Desk/Wire.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

using WorkerContext = DeskWorker::WorkerContext;

MarksController::MarksController(Wire& wire, DeskJobs& jobs, kit::Clock clock)
    : wire_(wire), jobs_(jobs), clock_(std::move(clock)) {}

std::vector<std::int64_t> MarksController::numbersOf(
    const std::vector<std::string>& storyIDs) const {
    std::vector<std::int64_t> numbers;
    for (const auto& id : storyIDs) {
        if (const auto* story = wire_.find(id)) numbers.push_back(story->number());
    }
    return numbers;
}

std::vector<std::int64_t> MarksController::apply(const MarkChange& change) {
    return change.mark == Mark::read ? wire_.setRead(change.numbers, change.on)
                                     : wire_.setSaved(change.numbers, change.on);
}

/// Returns the numbers of the stories that changed.
std::vector<std::int64_t> MarksController::change(MarkChange asked, Undoable undoable) {
    asked.numbers = apply(asked);
    auto changed = asked.numbers;
    if (changed.empty()) return changed;
    emit marksChanged(changed);
    const auto id = ++lastID_;
    const auto write = [this, id, asked, undoable, at = clock_()](WorkerContext& context) {
        const auto stamp = context.store.marks().set(
            asked.mark, asked.numbers, asked.on ? std::optional(at) : std::nullopt, undoable);
        jobs_.updates().recordOwnWrite(stamp);
        jobs_.deliver([this, id] { pending_.erase(id); });
    };
    if (undoable == Undoable::yes) {
        lastChange_ = asked;
        setCanUndo(true);
    }
    pending_.emplace(id, std::move(asked));
    jobs_.post(write, [this, id] { rollBack(id); });
    return changed;
}

void MarksController::rollBack(std::uint64_t id) {
    auto pending = pending_.extract(id);
    pending.mapped().on = !pending.mapped().on;
    const auto changed = apply(pending.mapped());
    if (!changed.empty()) emit marksChanged(changed);
}

void MarksController::setRead(const std::vector<std::string>& storyIDs, bool read,
                              Undoable undoable) {
    change({.mark = Mark::read, .on = read, .numbers = numbersOf(storyIDs)}, undoable);
}

void MarksController::setSaved(const std::vector<std::string>& storyIDs, bool saved) {
    change({.mark = Mark::saved, .on = saved, .numbers = numbersOf(storyIDs)}, Undoable::yes);
}

std::size_t MarksController::markAllRead(const std::vector<std::int64_t>& numbers) {
    return change({.mark = Mark::read, .on = true, .numbers = numbers}, Undoable::yes).size();
}

void MarksController::applyCanUndo(bool canUndo) {
    if (pending_.empty()) setCanUndo(canUndo);
}

void MarksController::reapplyPending() {
    for (const auto& [id, change] : pending_) apply(change);
}

void MarksController::setCanUndo(bool canUndo) {
    if (!canUndo) lastChange_.reset();
    if (canUndo == canUndo_) return;
    canUndo_ = canUndo;
    emit undoChanged();
}

/// Undoes the last change that this desk knows at once. When the library knows a later one, of
/// another program, that one is undone instead.
bool MarksController::undo() {
    if (!canUndo_) return false;
    auto back = lastChange_.value_or(MarkChange());
    setCanUndo(false);
    back.on = !back.on;
    back.numbers = apply(back);
    std::sort(back.numbers.begin(), back.numbers.end());
    if (!back.numbers.empty()) emit marksChanged(back.numbers);
    const auto id = ++lastID_;
    const auto undo = [this, id, back](WorkerContext& context) {
        const auto undone = context.store.marks().undoLastChange();
        if (undone) jobs_.updates().recordOwnWrite(undone->stamp);
        const bool isSame = undone && undone->mark == back.mark && undone->on == back.on &&
                            undone->numbers == back.numbers;
        if (isSame) return jobs_.deliver([this, id] { pending_.erase(id); });
        jobs_.deliver([this, id, undone] {
            rollBack(id);
            if (!undone) return;
            emit marksChanged(
                apply({.mark = undone->mark, .on = undone->on, .numbers = undone->numbers}));
        });
    };
    pending_.emplace(id, std::move(back));
    jobs_.post(undo, [this, id] { rollBack(id); });
    return true;
}

}  // namespace app
