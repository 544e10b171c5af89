#include "Tarnwick_Brell/Desk/SourceController.h"

#include <chrono>
#include <utility>

#include "NewsroomKit/Outlines/Outlines.h"
#include "Tarnwick_Brell/Desk/DeskJobs.h"
#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Desk/SourceImport.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace asio = boost::asio;

using WorkerContext = DeskWorker::WorkerContext;

namespace {

template <class Value>
const Value& valueOf(const std::map<std::string, Value>& values, const std::string& id) {
    static const Value none;
    const auto entry = values.find(id);
    return entry == values.end() ? none : entry->second;
}

}  // namespace

const SourceStatus& SourceController::status(const std::string& sourceID) const {
    return valueOf(states_.statuses, sourceID);
}

const SourceHealth& SourceController::health(const std::string& sourceID) const {
    return valueOf(states_.healths, sourceID);
}

bool SourceController::apply(DeskUpdate& update) {
    if (update.sourceList) list_ = std::move(*update.sourceList);
    if (update.sourceStates) states_ = std::move(*update.sourceStates);
    return update.sourceList || update.sourceStates;
}

void SourceController::changeRegistry(Change change, DeskWorker::Failed failed) {
    const auto job = [this, change = std::move(change)](WorkerContext& context) {
        auto& updates = jobs_.updates();
        try {
            change(context, updates.registry());
        } catch (const std::exception&) {
            updates.registry().reload();
            throw;
        }
        jobs_.deliver(updates.sourceList());
    };
    jobs_.worker().post(job, std::move(failed));
}

void SourceController::setEnabled(const std::string& sourceID, bool enabled) {
    changeRegistry(
        [=](WorkerContext&, SourceRegistry& registry) { registry.setEnabled(sourceID, enabled); },
        jobs_.reportFailure());
}

void SourceController::rename(const std::string& id, const std::string& name) {
    changeRegistry([=](WorkerContext&, SourceRegistry& registry) { registry.rename(id, name); },
                   jobs_.reportFailure());
}

void SourceController::remove(const std::string& id) {
    changeRegistry(
        [=, this](WorkerContext&, SourceRegistry& registry) { registry.remove(id, clock_()); },
        jobs_.reportFailure());
}

void SourceController::import(kit::Outlines outlines, Imported done) {
    const auto import = [this, outlines = std::move(outlines), done](WorkerContext& context,
                                                                     SourceRegistry& registry) {
        auto added = applyImport(previewImport(outlines, registry), context.store, registry);
        jobs_.deliver([done, added = std::move(added)] { done(added); });
    };
    changeRegistry(import, jobs_.reportFailure([done] { done({}); }));
}

void SourceController::check(std::string typed, Checked done) {
    const auto check =
        [this, typed = std::move(typed), done,
         retention = defaults_.storyRetention()](WorkerContext& context) -> asio::awaitable<void> {
        SourceAdder adder(context.store, jobs_.updates().registry(), context.stack, clock_,
                          std::chrono::duration<double>(retention));
        auto checked = co_await adder.check(typed);
        jobs_.deliver([done, checked = std::move(checked)] { done(checked); });
    };
    jobs_.worker().spawn(check, answerFailure(done));
}

void SourceController::add(std::string typed, Added done) {
    const auto add = [this, typed = std::move(typed), done, retention = defaults_.storyRetention()](
                         WorkerContext& context) -> asio::awaitable<void> {
        auto& updates = jobs_.updates();
        SourceAdder adder(context.store, updates.registry(), context.stack, clock_,
                          std::chrono::duration<double>(retention));
        auto added = co_await adder.add(typed);
        jobs_.deliver(updates.sourceList());
        jobs_.deliver([done, added = std::move(added)] { done(added); });
    };
    const auto failed = [this,
                         answer = answerFailure(std::move(done))](const std::exception& error) {
        if (jobs_.hasUpdates()) jobs_.updates().registry().reload();
        answer(error);
    };
    jobs_.worker().spawn(add, failed);
}

/// The caller gets the failure's sentence as the answer.
template <class Done>
DeskWorker::Failed SourceController::answerFailure(Done done) {
    return [this, done = std::move(done)](const std::exception& error) {
        AddSourceError answer{.kind = AddSourceError::Kind::fetchFailed, .detail = error.what()};
        jobs_.deliver([done, answer = std::move(answer)] { done(answer); });
    };
}

}  // namespace app
