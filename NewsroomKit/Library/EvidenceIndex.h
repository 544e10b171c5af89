#pragma once

#include <string>

#include "NewsroomKit/Library/EvidencePack.h"
#include "NewsroomKit/Library/ProjectTimeline.h"

namespace kit {

/// A kept text and a note with the file that has it; no file for a story without a text.
struct IndexedStory {
    const EvidenceStory* story = nullptr;
    std::string path{};
    std::string sha256{};  ///< of the file
};

struct IndexedNote {
    const Note* note = nullptr;
    std::string path{};
};

/// The evidence in the order in which it is told.
struct SortedEvidence {
    const Project* project = nullptr;
    std::vector<TimelineItem> timeline{};  ///< of the project's members
    std::vector<IndexedStory> stories{};
    std::vector<const Clip*> clips{};
    std::vector<IndexedNote> notes{};
    std::vector<const EvidenceCorrection*> corrections{};
    std::vector<const Signal*> signals{};
};

/// "2026-11-21 09:30", in the zone.
std::string minuteText(Instant instant, const TimeZone& zone);

/// The text that leads through a pack: a timeline, then everything with its citation.
std::string evidenceIndex(const SortedEvidence& evidence, const TimeZone& zone);

/// The corrections as Markdown.
std::string correctionsText(const SortedEvidence& evidence, const TimeZone& zone);

}  // namespace kit
