#include "Tarnwick_Brell/Desk/SourceController.h"

#include <chrono>
#include <utility>

#include "NewsroomKit/Outlines/Outlines.h"
#include "Tarnwick_Brell/Desk/DeskJobs.h"
#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
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

void SourceController::setOptions(const std::string& sourceID, const SourceOptions& options) {
    changeRegistry(
        [=](WorkerContext&, SourceRegistry& registry) { registry.setOptions(sourceID, options); },
        jobs_.reportFailure());
}

void SourceController::readTries(const std::string& sourceID, TriesRead done) {
    const auto read = [this, sourceID, done = std::move(done)](WorkerContext& context) {
        auto tries = context.store.sources().tries(sourceID);
        jobs_.deliver([done, tries = std::move(tries)] { done(tries); });
    };
    jobs_.worker().post(read, jobs_.reportFailure());
}

void SourceController::countTries(TriesCounted done) {
    const auto count = [this, done = std::move(done)](WorkerContext& context) {
        auto counts = context.store.sources().tryCounts(clock_() - kTriesKept);
        jobs_.deliver([done, counts = std::move(counts)] { done(counts); });
    };
    jobs_.worker().post(count, jobs_.reportFailure());
}

void SourceController::readPauses(PausesRead done) {
    const auto read = [this, done = std::move(done)](WorkerContext& context) {
        auto pauses = context.store.hostPauses().load(clock_());
        jobs_.deliver([done, pauses = std::move(pauses)] { done(pauses); });
    };
    jobs_.worker().post(read, jobs_.reportFailure());
}

void SourceController::rename(const std::string& id, const std::string& name) {
    changeRegistry([=](WorkerContext&, SourceRegistry& registry) { registry.rename(id, name); },
                   jobs_.reportFailure());
}

void SourceController::remove(std::vector<std::string> ids) {
    changeRegistry(
        [ids = std::move(ids), this](WorkerContext& context, SourceRegistry& registry) {
            auto transaction = context.store.transaction();
            registry.remove(ids, clock_());
            transaction.commit();
        },
        jobs_.reportFailure());
}

void SourceController::readList(std::filesystem::path file, ListRead done) {
    const auto read = [this, file = std::move(file), done](WorkerContext&) {
        std::variant<ImportPreview, std::string> answer;
        auto list = readOutlineFile(file);
        if (auto* sentence = std::get_if<std::string>(&list)) {
            answer = std::move(*sentence);
        } else {
            answer =
                previewImport(std::get<kit::Outlines>(std::move(list)), jobs_.updates().registry());
        }
        jobs_.deliver([done, answer = std::move(answer)] { done(answer); });
    };
    jobs_.worker().post(read, [this, done](const std::exception& error) {
        jobs_.deliver([done, sentence = std::string(error.what())] { done(sentence); });
    });
}

void SourceController::import(kit::Outlines outlines, ImportWatch watch, Imported done) {
    const auto import = [this, outlines = std::move(outlines), watch = std::move(watch),
                         done](WorkerContext& context) {
        const auto goesOn = [&](std::size_t count) {
            if (watch.progress) {
                jobs_.deliver([progress = watch.progress, count] { progress(count); });
            }
            return !watch.stop.stop_requested();
        };
        auto& updates = jobs_.updates();
        auto& registry = updates.registry();
        std::vector<kit::NewsSource> added;
        try {
            added = applyImport(previewImport(outlines, registry), context.store, registry, goesOn);
        } catch (const std::exception&) {
            registry.reload();
            throw;
        }
        // The list first: whoever hears of new sources may ask for them.
        jobs_.deliver(updates.sourceList());
        jobs_.deliver([done, added = std::move(added)] { done(added); });
    };
    jobs_.worker().post(import, jobs_.reportFailure([done] { done({}); }));
}

DeskWorker::JobID SourceController::check(std::string typed, kit::FetchWatch watch, Checked done) {
    const auto check =
        [this, typed = std::move(typed), watch = std::move(watch), done,
         retention = defaults_.storyRetention()](WorkerContext& context) -> asio::awaitable<void> {
        SourceAdder adder(context.store, jobs_.updates().registry(), context.stack, clock_,
                          std::chrono::duration<double>(retention));
        auto checked = co_await adder.check(typed, [&](const kit::FetchAttempt& attempt) {
            if (watch) jobs_.deliver([watch, attempt] { watch(attempt); });
        });
        jobs_.deliver([done, checked = std::move(checked)] { done(checked); });
    };
    return jobs_.worker().spawn(check, [this, done](const std::exception& error) {
        AddSourceError answer{.kind = AddSourceError::Kind::fetchFailed, .detail = error.what()};
        jobs_.deliver([done, answer = std::move(answer)] { done(answer); });
    });
}

void SourceController::cancelCheck(DeskWorker::JobID check) { jobs_.worker().cancel(check); }

}  // namespace app
