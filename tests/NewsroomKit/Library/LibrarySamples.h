#pragma once

#include "NewsroomKit/Library/LibraryContents.h"

namespace kit {

inline Instant momentOf(std::string_view text) { return parseISO8601(text).value(); }

/// A record of each kind, related to each other.
inline LibraryContents sampleLibrary() {
    const SavedStory story{.id = "a1",
                           .savedAt = momentOf("2026-11-21T10:00:00Z"),
                           .link = "https://orchard.example/opens",
                           .title = "Orchard \"opens\", today",
                           .excerpt = "Two lines\nof it",
                           .author = "Jane Doe",
                           .publishedAt = momentOf("2026-11-21T08:30:00Z"),
                           .sourceID = "orchard",
                           .sourceName = "Orchard Post",
                           .tags = {"gates", "opening day"},
                           .projectIDs = {"p1"}};
    const SavedText text{.url = story.link,
                         .fetchedAt = momentOf("2026-11-21T10:01:00Z"),
                         .sha256 = "00",
                         .title = story.title,
                         .text = "All of it."};
    const Clip clip{.id = "c1",
                    .quote = "=1+1 is 2",
                    .storyID = "a1",
                    .link = story.link,
                    .title = story.title,
                    .sourceName = story.sourceName,
                    .author = story.author,
                    .publishedAt = story.publishedAt,
                    .accessedAt = momentOf("2026-11-21T10:05:00Z"),
                    .note = "check *this*",
                    .tags = {"gates"},
                    .projectIDs = {"p1"}};
    const Note note{.id = "n1",
                    .title = "Ask the gardener",
                    .text = "- [ ] call\n- **when**",
                    .createdAt = momentOf("2026-11-20T10:00:00Z"),
                    .changedAt = momentOf("2026-11-22T10:00:00Z"),
                    .storyIDs = {"a1"},
                    .projectIDs = {"p1"},
                    .tags = {}};
    const Project project{.id = "p1",
                          .name = "Gates",
                          .description = "Who opened them?",
                          .color = "#AA0000",
                          .createdAt = momentOf("2026-11-19T10:00:00Z"),
                          .ranks = {{"story:a1", "m"}},
                          .done = {{"clip:c1", true}}};
    LibraryContents contents;
    contents.stories = {story};
    contents.texts = {{"a1", text}};
    contents.clips = {clip};
    contents.notes = {note};
    contents.projects = {project};
    return contents;
}

}  // namespace kit
