#include "NewsroomKit/Library/EvidencePack.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>

#include "NewsroomKit/Library/CSV.h"
#include "NewsroomKit/Library/ContentHash.h"
#include "NewsroomKit/Library/EvidenceIndex.h"
#include "NewsroomKit/Library/FileNames.h"
#include "NewsroomKit/Library/LibraryExport.h"
#include "NewsroomKit/Library/NoteTitle.h"
#include "NewsroomKit/Library/ProjectTimeline.h"

namespace kit {

namespace {

/// Pointers to the records, ordered by what `keyOf` gives, which tells any two apart.
template <class R, class KeyOf>
std::vector<const R*> ordered(const std::vector<R>& records, KeyOf keyOf) {
    std::vector<const R*> sorted;
    sorted.reserve(records.size());
    for (const auto& record : records) sorted.push_back(&record);
    std::ranges::sort(sorted,
                      [&](const R* left, const R* right) { return keyOf(*left) < keyOf(*right); });
    return sorted;
}

std::vector<TimelineItem> timelineOf(const Evidence& evidence) {
    ProjectMembers members{.clips = evidence.clips, .notes = evidence.notes};
    for (const auto& story : evidence.stories) members.stories.push_back(story.story);
    for (const auto& signal : evidence.happenings) {
        // The others happened in the same time, and would drown what the user has collected.
        if (evidence.project.done.contains(memberKey(MemberKind::signal, signal.id)))
            members.happenings.push_back(signal);
    }
    return projectTimeline(evidence.project, members);
}

SortedEvidence sortedEvidence(const Evidence& evidence) {
    SortedEvidence sorted;
    sorted.project = &evidence.project;
    sorted.timeline = timelineOf(evidence);
    std::unordered_map<std::string, std::size_t> places;
    for (const auto& item : sorted.timeline) places.emplace(item.key(), places.size());
    const auto placeOf = [&](MemberKind kind, const std::string& id) {
        return places.at(memberKey(kind, id));
    };
    const auto stories = ordered(evidence.stories, [&](const EvidenceStory& story) {
        return std::tuple(placeOf(MemberKind::story, story.story.id), story.story.link);
    });
    for (const auto* story : stories) sorted.stories.push_back({.story = story});
    sorted.clips = ordered(evidence.clips, [&](const Clip& clip) {
        return std::tuple(placeOf(MemberKind::clip, clip.id), clip.quote);
    });
    const auto notes = ordered(evidence.notes, [&](const Note& note) {
        return std::tuple(placeOf(MemberKind::note, note.id), note.text);
    });
    for (const auto* note : notes) sorted.notes.push_back({.note = note});
    sorted.corrections = ordered(evidence.corrections, [](const EvidenceCorrection& correction) {
        return std::tie(correction.madeAt, correction.text, correction.note);
    });
    sorted.signals = ordered(evidence.happenings, [](const Signal& signal) {
        return std::make_tuple(signal.happenedAt.value_or(signal.seenAt), signal.id);
    });
    return sorted;
}

/// Names end with a part of the id, so that a file has the same name in every pack.
std::string stemOf(const std::string& title, const std::string& id) {
    constexpr std::size_t lettersOfID = 8;
    constexpr std::size_t bytesOfTitle = kLongestFileStem - 2 * lettersOfID;
    const auto name = safeFileName(safeFileName(title).substr(0, bytesOfTitle));
    return name + ' ' + safeFileName(id).substr(0, lettersOfID);
}

void addTexts(SortedEvidence& evidence, std::vector<PackFile>& files) {
    DistinctNames names;
    for (auto& [story, path, hash] : evidence.stories) {
        if (!story->text) continue;
        path = "texts/" +
               names.take(safeFileName(stemOf(story->story.title, story->story.id)), ".txt");
        hash = sha256Hex(story->text->text);
        files.push_back({path, story->text->text});
    }
}

void addNotes(SortedEvidence& evidence, std::vector<PackFile>& files) {
    DistinctNames names;
    for (auto& [note, path] : evidence.notes) {
        path = "notes/" + names.take(safeFileName(stemOf(shownTitle(*note), note->id)), ".md");
        files.push_back({path, note->text});
    }
}

std::string storiesJSON(const SortedEvidence& evidence) {
    std::string text = "[";
    for (const auto& [story, path, hash] : evidence.stories) {
        auto value = encode(story->story);
        auto& object = value.get_object();
        if (story->firstSeenAt) object["firstSeenAt"] = iso8601Text(*story->firstSeenAt);
        if (!story->firstSeenIn.empty()) object["firstSeenIn"] = story->firstSeenIn;
        if (story->text) {
            auto kept = encode(*story->text);
            kept.get_object().erase("text");
            kept.get_object()["path"] = path;
            object["text"] = std::move(kept);
        }
        json::array headlines;
        for (const auto& headline : story->headlines) {
            headlines.push_back(
                json::object{{"title", headline.title}, {"seenAt", iso8601Text(headline.seenAt)}});
        }
        object["headlines"] = std::move(headlines);
        text += (text.size() > 1 ? ",\n" : "\n") + json::serialize(value);
    }
    return text + "\n]\n";
}

std::string clipTable(const SortedEvidence& evidence) {
    LibraryContents contents;
    contents.projects = {*evidence.project};
    for (const auto* clip : evidence.clips) contents.clips.push_back(*clip);
    return libraryTable(contents, LibraryPart::clips);
}

std::string headlineTable(const SortedEvidence& evidence) {
    std::string csv;
    appendCSVRow({"story", "url", "seen_at", "headline"}, csv);
    for (const auto& [story, path, hash] : evidence.stories) {
        for (const auto& headline : story->headlines) {
            appendCSVRow(
                {story->story.id, story->story.link, iso8601Text(headline.seenAt), headline.title},
                csv);
        }
    }
    return csv;
}

std::string signalTable(const SortedEvidence& evidence) {
    std::string csv;
    appendCSVRow({"happened_at", "seen_at", "kind", "weight", "subject", "title", "detail", "url",
                  "evidence", "id"},
                 csv);
    for (const auto* signal : evidence.signals) {
        appendCSVRow(
            {signal->happenedAt ? iso8601Text(*signal->happenedAt) : "",
             iso8601Text(signal->seenAt), std::string(rawValue(signal->kind)),
             std::string(rawValue(signal->weight)), signal->subject, signal->title, signal->detail,
             signal->link.value_or(""), json::serialize(signal->evidence), signal->id},
            csv);
    }
    return csv;
}

std::string sumsOf(const std::vector<PackFile>& files) {
    std::string sums;
    for (const auto& file : files) sums += sha256Hex(file.bytes) + "  " + file.path + '\n';
    return sums;
}

std::string manifestOf(const Evidence& evidence, const TimeZone& zone, const std::string& sums) {
    const auto count = [](const auto& records) {
        return static_cast<std::int64_t>(records.size());
    };
    const json::object manifest{
        {"form", "brell evidence pack"},
        {"version", 1},
        {"project", {{"id", evidence.project.id}, {"name", evidence.project.name}}},
        {"madeAt", iso8601Text(evidence.madeAt)},
        {"program", evidence.program},
        {"zone", zone.name()},
        {"stories", count(evidence.stories)},
        {"clips", count(evidence.clips)},
        {"notes", count(evidence.notes)},
        {"corrections", count(evidence.corrections)},
        {"signals", count(evidence.happenings)},
        {"sums", sha256Hex(sums)}};
    return json::serialize(manifest) + '\n';
}

}  // namespace

std::vector<PackFile> evidencePack(const Evidence& evidence, const TimeZone& zone) {
    auto sorted = sortedEvidence(evidence);
    std::vector<PackFile> files(3);
    addNotes(sorted, files);
    addTexts(sorted, files);
    files[0] = {"index.md", evidenceIndex(sorted, zone)};
    files[1] = {"stories.json", storiesJSON(sorted)};
    files[2] = {"clips.csv", clipTable(sorted)};
    files.push_back({"headlines.csv", headlineTable(sorted)});
    if (!sorted.corrections.empty())
        files.push_back({"corrections.md", correctionsText(sorted, zone)});
    files.push_back({"signals.csv", signalTable(sorted)});
    auto sums = sumsOf(files);
    auto manifest = manifestOf(evidence, zone, sums);
    files.push_back({"SHA256SUMS", std::move(sums)});
    files.push_back({"manifest.json", std::move(manifest)});
    return files;
}

std::string packName(const Project& project) {
    return safeFileName(project.name.substr(0, kLongestFileStem)) + " evidence";
}

void writeZip(const std::vector<PackFile>& files, const std::string& folder, ZipWriter::Sink sink) {
    ZipWriter zip(std::move(sink));
    for (const auto& file : files) zip.add(folder + '/' + file.path, file.bytes);
    zip.finish();
}

}  // namespace kit
