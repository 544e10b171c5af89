#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <stop_token>
#include <string>
#include <variant>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/PassReport.h"
#include "Tarnwick_Brell/Desk/SourceAdder.h"
#include "Tarnwick_Brell/Desk/SourceImport.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"
#include "Tarnwick_Brell/Desk/SourceSchedule.h"

namespace app {

class Defaults;
class DeskJobs;
struct DeskUpdate;

/// The sources as the main thread sees them. Changes are jobs on the worker's registry; the
/// update that follows each brings the result.
class SourceController {
public:
    /// Called on the main thread, like all of these.
    using Checked = std::function<void(const SourceAdder::Checked&)>;
    using Imported = std::function<void(const std::vector<kit::NewsSource>&)>;
    using TriesRead = std::function<void(const std::vector<SourceTry>&)>;
    using TriesCounted = std::function<void(const std::map<std::string, std::int64_t>&)>;
    using PausesRead = std::function<void(const Pauses&)>;
    using ListRead = std::function<void(const std::variant<ImportPreview, std::string>&)>;

    /// Follows an import and can give it up.
    struct ImportWatch {
        std::function<void(std::size_t done)> progress{};
        std::stop_token stop{};
    };

    SourceController(DeskJobs& jobs, const Defaults& defaults, kit::Clock clock)
        : jobs_(jobs), defaults_(defaults), clock_(std::move(clock)) {}

    const std::vector<kit::NewsSource>& sources() const { return list_.sources; }
    const std::set<std::string, std::less<>>& enabledIDs() const { return list_.enabled; }
    /// Those for which nothing has been set are not in it.
    const SourceTable::Options& options() const { return list_.options; }
    const SourceStatus& status(const std::string& sourceID) const;
    const SourceHealth& health(const std::string& sourceID) const;

    void setEnabled(const std::string& sourceID, bool enabled);
    void setOptions(const std::string& sourceID, const SourceOptions& options);
    void readTries(const std::string& sourceID, TriesRead done);
    void countTries(TriesCounted done);
    void readPauses(PausesRead done);
    void rename(const std::string& id, const std::string& name);
    void remove(std::vector<std::string> ids);
    /// `cancelCheck` with what it returns ends it without an answer.
    DeskWorker::JobID check(std::string typed, kit::FetchWatch watch, Checked done);
    void cancelCheck(DeskWorker::JobID check);
    void readList(std::filesystem::path file, ListRead done);
    void import(kit::Outlines outlines, ImportWatch watch, Imported done);

    /// Returns whether the update changes sources or their states.
    bool apply(DeskUpdate& update);

private:
    using Change = std::function<void(DeskWorker::WorkerContext&, SourceRegistry&)>;

    void changeRegistry(Change change, DeskWorker::Failed failed);

    DeskJobs& jobs_;
    const Defaults& defaults_;
    kit::Clock clock_;
    SourceListState list_;
    SourceStates states_;
};

}  // namespace app
