#include "NewsroomKit/Library/ProjectTimeline.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Library/NoteTitle.h"

namespace kit {

namespace {

constexpr std::string_view kSignalKey = "signal:";

TimelineItem itemOf(const Clip& clip) {
    return {.kind = MemberKind::clip,
            .id = clip.id,
            .at = clip.accessedAt,
            .title = clip.title,
            .text = clip.quote,
            .source = clip.sourceName,
            .link = clip.link};
}

TimelineItem itemOf(const Note& note) {
    return {.kind = MemberKind::note,
            .id = note.id,
            .at = note.changedAt,
            .title = shownTitle(note),
            .text = note.text};
}

TimelineItem itemOf(const SavedStory& story) {
    return {.kind = MemberKind::story,
            .id = story.id,
            .at = story.publishedAt,
            .title = story.title,
            .text = story.excerpt,
            .source = story.sourceName,
            .link = story.articleLink.value_or(story.link)};
}

TimelineItem itemOf(const Signal& signal) {
    return {.kind = MemberKind::signal,
            .id = signal.id,
            .at = signal.happenedAt.value_or(signal.seenAt),
            .title = signal.title,
            .text = signal.detail,
            .source = signal.subject,
            .link = signal.link.value_or("")};
}

std::string rankOf(const Project& project, const TimelineItem& item) {
    const auto found = project.ranks.find(item.key());
    return found == project.ranks.end() ? std::string() : found->second;
}

}  // namespace

std::string memberKey(MemberKind kind, std::string_view id) {
    return std::string(rawValue(kind)) + ":" + std::string(id);
}

std::vector<std::string> signalMembers(const Project& project) {
    std::vector<std::string> ids;
    for (const auto& [key, done] : project.done) {
        if (key.starts_with(kSignalKey)) ids.push_back(key.substr(kSignalKey.size()));
    }
    return ids;
}

std::vector<TimelineItem> projectTimeline(const Project& project, const ProjectMembers& members) {
    std::vector<TimelineItem> ranked, rest;
    const auto add = [&](const auto& list) {
        for (const auto& member : list) {
            auto item = itemOf(member);
            const auto done = project.done.find(item.key());
            item.isDone = done != project.done.end() && done->second;
            (rankOf(project, item).empty() ? rest : ranked).push_back(std::move(item));
        }
    };
    add(members.clips);
    add(members.notes);
    add(members.stories);
    add(members.happenings);
    std::ranges::sort(ranked, {}, [&](const TimelineItem& item) {
        return std::pair(rankOf(project, item), item.key());
    });
    std::ranges::sort(rest, {},
                      [](const TimelineItem& item) { return std::pair(item.at, item.key()); });
    std::vector<TimelineItem> timeline = std::move(ranked);
    for (auto& item : rest) {
        const auto last =
            std::find_if(timeline.rbegin(), timeline.rend(),
                         [&](const TimelineItem& before) { return before.at <= item.at; });
        timeline.insert(last.base(), std::move(item));
    }
    return timeline;
}

void forgetMember(Project& project, std::string_view key) {
    project.ranks.erase(std::string(key));
    project.done.erase(std::string(key));
}

}  // namespace kit
