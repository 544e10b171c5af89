#include "Tarnwick_Brell/Desk/SubjectReader.h"

#include <chrono>

#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

Subjects::Subjects(LocalStore& store, const Scope& scope, const std::stop_token& stop)
    : corrections_(store.corrections().overlay()),
      answers_(store.claimAnswers().all()),
      now_(scope.now) {
    const auto compiled = scope.query.compiled();
    kit::StoryClusterer clusterer;
    store.stories().eachInWireOrder(scope.from, [&](const StoredStory& stored) {
        isCut_ = all_.size() == kMostStories;
        if (isCut_ || stop.stop_requested()) return false;
        const auto& story = all_.emplace_back(stored.story);
        clusterer.add({&story, 1});
        if (compiled.matches(story)) {
            selected_.push_back({.story = &story,
                                 .firstSeen = stored.firstSeen,
                                 .isRead = stored.readAt.has_value()});
        }
        return true;
    });
    if (stop.stop_requested()) return;
    // The weights of words and the user's word are those of the clusters in memory.
    clusterer.rememberBefore(std::chrono::floor<std::chrono::days>(now_) -
                             kit::WordMemory::kLeftOut);
    clusterer.setOverrides({.joined = corrections_->joined(), .apart = corrections_->apart()});
    clusters_ = clusterer.clusters();
}

kit::PanelNews Subjects::news() const {
    return {.stories = selected_,
            .clusters = clusters_,
            .now = now_,
            .corrections = corrections_.get(),
            .answers = answers_};
}

void keepAnswers(DeskWorker& worker, std::vector<kit::ClaimAnswer> answers) {
    if (answers.empty()) return;
    worker.post(
        [answers = std::move(answers)](DeskWorker::WorkerContext& context) {
            auto transaction = context.store.transaction();
            context.store.claimAnswers().keep(answers);
            transaction.commit();
        },
        [](const std::exception&) {});
}

}  // namespace app
