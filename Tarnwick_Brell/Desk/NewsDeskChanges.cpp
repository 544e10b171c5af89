// What the user changes and looks for: marks, sources, the search.
#include <set>
#include <utility>

#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Storage/SearchText.h"
#include "Tarnwick_Brell/Storage/StorySelection.h"

namespace desk {

namespace asio = boost::asio;

using Bench = DeskWorker::Bench;

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
std::vector<std::int64_t> NewsDesk::change(MarkChange asked) {
    asked.numbers = apply(asked);
    auto changed = asked.numbers;
    if (changed.empty()) return changed;
    emit marksChanged(changed);
    const auto ticket = ++lastMark_;
    const auto write = [this, ticket, asked, at = clock_()](Bench& bench) {
        const auto stamp = bench.store.marks().set(asked.mark, asked.numbers,
                                                   asked.on ? std::optional(at) : std::nullopt);
        backroom().noteOwnWrite(stamp);
        deliver([this, ticket] { pendingMarks_.erase(ticket); });
    };
    pendingMarks_.emplace(ticket, std::move(asked));
    post(write, [this, ticket] {
        auto pending = pendingMarks_.extract(ticket);
        pending.mapped().on = !pending.mapped().on;
        emit marksChanged(apply(pending.mapped()));
    });
    return changed;
}

void NewsDesk::setRead(const std::vector<std::string>& storyIDs, bool read) {
    const auto numbers = numbersOf(storyIDs);
    const std::set<std::int64_t> byHand(numbers.begin(), numbers.end());
    std::erase_if(lastReadBatch_, [&](auto number) { return byHand.contains(number); });
    change({.mark = Mark::read, .on = read, .numbers = numbers});
}

void NewsDesk::setSaved(const std::vector<std::string>& storyIDs, bool saved) {
    change({.mark = Mark::saved, .on = saved, .numbers = numbersOf(storyIDs)});
}

std::size_t NewsDesk::markAllRead(const std::vector<std::int64_t>& numbers) {
    auto changed = change({.mark = Mark::read, .on = true, .numbers = numbers});
    if (changed.empty()) return 0;
    lastReadBatch_ = std::move(changed);
    return lastReadBatch_.size();
}

std::size_t NewsDesk::undoMarkAllRead() {
    const auto batch = std::exchange(lastReadBatch_, {});
    change({.mark = Mark::read, .on = false, .numbers = batch});
    return batch.size();
}

// Sources.

void NewsDesk::changeRoster(std::function<void(Bench&, SourceRoster&)> change,
                            DeskWorker::Failed failed) {
    const auto job = [this, change = std::move(change)](Bench& bench) {
        try {
            change(bench, backroom().roster());
        } catch (const std::exception&) {
            backroom().roster().reload();
            throw;
        }
        deliverStep(backroom().rosterChanged());
    };
    worker_.post(job, std::move(failed));
}

void NewsDesk::setEnabled(const std::string& sourceID, bool enabled) {
    changeRoster([=](Bench&, SourceRoster& roster) { roster.setEnabled(sourceID, enabled); },
                 failure());
}

void NewsDesk::renameSource(const std::string& id, const std::string& name) {
    changeRoster([=](Bench&, SourceRoster& roster) { roster.rename(id, name); }, failure());
}

void NewsDesk::removeSource(const std::string& id) {
    changeRoster([=, this](Bench&, SourceRoster& roster) { roster.remove(id, clock_()); },
                 failure());
}

void NewsDesk::importOutlines(newsroom::Outlines outlines, Imported done) {
    const auto import = [this, outlines = std::move(outlines), done](Bench& bench,
                                                                     SourceRoster& roster) {
        auto added = applyImport(previewImport(outlines, roster), bench.store, roster);
        deliver([done, added = std::move(added)] { done(added); });
    };
    changeRoster(import, failure([done] { done({}); }));
}

void NewsDesk::checkAddress(std::string typed, AddressChecked done) {
    const auto check = [this, typed = std::move(typed), done,
                        retention =
                            defaults_.storyRetention()](Bench& bench) -> asio::awaitable<void> {
        SourceAdding adding(bench.store, backroom().roster(), bench.engine, clock_,
                            std::chrono::duration<double>(retention));
        auto checked = co_await adding.check(typed);
        deliver([done, checked = std::move(checked)] { done(checked); });
    };
    worker_.spawn(check, answering(done));
}

void NewsDesk::addSource(std::string typed, SourceAdded done) {
    const auto add = [this, typed = std::move(typed), done, retention = defaults_.storyRetention()](
                         Bench& bench) -> asio::awaitable<void> {
        SourceAdding adding(bench.store, backroom().roster(), bench.engine, clock_,
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
    post([this, turn, typed, limit, done = std::move(done)](Bench& bench) {
        // Someone has typed on: the answer would come too late.
        if (newestSearch_ != turn || bench.isClosing) return;
        const StorySelection selection{
            .search = SearchText::parse(typed, SearchText::LastWord::stillTyped)};
        std::vector<std::int64_t> found;
        if (!selection.search.isEmpty() && limit > 0) {
            bench.store.search().each(selection, [&](const StoredStory& stored) {
                found.push_back(stored.number);
                return found.size() < limit;
            });
        }
        deliver([this, turn, done, found = std::move(found)] {
            if (turn == lastSearch_) done(found);
        });
    });
}

}  // namespace desk
