#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Library/ImportPreview.h"
#include "NewsroomKit/Library/LibraryContents.h"

namespace kit {

/// The form of the files that libraryFile writes. A higher number means that older versions of the
/// program would lose something of it.
inline constexpr std::int64_t kLibraryFileVersion = 1;

/// All of the contents as JSON, a record a line, from which they read back equal.
std::string libraryFile(const LibraryContents& contents, Instant madeAt, std::string_view program);

struct LibraryFileReading {
    LibraryContents contents{};
    std::vector<ImportProblem> problems{};  ///< records that are left out
};

/// Reads what libraryFile writes. One unreadable record leaves out no other.
boost::outcome_v2::unchecked<LibraryFileReading, ImportRefusal> readLibraryFile(
    std::string_view utf8);

}  // namespace kit
