#pragma once

#include <array>
#include <string>
#include <string_view>

#include "NewsroomKit/Library/LibraryContents.h"
#include "NewsroomKit/Text/TimeZone.h"

namespace kit {

enum class ExportForm { json, markdown, csv, bookmarks };

template <>
inline constexpr std::array<EnumRow<ExportForm>, 4> enumTable<ExportForm>{{
    {ExportForm::json, "json", "JSON, to import it again"},
    {ExportForm::markdown, "markdown", "Markdown"},
    {ExportForm::csv, "csv", "Table (CSV)"},
    {ExportForm::bookmarks, "bookmarks", "Bookmarks (HTML)"},
}};

/// A table has records of one kind.
enum class LibraryPart { stories, clips, notes, projects };

template <>
inline constexpr std::array<EnumRow<LibraryPart>, 4> enumTable<LibraryPart>{{
    {LibraryPart::stories, "stories", "Saved stories"},
    {LibraryPart::clips, "clips", "Clips"},
    {LibraryPart::notes, "notes", "Notes"},
    {LibraryPart::projects, "projects", "Projects"},
}};

/// The records of one kind as a table by RFC 4180 with a line of names, times in ISO 8601. That of
/// stories can be imported again. Projects are named where `contents` has them.
std::string libraryTable(const LibraryContents& contents, LibraryPart part);

/// All of the contents as one text in Markdown, with citations; dates are the days of `zone`.
std::string libraryDocument(const LibraryContents& contents, const TimeZone& zone);

struct ExportDetails {
    LibraryPart part = LibraryPart::stories;  ///< of a table
    Instant madeAt{};
    std::string program{};
    TimeZone zone{"UTC"};
};

/// The contents in one of the forms; a file of bookmarks has the stories alone.
std::string exportedLibrary(const LibraryContents& contents, ExportForm form,
                            const ExportDetails& details);

}  // namespace kit
