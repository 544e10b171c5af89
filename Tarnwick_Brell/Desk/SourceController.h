#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/PassReport.h"
#include "Tarnwick_Brell/Desk/SourceAdder.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"

namespace kit {
struct Outlines;
}

namespace app {

class Defaults;
class DeskJobs;
struct DeskUpdate;

/// The sources as the main thread sees them. Changes are jobs on the worker's registry; the
/// update that follows each brings the result.
class SourceController {
public:
    using Added = std::function<void(const SourceAdder::Added&)>;
    using Checked = std::function<void(const SourceAdder::Checked&)>;
    using Imported = std::function<void(const std::vector<kit::NewsSource>&)>;

    SourceController(DeskJobs& jobs, const Defaults& defaults, kit::Clock clock)
        : jobs_(jobs), defaults_(defaults), clock_(std::move(clock)) {}

    const std::vector<kit::NewsSource>& sources() const { return list_.sources; }
    const std::set<std::string, std::less<>>& enabledIDs() const { return list_.enabled; }
    const SourceStatus& status(const std::string& sourceID) const;
    const SourceHealth& health(const std::string& sourceID) const;

    void setEnabled(const std::string& sourceID, bool enabled);
    void rename(const std::string& id, const std::string& name);
    void remove(const std::string& id);
    void check(std::string typed, Checked done);
    void add(std::string typed, Added done);
    void import(kit::Outlines outlines, Imported done);

    /// Returns whether the update changes sources or their states.
    bool apply(DeskUpdate& update);

private:
    using Change = std::function<void(DeskWorker::WorkerContext&, SourceRegistry&)>;

    void changeRegistry(Change change, DeskWorker::Failed failed);
    template <class Done>
    DeskWorker::Failed answerFailure(Done done);

    DeskJobs& jobs_;
    const Defaults& defaults_;
    kit::Clock clock_;
    SourceListState list_;
    SourceStates states_;
};

}  // namespace app
