#include "NewsroomKit/Attribution/SubjectTimeline.h"

#include <algorithm>
#include <chrono>
#include <tuple>

#include "NewsroomKit/Clusters/HeadlineGenre.h"
#include "NewsroomKit/Text/Pattern.h"

namespace kit {

namespace {

using Stage = TimelineStage::Stage;

bool isReleaseStory(const Story& story) {
    static const Pattern release(
        R"(\b(?:releases|released|now available|is now out|is out now|out now|)"
        R"(are now available|available today|rolls out|launches|launched)\b)",
        Pattern::Letters::ignoringCase);
    return story.sourcing == Sourcing::confirmed && release.occursIn(story.title);
}

template <class Test>
std::optional<TimelineStage> earliest(Stage stage, std::span<const Story* const> stories,
                                      Test wanted) {
    const Story* found = nullptr;
    for (const auto* story : stories) {
        if (!wanted(*story)) continue;
        if (!found ||
            std::tie(story->publishedAt, story->id) < std::tie(found->publishedAt, found->id))
            found = story;
    }
    if (!found) return std::nullopt;
    return TimelineStage{.stage = stage, .story = found->id, .at = found->publishedAt};
}

std::optional<TimelineStage> released(std::span<const Story* const> stories,
                                      std::span<const TimelineSignal> changes) {
    auto stage = earliest(Stage::released, stories, isReleaseStory);
    for (const auto& signal : changes) {
        const auto at = signal.at();
        if (!signal.isRelease() || !at || (stage && stage->at < *at)) continue;
        if (stage && stage->signal && stage->at == *at) continue;
        stage = TimelineStage{.stage = Stage::released, .signal = signal.id, .at = *at};
    }
    return stage;
}

}  // namespace

std::vector<TimelineStage> subjectTimeline(std::span<const Story* const> stories,
                                           std::span<const TimelineSignal> changes) {
    const auto sourced = [&](Stage stage, Sourcing sourcing) {
        // A roundup of rumors is not the first of them.
        const bool needsNews = sourcing == Sourcing::rumor || sourcing == Sourcing::report;
        return earliest(stage, stories, [sourcing, needsNews](const Story& story) {
            if (story.sourcing != sourcing) return false;
            return !needsNews || headlineGenre(story.title, story.kind) == HeadlineGenre::news;
        });
    };
    const auto confirmed = sourced(Stage::confirmed, Sourcing::confirmed);
    std::vector<TimelineStage> stages;
    for (auto stage : {sourced(Stage::firstRumor, Sourcing::rumor),
                       sourced(Stage::firstReport, Sourcing::report)}) {
        if (stage && !(confirmed && stage->at > confirmed->at)) stages.push_back(std::move(*stage));
    }
    for (auto stage :
         {sourced(Stage::onRecord, Sourcing::onRecord), confirmed, released(stories, changes)}) {
        if (stage) stages.push_back(std::move(*stage));
    }
    // In the order of the stages already.
    std::ranges::stable_sort(stages, {}, &TimelineStage::at);
    for (std::size_t i = 1; i < stages.size(); ++i) {
        const std::chrono::duration<double> since = stages[i].at - stages[i - 1].at;
        stages[i].days = since.count() / 86'400;
    }
    return stages;
}

}  // namespace kit
