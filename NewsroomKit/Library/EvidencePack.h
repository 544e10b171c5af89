#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Library/Clip.h"
#include "NewsroomKit/Library/Note.h"
#include "NewsroomKit/Library/Project.h"
#include "NewsroomKit/Library/SavedStory.h"
#include "NewsroomKit/Library/ZipWriter.h"
#include "NewsroomKit/Signals/Signal.h"
#include "NewsroomKit/Text/TimeZone.h"

namespace kit {

/// A headline that a story had.
struct EvidenceHeadline {
    std::string title{};
    Instant seenAt{};

    bool operator==(const EvidenceHeadline&) const = default;
};

struct EvidenceStory {
    SavedStory story{};
    std::optional<SavedText> text{};
    std::vector<EvidenceHeadline> headlines{};  ///< the oldest first
    std::optional<Instant> firstSeenAt{};       ///< by the desk
    std::string firstSeenIn{};                  ///< the source that had it then

    bool operator==(const EvidenceStory&) const = default;
};

/// What the user put right.
struct EvidenceCorrection {
    Instant madeAt{};
    std::string text{};  ///< a sentence, "First with it: Orchard Post"
    std::string note{};  ///< of the user; may be empty
    std::vector<std::string> storyIDs{};

    bool operator==(const EvidenceCorrection&) const = default;
};

/// All that a pack tells of, in any order.
struct Evidence {
    Project project{};
    std::vector<EvidenceStory> stories{};
    std::vector<Clip> clips{};
    std::vector<Note> notes{};
    std::vector<EvidenceCorrection> corrections{};
    std::vector<Signal> happenings{};
    Instant madeAt{};
    std::string program{};  ///< name and version
};

struct PackFile {
    std::string path{};  ///< below the pack's folder, with "/"
    std::string bytes{};

    bool operator==(const PackFile&) const = default;
};

/// The files of a pack, always in one order: index.md, stories.json, clips.csv, notes/, texts/,
/// headlines.csv, corrections.md when there are any, signals.csv, SHA256SUMS, manifest.json. Equal
/// evidence gives equal bytes, whatever order it comes in. When and by which program the pack was
/// made stands in manifest.json alone, so that packs made at two times differ in nothing else when
/// the evidence is the same: SHA256SUMS leaves the manifest out, which holds the hash of
/// SHA256SUMS. What belongs to the project has the order of its timeline, which is the user's;
/// signals are listed by their time. Days and times are those of `zone`.
std::vector<PackFile> evidencePack(const Evidence& evidence, const TimeZone& zone);

/// A safe name for the pack's folder or file, by the project: "Gates evidence".
std::string packName(const Project& project);

/// The files as a .zip, inside of `folder`. Throws std::length_error when they are more than a
/// .zip holds.
void writeZip(const std::vector<PackFile>& files, const std::string& folder, ZipWriter::Sink sink);

}  // namespace kit
