#include "NewsroomKit/Library/EvidenceIndex.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Library/Citation.h"
#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Library/NoteTitle.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

std::string_view timelineWord(MemberKind kind) {
    switch (kind) {
        case MemberKind::clip: return "Clip from";
        case MemberKind::note: return "Note";
        case MemberKind::signal: return "Signal";
        case MemberKind::story: break;
    }
    return "Story";
}

void appendTimeline(const SortedEvidence& evidence, const TimeZone& zone, std::string& text) {
    text += "## Timeline\n\n";
    for (const auto& item : evidence.timeline) {
        text +=
            fmt::format("- [{}] {} {}: {}\n", item.isDone ? 'x' : ' ', minuteText(item.at, zone),
                        timelineWord(item.kind), escapedMarkdown(item.title));
    }
    text += '\n';
}

void appendTags(const std::vector<std::string>& tags, std::string& text) {
    if (tags.empty()) return;
    std::string joined;
    for (const auto& tag : tags) joined += (joined.empty() ? "" : ", ") + escapedMarkdown(tag);
    text += "  - Tags: " + joined + '\n';
}

/// A path of the pack as a Markdown link.
std::string packLink(const std::string& path) {
    std::string target;
    for (const char c : path) {
        if (c == '%') {
            target += "%25";
        } else if (c == '#') {
            target += "%23";
        } else {
            target += c;
        }
    }
    return '[' + escapedMarkdown(path) + "](" + safeLink(target) + ')';
}

void appendKeptText(const IndexedStory& indexed, const TimeZone& zone, std::string& text) {
    if (!indexed.story->text) return;
    const auto& kept = *indexed.story->text;
    text += fmt::format("  - Text kept {}: {}, SHA-256 {}\n", minuteText(kept.fetchedAt, zone),
                        packLink(indexed.path), indexed.sha256);
    if (kept.sha256 != indexed.sha256)
        text += "  - **The text is not the one that was kept: its hash was " +
                escapedMarkdown(kept.sha256) + " then.**\n";
}

void appendStory(const IndexedStory& indexed, const TimeZone& zone, std::string& text) {
    const auto& [story, path, hash] = indexed;
    const auto* kept = story->text ? &*story->text : nullptr;
    text += "- " + citation(citedWork(story->story, kept), CitationStyle::markdown, zone) + '\n';
    if (story->firstSeenAt) {
        text += "  - First seen by the desk " + minuteText(*story->firstSeenAt, zone);
        if (!story->firstSeenIn.empty()) text += " in " + escapedMarkdown(story->firstSeenIn);
        text += '\n';
    }
    appendKeptText(indexed, zone, text);
    if (story->headlines.size() > 1) {
        for (const auto& headline : story->headlines) {
            text += fmt::format("  - Headline from {}: {}\n", minuteText(headline.seenAt, zone),
                                escapedMarkdown(headline.title));
        }
    }
    appendTags(story->story.tags, text);
}

void appendSignal(const Signal& signal, const TimeZone& zone, std::string& text) {
    text += fmt::format("- {} {}: {}", minuteText(signal.happenedAt.value_or(signal.seenAt), zone),
                        label(signal.kind), escapedMarkdown(signal.title));
    if (!signal.detail.empty()) text += " " + escapedMarkdown(signal.detail);
    if (signal.link) text += ' ' + escapedMarkdown(safeLink(*signal.link));
    text += '\n';
}

}  // namespace

std::string minuteText(Instant instant, const TimeZone& zone) {
    const auto shown = zone.shownAt(instant);
    const auto dayBegin = std::chrono::floor<std::chrono::days>(shown);
    const std::chrono::year_month_day day{dayBegin};
    const std::chrono::hh_mm_ss time{shown - dayBegin};
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}", static_cast<int>(day.year()),
                       static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                       time.hours().count(), time.minutes().count());
}

std::string evidenceIndex(const SortedEvidence& evidence, const TimeZone& zone) {
    const auto& project = *evidence.project;
    auto text = "# " + escapedMarkdown(project.name) + "\n\n";
    const auto description = withoutControls(project.description);
    if (const auto shown = trimWhitespaceAndNewlines(description); !shown.empty())
        text += std::string(shown) + "\n\n";
    text += "Times are those of " + zone.name() + ".\n\n";
    appendTimeline(evidence, zone, text);
    if (!evidence.stories.empty()) text += "## Stories\n\n";
    for (const auto& story : evidence.stories) appendStory(story, zone, text);
    if (!evidence.clips.empty()) text += "\n## Clips\n";
    for (const auto* clip : evidence.clips) {
        text += '\n' + quoteWithCitation(*clip, CitationStyle::markdown, zone);
        const auto own = withoutControls(clip->note);
        if (!own.empty()) text += '\n' + own + '\n';
    }
    if (!evidence.notes.empty()) text += "\n## Notes\n\n";
    for (const auto& [note, path] : evidence.notes) {
        text += fmt::format("- {}: {}, changed {}\n", escapedMarkdown(shownTitle(*note)),
                            packLink(path), minuteText(note->changedAt, zone));
    }
    if (!evidence.signals.empty()) text += "\n## Signals\n\n";
    for (const auto* signal : evidence.signals) appendSignal(*signal, zone, text);
    return text;
}

std::string correctionsText(const SortedEvidence& evidence, const TimeZone& zone) {
    std::string text = "# Corrections\n\n";
    for (const auto* correction : evidence.corrections) {
        text += "- " + minuteText(correction->madeAt, zone) + ' ' +
                escapedMarkdown(correction->text) + '\n';
        if (!correction->note.empty()) text += "  - " + escapedMarkdown(correction->note) + '\n';
        for (const auto& [story, path, hash] : evidence.stories) {
            if (std::ranges::find(correction->storyIDs, story->story.id) !=
                correction->storyIDs.end())
                text += "  - " + escapedMarkdown(story->story.title) + '\n';
        }
    }
    return text;
}

}  // namespace kit
