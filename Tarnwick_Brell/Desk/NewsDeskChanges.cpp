// What the user changes and looks for: marks, sources, the search.
#include <algorithm>
#include <utility>

#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Storage/Tables/SearchText.h"
#include "Tarnwick_Brell/Storage/Tables/StorySelection.h"

namespace app {

namespace asio = boost::asio;

using WorkerContext = DeskWorker::WorkerContext;

// Marks.

std::vector<std::int64_t> NewsDesk::numbersOf(const std::vector<std::string>& storyIDs) const {
    std::vector<std::int64_t> numbers;
    for (const auto& id : storyIDs) {
        if (const auto* story = wire_.find(id)) numbers.push_back(story->number());
    }
    return numbers;
}

std::vector<std::int64_t> NewsDesk::apply(const MarkChange& change) {
    return change.mark == Mark::read ? wire_.setRead(change.numbers, change.on)
                                     : wire_.setSaved(change.numbers, change.on);
}

/// The wire has it at once, the library soon; when that fails the wire goes back. Returns the
/// numbers of what changed.
std::vector<std::int64_t> NewsDesk::change(MarkChange asked, Undoable undoable) {
    asked.numbers = apply(asked);
    auto changed = asked.numbers;
    if (changed.empty()) return changed;
    emit marksChanged(changed);
    const auto ticket = ++lastMark_;
    const auto write = [this, ticket, asked, undoable, at = clock_()](WorkerContext& context) {
        const auto stamp = context.store.marks().set(
            asked.mark, asked.numbers, asked.on ? std::optional(at) : std::nullopt, undoable);
        backroom().noteOwnWrite(stamp);
        deliver([this, ticket] { pendingMarks_.erase(ticket); });
    };
    if (undoable == Undoable::yes) {
        lastChange_ = asked;
        setCanUndo(true);
    }
    pendingMarks_.emplace(ticket, std::move(asked));
    post(write, [this, ticket] { takeBack(ticket); });
    return changed;
}

/// What could not be written.
void NewsDesk::takeBack(std::uint64_t ticket) {
    auto pending = pendingMarks_.extract(ticket);
    pending.mapped().on = !pending.mapped().on;
    const auto changed = apply(pending.mapped());
    if (!changed.empty()) emit marksChanged(changed);
}

void NewsDesk::setRead(const std::vector<std::string>& storyIDs, bool read, Undoable undoable) {
    change({.mark = Mark::read, .on = read, .numbers = numbersOf(storyIDs)}, undoable);
}

void NewsDesk::setSaved(const std::vector<std::string>& storyIDs, bool saved) {
    change({.mark = Mark::saved, .on = saved, .numbers = numbersOf(storyIDs)}, Undoable::yes);
}

std::size_t NewsDesk::markAllRead(const std::vector<std::int64_t>& numbers) {
    return change({.mark = Mark::read, .on = true, .numbers = numbers}, Undoable::yes).size();
}

void NewsDesk::setCanUndo(bool canUndo) {
    if (!canUndo) lastChange_.reset();
    if (canUndo == canUndo_) return;
    canUndo_ = canUndo;
    emit undoChanged();
}

/// The last change that this desk knows is taken back at once. The library may know a later
/// one of another program: then that one is taken back instead.
bool NewsDesk::undoMarks() {
    if (!canUndo_) return false;
    auto back = lastChange_.value_or(MarkChange());
    setCanUndo(false);
    back.on = !back.on;
    back.numbers = apply(back);
    std::sort(back.numbers.begin(), back.numbers.end());
    if (!back.numbers.empty()) emit marksChanged(back.numbers);
    const auto ticket = ++lastMark_;
    const auto undo = [this, ticket, back](WorkerContext& context) {
        const auto undone = context.store.marks().undoLastChange();
        if (undone) backroom().noteOwnWrite(undone->stamp);
        const bool isSame = undone && undone->mark == back.mark && undone->on == back.on &&
                            undone->numbers == back.numbers;
        if (isSame) return deliver([this, ticket] { pendingMarks_.erase(ticket); });
        deliver([this, ticket, undone] {
            takeBack(ticket);
            if (!undone) return;
            emit marksChanged(
                apply({.mark = undone->mark, .on = undone->on, .numbers = undone->numbers}));
        });
    };
    pendingMarks_.emplace(ticket, std::move(back));
    post(undo, [this, ticket] { takeBack(ticket); });
    return true;
}

// Sources.

void NewsDesk::changeRoster(std::function<void(WorkerContext&, SourceRegistry&)> change,
                            DeskWorker::Failed failed) {
    const auto job = [this, change = std::move(change)](WorkerContext& context) {
        try {
            change(context, backroom().roster());
        } catch (const std::exception&) {
            backroom().roster().reload();
            throw;
        }
        deliverStep(backroom().rosterChanged());
    };
    worker_.post(job, std::move(failed));
}

void NewsDesk::setEnabled(const std::string& sourceID, bool enabled) {
    changeRoster(
        [=](WorkerContext&, SourceRegistry& roster) { roster.setEnabled(sourceID, enabled); },
        failure());
}

void NewsDesk::renameSource(const std::string& id, const std::string& name) {
    changeRoster([=](WorkerContext&, SourceRegistry& roster) { roster.rename(id, name); },
                 failure());
}

void NewsDesk::removeSource(const std::string& id) {
    changeRoster([=, this](WorkerContext&, SourceRegistry& roster) { roster.remove(id, clock_()); },
                 failure());
}

void NewsDesk::importOutlines(kit::Outlines outlines, Imported done) {
    const auto import = [this, outlines = std::move(outlines), done](WorkerContext& context,
                                                                     SourceRegistry& roster) {
        auto added = applyImport(previewImport(outlines, roster), context.store, roster);
        deliver([done, added = std::move(added)] { done(added); });
    };
    changeRoster(import, failure([done] { done({}); }));
}

void NewsDesk::checkAddress(std::string typed, AddressChecked done) {
    const auto check =
        [this, typed = std::move(typed), done,
         retention = defaults_.storyRetention()](WorkerContext& context) -> asio::awaitable<void> {
        SourceAdder adding(context.store, backroom().roster(), context.engine, clock_,
                           std::chrono::duration<double>(retention));
        auto checked = co_await adding.check(typed);
        deliver([done, checked = std::move(checked)] { done(checked); });
    };
    worker_.spawn(check, answering(done));
}

void NewsDesk::addSource(std::string typed, SourceAdded done) {
    const auto add = [this, typed = std::move(typed), done, retention = defaults_.storyRetention()](
                         WorkerContext& context) -> asio::awaitable<void> {
        SourceAdder adding(context.store, backroom().roster(), context.engine, clock_,
                           std::chrono::duration<double>(retention));
        auto added = co_await adding.add(typed);
        deliverStep(backroom().rosterChanged());
        deliver([done, added = std::move(added)] { done(added); });
    };
    const auto failed = [this, answer = answering(std::move(done))](const std::exception& error) {
        if (backroom_) backroom_->roster().reload();
        answer(error);
    };
    worker_.spawn(add, failed);
}

/// Whoever asked gets the sentence as the answer.
template <class Done>
DeskWorker::Failed NewsDesk::answering(Done done) {
    return [this, done = std::move(done)](const std::exception& error) {
        AddSourceError answer{.kind = AddSourceError::Kind::fetchFailed, .detail = error.what()};
        deliver([done, answer = std::move(answer)] { done(answer); });
    };
}

// Search.

void NewsDesk::search(const std::string& typed, std::size_t limit, Found done) {
    const auto turn = ++lastSearch_;
    newestSearch_ = turn;
    post([this, turn, typed, limit, done = std::move(done)](WorkerContext& context) {
        // Someone has typed on: the answer would come too late.
        if (newestSearch_ != turn || context.isClosing) return;
        const StorySelection selection{
            .search = SearchText::parse(typed, SearchText::LastWord::stillTyped)};
        std::vector<std::int64_t> found;
        if (!selection.search.isEmpty() && limit > 0) {
            context.store.search().each(selection, [&](const StoredStory& stored) {
                found.push_back(stored.number);
                return found.size() < limit;
            });
        }
        deliver([this, turn, done, found = std::move(found)] {
            if (turn == lastSearch_) done(found);
        });
    });
}

}  // namespace app
