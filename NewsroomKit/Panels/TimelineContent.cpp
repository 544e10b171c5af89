#include "NewsroomKit/Panels/TimelineContent.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <unordered_map>

#include "NewsroomKit/Attribution/TellingOutlet.h"

namespace kit {

namespace {

/// On one line, without the tabs that separate the columns.
std::string cell(std::string_view text) {
    std::string clean(text);
    for (auto& c : clean) {
        if (c == '\t' || c == '\n' || c == '\r') c = ' ';
    }
    return clean;
}

}  // namespace

TimelineContent timelineContent(std::span<const PanelStory> stories,
                                std::vector<TimelineSignal> changes) {
    std::vector<const Story*> plain;
    std::unordered_map<std::string_view, const PanelStory*> known;
    std::set<std::string> outlets;
    for (const auto& story : stories) {
        plain.push_back(story.story);
        known.emplace(story.story->id, &story);
        outlets.insert(tellingOutletKey(*story.story));
    }
    std::ranges::stable_sort(changes, {}, [](const TimelineSignal& signal) {
        return signal.at().value_or(Instant::max());
    });
    TimelineContent content{.stories = stories.size(), .outlets = outlets.size()};
    for (auto& stage : subjectTimeline(plain, changes)) {
        TimelineRow row;
        if (stage.story) row.story = StoryMention::of(*known.at(*stage.story));
        if (stage.signal)
            row.signal = *std::ranges::find(changes, *stage.signal, &TimelineSignal::id);
        row.stage = std::move(stage);
        content.stages.push_back(std::move(row));
    }
    content.changes = std::move(changes);
    return content;
}

std::vector<TimelineSignal> buildSignals(std::span<const SeenBuild> builds,
                                         const StoryQuery& query) {
    std::vector<TimelineSignal> found;
    if (query.anyTerms.empty()) return found;
    const auto compiled = query.compiled();
    for (const auto& build : builds) {
        const auto& release = build.release;
        const auto title = build.platform + " " + release.version +
                           (release.stage.empty() ? "" : " " + release.stage) + " (" +
                           release.build + ")";
        if (!compiled.matchedTerm(StoryFacts{.title = title})) continue;
        const bool isPublic = build.channel == ReleaseChannel::general;
        found.push_back({.id = "build|" + build.platform + "|" + release.build,
                         .kind = isPublic ? "release" : "build",
                         .title = title,
                         .happenedAt = release.published,
                         .seenAt = build.firstSeen});
    }
    return found;
}

std::vector<TimelineSignal> loggedSignals(std::span<const LoggedSignal> log,
                                          const StoryQuery& query) {
    std::vector<TimelineSignal> found;
    if (query.anyTerms.empty()) return found;
    const auto compiled = query.compiled();
    for (const auto& [number, signal] : log) {
        const auto said = signal.title + " " + signal.subject;
        if (signal.kind == SignalKind::release || !compiled.matchedTerm(StoryFacts{.title = said}))
            continue;
        found.push_back({.id = signal.id,
                         .kind = std::string(rawValue(signal.kind)),
                         .title = signal.title,
                         .happenedAt = signal.happenedAt,
                         .seenAt = signal.seenAt});
    }
    return found;
}

std::string exportedTimeline(const TimelineContent& content) {
    std::string text;
    for (const auto& row : content.stages) {
        const auto& title = row.story ? row.story->title : row.signal->title;
        text += iso8601Text(row.stage.at) + '\t' + std::string(label(row.stage.stage)) + '\t' +
                (row.story ? cell(row.story->outlet) : "") + '\t' + cell(title) + '\n';
    }
    return text;
}

}  // namespace kit
