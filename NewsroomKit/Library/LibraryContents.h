#pragma once

#include <map>
#include <string>
#include <vector>

#include "NewsroomKit/Library/Clip.h"
#include "NewsroomKit/Library/Note.h"
#include "NewsroomKit/Library/Project.h"
#include "NewsroomKit/Library/SavedStory.h"

namespace kit {

/// What leaves a library or enters it, all of it or a part.
struct LibraryContents {
    std::vector<SavedStory> stories{};
    std::map<std::string, SavedText> texts{};  ///< kept texts, by the ids of their stories
    std::vector<Clip> clips{};
    std::vector<Note> notes{};
    std::vector<Project> projects{};
    /// What records say under keys that this version does not know, by "story:ID", "text:ID",
    /// "clip:ID", "note:ID" and "project:ID".
    std::map<std::string, json::object> extras{};
    json::object unknownParts{};  ///< parts of a file that this version does not know

    bool operator==(const LibraryContents&) const = default;
};

}  // namespace kit
