#include "Tarnwick_Brell/Desk/MarksController.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <ranges>
#include <utility>

#include "Tarnwick_Brell/Desk/DeskJobs.h"
#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Desk/Wire.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

using WorkerContext = DeskWorker::WorkerContext;

namespace {

/// As many as the window can undo one after the other.
constexpr std::size_t kMostOwn = 200;

}  // namespace

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
    PendingChange pending{.change = std::move(asked)};
    if (reversesLastOwn(pending.change)) {
        // Not a change that the library should offer to undo in turn.
        own_.pop_back();
        undoable = Undoable::no;
        pending.undo = UndoState();
    } else if (undoable == Undoable::yes) {
        own_.push_back(pending.change);
        if (own_.size() > kMostOwn) own_.pop_front();
        pending.undo = UndoState{.isPossible = true, .change = pending.change};
    }
    write(std::move(pending), undoable);
    return changed;
}

bool MarksController::reversesLastOwn(const MarkChange& change) const {
    if (own_.empty()) return false;
    const auto& last = own_.back();
    if (last.mark != change.mark || last.on == change.on) return false;
    const auto sorted = [](auto numbers) {
        std::ranges::sort(numbers);
        return numbers;
    };
    return last.numbers.size() == change.numbers.size() &&
           sorted(last.numbers) == sorted(change.numbers);
}

void MarksController::write(PendingChange pending, Undoable undoable) {
    const auto id = ++lastID_;
    const auto job = [this, id, undoable, change = pending.change,
                      at = clock_()](WorkerContext& context) {
        const auto marked = context.store.marks().set(
            change.mark, change.numbers, change.on ? std::optional(at) : std::nullopt, undoable);
        jobs_.updates().recordOwnWrite(marked.stamp);
        jobs_.deliver([this, id, marked] { finish(id, marked); });
    };
    pending_.emplace(id, std::move(pending));
    updateCanUndo();
    jobs_.post(job, [this, id] { rollBack(id); });
}

void MarksController::finish(std::uint64_t id, const MarkedNumbers& marked) {
    auto done = std::move(pending_.extract(id).mapped());
    const auto isAbsent = [&](std::int64_t number) {
        return std::ranges::binary_search(marked.absent, number);
    };
    if (done.undo && marked.changed > 0) {
        if (done.undo->change) std::erase_if(done.undo->change->numbers, isAbsent);
        written_ = std::move(*done.undo);
    }
    updateCanUndo();
    std::erase_if(done.change.numbers, std::not_fn(isAbsent));
    if (done.change.numbers.empty()) return;
    emit failed(done.change.numbers.size() == 1
                    ? QStringLiteral("The story is no longer in the library.")
                    : QStringLiteral("Some of the stories are no longer in the library."));
    revert(std::move(done.change));
}

void MarksController::rollBack(std::uint64_t id) {
    auto failed = std::move(pending_.extract(id).mapped());
    revert(std::move(failed.change));
    updateCanUndo();
}

/// Reverts a change that is no longer pending. Where a later one has already done that, the wire
/// stays, and the later change has nothing left to revert.
void MarksController::revert(MarkChange change) {
    std::ranges::sort(change.numbers);
    for (auto& [id, pending] : pending_) {
        auto& later = pending.change;
        if (later.mark != change.mark || later.on == change.on) continue;
        std::vector<std::int64_t> reverted;
        std::ranges::sort(later.numbers);
        std::ranges::set_intersection(change.numbers, later.numbers, std::back_inserter(reverted));
        const auto isReverted = [&](std::int64_t number) {
            return std::ranges::binary_search(reverted, number);
        };
        std::erase_if(later.numbers, isReverted);
        std::erase_if(change.numbers, isReverted);
    }
    change.on = !change.on;
    const auto changed = apply(change);
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
    if (!pending_.empty()) return;
    written_.isPossible = canUndo;
    if (!canUndo) written_.change.reset();
    updateCanUndo();
}

void MarksController::reapplyPending() {
    for (const auto& [id, pending] : pending_) apply(pending.change);
}

const MarksController::UndoState& MarksController::undoState() const {
    for (const auto& [id, pending] : std::views::reverse(pending_)) {
        if (pending.undo) return *pending.undo;
    }
    return written_;
}

void MarksController::updateCanUndo() {
    const bool canUndo = undoState().isPossible;
    if (canUndo == canUndo_) return;
    canUndo_ = canUndo;
    emit undoChanged();
}

/// Undoes the last change that this desk knows at once. When the library knows a later one, of
/// another program, that one is undone instead.
bool MarksController::undo() {
    if (!canUndo_) return false;
    auto back = undoState().change.value_or(MarkChange());
    back.on = !back.on;
    if (reversesLastOwn(back)) own_.pop_back();
    back.numbers = apply(back);
    std::ranges::sort(back.numbers);
    if (!back.numbers.empty()) emit marksChanged(back.numbers);
    const auto id = ++lastID_;
    const auto job = [this, id, at = clock_()](WorkerContext& context) {
        const auto undone = context.store.marks().undoLastChange(at);
        if (undone) jobs_.updates().recordOwnWrite(undone->stamp);
        jobs_.deliver([this, id, undone] { applyUndone(id, undone); });
    };
    pending_.emplace(id, PendingChange{.change = std::move(back), .undo = UndoState()});
    updateCanUndo();
    jobs_.post(job, [this, id] { rollBack(id); });
    return true;
}

void MarksController::applyUndone(std::uint64_t id, const std::optional<UndoneChange>& undone) {
    written_ = {};
    auto& back = pending_.at(id).change;
    const bool isSame = undone && undone->mark == back.mark && undone->on == back.on &&
                        undone->numbers == back.numbers;
    if (isSame) {
        pending_.erase(id);
    } else {
        rollBack(id);
    }
    updateCanUndo();
    if (!undone) return;
    if (!isSame) {
        emit marksChanged(
            apply({.mark = undone->mark, .on = undone->on, .numbers = undone->numbers}));
    }
    if (undone->on && undone->pendingCount > 0) {
        emit failed(
            QStringLiteral("Stories that are no longer in the library get their marks back "
                           "if they return."));
    }
}

}  // namespace app
