#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <stop_token>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Records/Instant.h"

namespace app {

class DeskWorker;
class LocalStore;

/// The stories of a long time that a query selects, and which of all stories of that time tell the
/// same news, for what looks further back than the clusters in memory: races, the rumor ledger, the
/// commands. The window and the command line both read them here, so that they agree.
class Subjects {
public:
    struct Scope {
        kit::StoryQuery query{};
        kit::Instant from{};
        kit::Instant now{};
    };

    /// Of more stories only the newest are read.
    static constexpr std::size_t kMostStories = 50'000;

    /// May take seconds. Ends early, with some of the stories and no clusters, when it is stopped.
    /// Throws StoreError.
    Subjects(LocalStore& store, const Scope& scope, const std::stop_token& stop = {});
    Subjects(const Subjects&) = delete;
    Subjects& operator=(const Subjects&) = delete;

    kit::PanelNews news() const;
    /// The library has older stories of that time, which were left out.
    bool isCut() const { return isCut_; }

private:
    std::deque<kit::Story> all_;
    std::vector<kit::PanelStory> selected_;
    std::vector<kit::StoryCluster> clusters_;
    std::shared_ptr<const kit::CorrectionOverlay> corrections_;
    std::vector<kit::ClaimAnswer> answers_;
    kit::Instant now_;
    bool isCut_ = false;
};

/// Keeps what has settled claims. When it can't be written, it is found again the next time.
void keepAnswers(DeskWorker& worker, std::vector<kit::ClaimAnswer> answers);

}  // namespace app
