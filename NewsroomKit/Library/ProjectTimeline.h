#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NewsroomKit/Library/Clip.h"
#include "NewsroomKit/Library/Note.h"
#include "NewsroomKit/Library/Project.h"
#include "NewsroomKit/Library/SavedStory.h"
#include "NewsroomKit/Signals/Signal.h"

namespace kit {

enum class MemberKind { clip, note, story, signal };

template <>
inline constexpr std::array<EnumRow<MemberKind>, 4> enumTable<MemberKind>{{
    {MemberKind::clip, "clip", "Clip"},
    {MemberKind::note, "note", "Note"},
    {MemberKind::story, "story", "Story"},
    {MemberKind::signal, "signal", "Signal"},
}};

/// "clip:8B3D…", by which a project knows a member.
std::string memberKey(MemberKind kind, std::string_view id);

/// The members of a project that have their own records, and its signals.
struct ProjectMembers {
    std::vector<Clip> clips{};
    std::vector<Note> notes{};
    std::vector<SavedStory> stories{};
    std::vector<Signal> happenings{};
};

/// A row of a project's timeline.
struct TimelineItem {
    MemberKind kind{};
    std::string id{};
    Instant at{};         ///< clipped, changed, published or seen
    std::string title{};  ///< of a clip and a story the headline, of a note what it is called
    std::string text{};   ///< the quote, the note's text, the excerpt or the detail
    std::string source{};
    std::string link{};
    bool isDone = false;

    std::string key() const { return memberKey(kind, id); }
    bool operator==(const TimelineItem&) const = default;
};

/// The members in the order of their time, the oldest first, except where the user has ordered
/// them: one without a rank stands behind the last ranked one that is not later than it.
std::vector<TimelineItem> projectTimeline(const Project& project, const ProjectMembers& members);

/// The ids of the signals that are members: a signal has no record that could name its projects,
/// so it is one by being in `done`.
std::vector<std::string> signalMembers(const Project& project);

/// Forgets the rank and the tick of one that is no member any more.
void forgetMember(Project& project, std::string_view key);

}  // namespace kit
