#include "NewsroomKit/Panels/TimelinePageContent.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

namespace {

using std::chrono::days;
using std::chrono::hours;

/// Some 40 to 80 bars fill the scale of most subjects.
hours barSpanOf(Instant::duration scale) {
    if (scale <= days(3)) return hours(1);
    return scale <= days(75) ? hours(days(1)) : hours(days(7));
}

void addSteps(TimelinePage& page, std::vector<TimelineRow> rows, const PanelNews& news) {
    const auto groups = groupStories(news, Instant::min());
    std::unordered_map<std::string_view, const StoryGroup*> groupOf;
    for (const auto& group : groups) {
        for (const auto* story : group.stories) groupOf.emplace(story->story->id, &group);
    }
    for (auto& row : rows) {
        TimelinePage::Step step;
        if (row.story) {
            const auto& group = *groupOf.at(row.story->storyID);
            step.attribution = attributionOf(group, news);
            step.outlets = group.outlets.size();
        }
        page.from = std::min(page.from, row.stage.at);
        step.row = std::move(row);
        page.steps.push_back(std::move(step));
    }
}

void addBars(TimelinePage& page, const PanelNews& news) {
    page.barSpan = barSpanOf(page.to - page.from);
    const auto count = (page.to - page.from) / page.barSpan + 1;
    page.bars.resize(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < page.bars.size(); ++i)
        page.bars[i].begins = page.from + page.barSpan * static_cast<int>(i);
    for (const auto& story : news.stories) {
        const auto place = (story.story->publishedAt - page.from) / page.barSpan;
        if (place < count) ++page.bars[static_cast<std::size_t>(place)].stories;
    }
}

bool isNamedIn(const SeenBuild& build, const Story& story) {
    const PhraseMatcher phrase(build.platform + ' ' + build.release.version);
    const auto title = PhraseMatcher::normalize(story.title);
    for (auto at = phrase.find(title); at != std::string::npos; at = phrase.find(title, at + 1)) {
        // "27.1.1" is another version than "27.1".
        const auto end = at + phrase.phrase.size();
        const bool goesOn = end + 1 < title.size() && title[end] == '.' && title[end + 1] >= '0' &&
                            title[end + 1] <= '9';
        if (!goesOn) return true;
    }
    return false;
}

}  // namespace

TimelinePage timelinePage(const PanelNews& news, std::vector<TimelineSignal> changes) {
    TimelinePage page{.from = news.now, .to = news.now};
    for (const auto& story : news.stories)
        page.from = std::min(page.from, story.story->publishedAt);
    auto content = timelineContent(news.stories, std::move(changes));
    page.stories = content.stories;
    page.outlets = content.outlets;
    addSteps(page, std::move(content.stages), news);
    for (auto& signal : content.changes) {
        const auto at = signal.at();
        if (at && *at >= page.from && *at <= page.to) page.releases.push_back(std::move(signal));
    }
    addBars(page, news);
    page.claims = ledgerOf(news).claims;
    const auto count = [&](LedgerClaim::State state) {
        return static_cast<std::size_t>(std::ranges::count_if(
            page.claims, [state](const LedgerRow& row) { return row.claim.state == state; }));
    };
    page.confirmed = count(LedgerClaim::State::confirmed);
    page.denied = count(LedgerClaim::State::denied);
    return page;
}

std::vector<TimelineSignal> releaseSignals(std::span<const SeenBuild> builds,
                                           std::span<const PanelStory> stories) {
    std::vector<TimelineSignal> found;
    for (const auto& build : builds) {
        const bool isNamed = std::ranges::any_of(
            stories, [&](const PanelStory& story) { return isNamedIn(build, *story.story); });
        if (!isNamed) continue;
        const StoryQuery own{.anyTerms = {build.platform + ' ' + build.release.version}};
        for (auto& signal : buildSignals({&build, 1}, own)) found.push_back(std::move(signal));
    }
    return found;
}

}  // namespace kit
