#include "NewsroomKit/Library/LibraryExport.h"

#include <unordered_map>

#include "NewsroomKit/Library/BookmarkFile.h"
#include "NewsroomKit/Library/CSV.h"
#include "NewsroomKit/Library/Citation.h"
#include "NewsroomKit/Library/LibraryFile.h"
#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

std::string joinedBy(const std::vector<std::string>& items, std::string_view between) {
    std::string text;
    for (const auto& item : items) {
        if (!text.empty()) text += between;
        text += item;
    }
    return text;
}

/// The names of projects by their ids; an id without a project has no name.
class ProjectNames {
public:
    explicit ProjectNames(const LibraryContents& contents) {
        for (const auto& project : contents.projects) names_.emplace(project.id, project.name);
    }
    std::string of(const std::vector<std::string>& ids) const {
        std::vector<std::string> names;
        for (const auto& id : ids) {
            if (const auto found = names_.find(id); found != names_.end())
                names.push_back(found->second);
        }
        return joinedBy(names, "|");
    }

private:
    std::unordered_map<std::string, std::string> names_;
};

std::string table(const std::vector<SavedStory>& stories, const ProjectNames& projects) {
    std::string csv;
    appendCSVRow({"title", "url", "time_added", "tags", "excerpt", "source", "author",
                  "published_at", "projects"},
                 csv);
    for (const auto& story : stories) {
        appendCSVRow({story.title, story.articleLink.value_or(story.link),
                      iso8601Text(story.savedAt), joinedBy(story.tags, "|"), story.excerpt,
                      story.destinationName.value_or(story.sourceName), story.author.value_or(""),
                      story.sourceID.empty() ? "" : iso8601Text(story.publishedAt),
                      projects.of(story.projectIDs)},
                     csv);
    }
    return csv;
}

std::string table(const std::vector<Clip>& clips, const ProjectNames& projects) {
    std::string csv;
    appendCSVRow({"quote", "note", "title", "url", "source", "author", "published_at",
                  "accessed_at", "tags", "projects"},
                 csv);
    for (const auto& clip : clips) {
        appendCSVRow(
            {clip.quote, clip.note, clip.title, clip.link, clip.sourceName,
             clip.author.value_or(""), clip.publishedAt ? iso8601Text(*clip.publishedAt) : "",
             iso8601Text(clip.accessedAt), joinedBy(clip.tags, "|"), projects.of(clip.projectIDs)},
            csv);
    }
    return csv;
}

std::string table(const std::vector<Note>& notes, const ProjectNames& projects) {
    std::string csv;
    appendCSVRow({"title", "text", "created_at", "changed_at", "tags", "projects"}, csv);
    for (const auto& note : notes) {
        appendCSVRow(
            {note.title, note.text, iso8601Text(note.createdAt), iso8601Text(note.changedAt),
             joinedBy(note.tags, "|"), projects.of(note.projectIDs)},
            csv);
    }
    return csv;
}

std::string table(const std::vector<Project>& projects) {
    std::string csv;
    appendCSVRow({"name", "description", "archived", "created_at"}, csv);
    for (const auto& project : projects) {
        appendCSVRow({project.name, project.description, project.isArchived ? "yes" : "no",
                      iso8601Text(project.createdAt)},
                     csv);
    }
    return csv;
}

std::string tagLine(const std::vector<std::string>& tags) {
    return tags.empty() ? "" : "Tags: " + escapedMarkdown(joinedBy(tags, ", ")) + "\n\n";
}

void appendHeading(std::string_view heading, std::string& text) {
    text += "# " + std::string(heading) + "\n\n";
}

/// A text of the user's own, which is Markdown already.
std::string ownText(std::string_view text) {
    const auto shown = withoutControls(text);
    const auto trimmed = trimWhitespaceAndNewlines(shown);
    return trimmed.empty() ? "" : std::string(trimmed) + "\n\n";
}

}  // namespace

std::string libraryTable(const LibraryContents& contents, LibraryPart part) {
    switch (part) {
        case LibraryPart::clips: return table(contents.clips, ProjectNames(contents));
        case LibraryPart::notes: return table(contents.notes, ProjectNames(contents));
        case LibraryPart::projects: return table(contents.projects);
        case LibraryPart::stories: break;
    }
    return table(contents.stories, ProjectNames(contents));
}

std::string libraryDocument(const LibraryContents& contents, const TimeZone& zone) {
    std::string text;
    if (!contents.projects.empty()) appendHeading("Projects", text);
    for (const auto& project : contents.projects) {
        text += "## " + escapedMarkdown(project.name) + "\n\n" + ownText(project.description);
    }
    if (!contents.stories.empty()) appendHeading("Saved stories", text);
    for (const auto& story : contents.stories) {
        const auto kept = contents.texts.find(story.id);
        const auto* saved = kept == contents.texts.end() ? nullptr : &kept->second;
        text += citation(citedWork(story, saved), CitationStyle::markdown, zone) + "\n\n";
        if (!story.excerpt.empty()) text += escapedMarkdown(story.excerpt) + "\n\n";
        text += tagLine(story.tags);
    }
    if (!contents.clips.empty()) appendHeading("Clips", text);
    for (const auto& clip : contents.clips) {
        text += quoteWithCitation(clip, CitationStyle::markdown, zone) + '\n';
        text += ownText(clip.note) + tagLine(clip.tags);
    }
    if (!contents.notes.empty()) appendHeading("Notes", text);
    for (const auto& note : contents.notes) {
        text += "## " + escapedMarkdown(note.title) + "\n\n" + ownText(note.text);
        text += tagLine(note.tags);
    }
    return text;
}

std::string exportedLibrary(const LibraryContents& contents, ExportForm form,
                            const ExportDetails& details) {
    switch (form) {
        case ExportForm::markdown: return libraryDocument(contents, details.zone);
        case ExportForm::csv: return libraryTable(contents, details.part);
        case ExportForm::bookmarks: return bookmarkFile(contents.stories);
        case ExportForm::json: break;
    }
    return libraryFile(contents, details.madeAt, details.program);
}

}  // namespace kit
