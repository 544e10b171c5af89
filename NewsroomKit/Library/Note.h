#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// A text of the user's own, in Markdown, which may belong to stories and projects.
struct Note {
    std::string id{};  ///< a UUID
    std::string title{};
    std::string text{};
    Instant createdAt{};
    Instant changedAt{};
    std::vector<std::string> storyIDs{};    ///< each once, sorted
    std::vector<std::string> projectIDs{};  ///< each once, sorted
    std::vector<std::string> tags{};        ///< each once, sorted

    bool operator==(const Note&) const = default;
};

/// A text that a note had before.
struct NoteVersion {
    std::string noteID{};
    Instant replacedAt{};
    std::string text{};

    bool operator==(const NoteVersion&) const = default;
};

inline constexpr std::size_t kMostBytesOfNote = 200'000;

template <>
struct JSONFields<Note> {
    static constexpr auto fields = std::tuple{
        field("id", &Note::id),
        field("title", &Note::title),
        field("text", &Note::text),
        field("createdAt", &Note::createdAt),
        field("changedAt", &Note::changedAt),
        field("storyIDs", &Note::storyIDs),
        field("projectIDs", &Note::projectIDs),
        field("tags", &Note::tags),
    };
};

}  // namespace kit
