#include "Tarnwick_Brell/Library/LibraryExchange.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "NewsroomKit/Library/UnknownKeys.h"

namespace app {

namespace {

using kit::LibraryContents;
using kit::LibraryPart;

const boost::json::object kNoKeys;

template <class T>
constexpr LibraryPart kPartOf = LibraryPart::stories;
template <>
constexpr LibraryPart kPartOf<kit::Clip> = LibraryPart::clips;
template <>
constexpr LibraryPart kPartOf<kit::Note> = LibraryPart::notes;
template <>
constexpr LibraryPart kPartOf<kit::Project> = LibraryPart::projects;

std::size_t& countOf(LibraryPart part, PartCounts& counts) {
    return counts[static_cast<std::size_t>(part)];
}

/// Reads the records of a scope.
class ContentsReading {
public:
    ContentsReading(LocalStore& store, const ContentsScope& scope) : store_(store), scope_(scope) {}

    KeptContents read() && {
        if (wants(LibraryPart::stories)) {
            readPart("story:", result_.contents.stories);
            readTexts();
        }
        if (wants(LibraryPart::clips)) readPart("clip:", result_.contents.clips);
        if (wants(LibraryPart::notes)) readPart("note:", result_.contents.notes);
        if (wants(LibraryPart::projects)) {
            readPart("project:", result_.contents.projects);
            if (!scope_.project.empty()) keepOneProject();
        }
        return std::move(result_);
    }

private:
    bool wants(LibraryPart part) const {
        return scope_.parts.empty() || scope_.parts.contains(part);
    }

    template <class T>
    void readPart(const std::string& prefix, std::vector<T>& records) {
        KeptQuery query{.kind = kKindOf<T>};
        if constexpr (!std::is_same_v<T, kit::Project>) query.project = scope_.project;
        for (const auto& record : store_.kept().records(query)) {
            try {
                const auto value = kit::parseJSON(record);
                records.push_back(kit::decode<T>(value));
                auto unknown = kit::unknownKeys<T>(value.as_object());
                if (!unknown.empty())
                    result_.contents.extras.emplace(prefix + records.back().id, std::move(unknown));
            } catch (const kit::RecordError&) {
                ++result_.unreadable;
            }
        }
    }

    void readTexts() {
        auto& contents = result_.contents;
        for (const auto& story : contents.stories) {
            if (auto text = store_.savedStories().text(story.id))
                contents.texts.emplace(story.id, std::move(*text));
        }
    }

    void keepOneProject() {
        std::erase_if(result_.contents.projects,
                      [&](const kit::Project& project) { return project.id != scope_.project; });
    }

    LocalStore& store_;
    const ContentsScope& scope_;
    KeptContents result_;
};

/// One import, within a transaction.
class Import {
public:
    Import(LocalStore& store, const kit::ImportPreview& preview, kit::Instant now)
        : store_(store),
          kept_(store, now),
          now_(now),
          read_(preview.readStories.begin(), preview.readStories.end()) {}

    void take(const LibraryContents& contents, PartCounts& counts) {
        takePart("project:", contents.projects, contents, counts);
        takeStories(contents, counts);
        takePart("clip:", contents.clips, contents, counts);
        takePart("note:", contents.notes, contents, counts);
    }

    std::vector<kit::ImportProblem> takeRefused() { return std::move(refused_); }

private:
    void takeStories(const LibraryContents& contents, PartCounts& counts) {
        std::vector<MarkTable::Imported> marks;
        takePart("story:", contents.stories, contents, counts, [&](const kit::SavedStory& story) {
            marks.push_back(
                {.story = story.id, .savedAt = story.savedAt, .isRead = read_.contains(story.id)});
            const auto text = contents.texts.find(story.id);
            if (text != contents.texts.end())
                store_.savedStories().keepText(story.id, text->second);
        });
        store_.marks().takeOver(marks, now_);
    }

    template <class T, class Then>
    void takePart(const std::string& prefix, const std::vector<T>& records,
                  const LibraryContents& contents, PartCounts& counts, const Then& then) {
        for (const auto& record : records) {
            const auto extras = contents.extras.find(prefix + record.id);
            try {
                kept_.takeOver(record, extras == contents.extras.end() ? kNoKeys : extras->second);
                ++countOf(kPartOf<T>, counts);
                then(record);
            } catch (const KeptProblem& problem) {
                refused_.push_back({.obstacle = kit::ImportObstacle::unreadable,
                                    .text = prefix + record.id,
                                    .detail = problem.what()});
            }
        }
    }

    template <class T>
    void takePart(const std::string& prefix, const std::vector<T>& records,
                  const LibraryContents& contents, PartCounts& counts) {
        takePart(prefix, records, contents, counts, [](const T&) {});
    }

    LocalStore& store_;
    KeptStore kept_;
    kit::Instant now_;
    std::unordered_set<std::string> read_;
    std::vector<kit::ImportProblem> refused_;
};

}  // namespace

KeptContents keptContents(LocalStore& store, const ContentsScope& scope) {
    return ContentsReading(store, scope).read();
}

PartCounts partCounts(const LibraryContents& contents) {
    PartCounts counts{};
    countOf(LibraryPart::stories, counts) = contents.stories.size();
    countOf(LibraryPart::clips, counts) = contents.clips.size();
    countOf(LibraryPart::notes, counts) = contents.notes.size();
    countOf(LibraryPart::projects, counts) = contents.projects.size();
    return counts;
}

ImportOutcome importKept(LocalStore& store, const kit::ImportPreview& preview, Differing differing,
                         kit::Instant now) {
    ImportOutcome outcome;
    auto transaction = store.transaction();
    Import import(store, preview, now);
    import.take(preview.fresh, outcome.added);
    if (differing == Differing::isReplaced) import.take(preview.differing, outcome.replaced);
    transaction.commit();
    outcome.refused = import.takeRefused();
    return outcome;
}

}  // namespace app
