#include "Tarnwick_Brell/Library/ProjectEvidence.h"

#include <algorithm>
#include <set>
#include <system_error>
#include <utility>

#include "Tarnwick_Brell/Library/KeptStore.h"
#include "Tarnwick_Brell/Presentation/CorrectionText.h"
#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"

namespace app {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostSignals = 1'000'000;

/// Each with the moment in which it came.
std::vector<kit::EvidenceHeadline> headlinesOf(LocalStore& store, const StoredStory& stored) {
    std::vector<kit::EvidenceHeadline> headlines;
    auto since = stored.firstSeen;
    for (auto& [title, replacedAt] : store.stories().earlierWordings(stored.number)) {
        headlines.push_back({.title = std::move(title), .seenAt = since});
        since = replacedAt;
    }
    headlines.push_back({.title = stored.story.title, .seenAt = since});
    return headlines;
}

kit::EvidenceStory evidenceOf(LocalStore& store, kit::SavedStory story) {
    kit::EvidenceStory evidence{.text = store.savedStories().text(story.id)};
    const auto found = store.stories().findByID(story.id, 1);
    // Another story's id may begin with all of this one's.
    if (!found.empty() && found.front().story.id == story.id) {
        evidence.headlines = headlinesOf(store, found.front());
        evidence.firstSeenAt = found.front().firstSeen;
        evidence.firstSeenIn = found.front().story.sourceName;
    }
    evidence.story = std::move(story);
    return evidence;
}

void addCorrections(LocalStore& store, kit::Evidence& evidence) {
    std::set<std::string> ids;
    for (const auto& story : evidence.stories) ids.insert(story.story.id);
    for (const auto& correction : store.corrections().all()) {
        const bool isOfProject = std::ranges::any_of(
            correction.stories, [&](const std::string& id) { return ids.contains(id); });
        if (!isOfProject) continue;
        evidence.corrections.push_back({.madeAt = correction.madeAt,
                                        .text = correctionText(correction).toStdString(),
                                        .note = correction.note.value_or(""),
                                        .storyIDs = correction.stories});
    }
}

/// From the first to the last moment of anything that was collected.
std::optional<std::pair<kit::Instant, kit::Instant>> spanOf(const kit::Evidence& evidence) {
    std::vector<kit::Instant> moments;
    for (const auto& story : evidence.stories) {
        moments.push_back(story.story.publishedAt);
        moments.push_back(story.story.savedAt);
    }
    for (const auto& clip : evidence.clips) {
        if (clip.publishedAt) moments.push_back(*clip.publishedAt);
        moments.push_back(clip.accessedAt);
    }
    for (const auto& note : evidence.notes) {
        moments.push_back(note.createdAt);
        moments.push_back(note.changedAt);
    }
    if (moments.empty()) return std::nullopt;
    const auto [first, last] = std::ranges::minmax(moments);
    return std::pair(first, last);
}

void addSignals(LocalStore& store, std::vector<kit::Signal> members, kit::Evidence& evidence) {
    std::set<std::string> ids;
    for (auto& signal : members) {
        ids.insert(signal.id);
        evidence.happenings.push_back(std::move(signal));
    }
    const auto span = spanOf(evidence);
    if (!span) return;
    const SignalSelection seen{.since = span->first,
                               .until = span->second + kit::Instant::duration(1)};
    for (auto& logged : store.signalLog().newest(kMostSignals, seen)) {
        if (ids.insert(logged.signal.id).second)
            evidence.happenings.push_back(std::move(logged.signal));
    }
}

}  // namespace

kit::Evidence projectEvidence(LocalStore& store, const kit::Project& project, kit::Instant madeAt,
                              std::string program) {
    auto members = KeptStore(store, madeAt).members(project);
    kit::Evidence evidence;
    evidence.project = project;
    evidence.madeAt = madeAt;
    evidence.program = std::move(program);
    for (auto& story : members.stories)
        evidence.stories.push_back(evidenceOf(store, std::move(story)));
    evidence.clips = std::move(members.clips);
    evidence.notes = std::move(members.notes);
    addCorrections(store, evidence);
    addSignals(store, std::move(members.happenings), evidence);
    return evidence;
}

WrittenPack writePack(const kit::Evidence& evidence, const fs::path& folder, PackShape shape,
                      Existing existing, const kit::TimeZone& zone) {
    const auto files = kit::evidencePack(evidence, zone);
    const auto name = kit::packName(evidence.project);
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) failWriting(folder, error.value());
    if (shape == PackShape::zip) {
        const auto path = folder / (name + ".zip");
        WholeFile zip(path, existing);
        kit::writeZip(files, name, [&](std::string_view bytes) { zip.write(bytes); });
        zip.commit();
        return {.path = path, .files = files.size()};
    }
    const auto path = folder / name;
    WholeFolder pack(path, existing);
    for (const auto& file : files) pack.write(file.path, file.bytes);
    pack.commit();
    return {.path = path, .files = files.size()};
}

}  // namespace app
