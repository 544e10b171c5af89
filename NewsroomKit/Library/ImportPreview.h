#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/Library/LibraryContents.h"

namespace kit {

enum class ImportForm { library, bookmarks, table };

template <>
inline constexpr std::array<EnumRow<ImportForm>, 3> enumTable<ImportForm>{{
    {ImportForm::library, "library", "Exported library"},
    {ImportForm::bookmarks, "bookmarks", "Bookmarks"},
    {ImportForm::table, "table", "Table of links"},
}};

enum class ImportFault {
    empty,
    tooLarge,
    unknownForm,
    outlines,
    foreignJSON,
    damaged,
    newerForm,
    noAddresses,
    tooMany
};

template <>
inline constexpr std::array<EnumRow<ImportFault>, 9> enumTable<ImportFault>{{
    {ImportFault::empty, "empty", "The file is empty."},
    {ImportFault::tooLarge, "tooLarge", "The file is larger than 64 MB."},
    {ImportFault::unknownForm, "unknownForm",
     "The file is no exported library, no file of bookmarks and no table of links (CSV)."},
    {ImportFault::outlines, "outlines",
     "The file is a list of feeds (OPML). It can be imported where sources are."},
    {ImportFault::foreignJSON, "foreignJSON",
     "The file is JSON, but not a library that this program exported."},
    {ImportFault::damaged, "damaged", "The file is damaged or incomplete."},
    {ImportFault::newerForm, "newerForm",
     "A newer version of this program wrote the file. Nothing is imported, so that nothing of it "
     "gets lost."},
    {ImportFault::noAddresses, "noAddresses",
     "The first line of the table names no column \"url\"."},
    {ImportFault::tooMany, "tooMany", "The file has more than 200,000 entries."},
}};

/// Why nothing of a file can be imported.
struct ImportRefusal {
    ImportFault fault{};
    std::size_t line = 0;  ///< 0 when it is not about a line
    std::string detail{};  ///< "form 3, and this version reads up to form 1"; may be empty

    bool operator==(const ImportRefusal&) const = default;
};

/// What stands in the way of an entry.
enum class ImportObstacle {
    noWebAddress,
    twice,
    unreadable,
    tooLong,
    unclosedQuote,
    unreadableDate
};

template <>
inline constexpr std::array<EnumRow<ImportObstacle>, 6> enumTable<ImportObstacle>{{
    {ImportObstacle::noWebAddress, "noWebAddress", "not a web address"},
    {ImportObstacle::twice, "twice", "twice in the file"},
    {ImportObstacle::unreadable, "unreadable", "can't be read"},
    {ImportObstacle::tooLong, "tooLong", "longer than the library takes"},
    {ImportObstacle::unclosedQuote, "unclosedQuote", "a quotation mark is never closed"},
    {ImportObstacle::unreadableDate, "unreadableDate",
     "the date can't be read; it is imported with the present time"},
}};

struct ImportProblem {
    ImportObstacle obstacle{};
    std::size_t line = 0;  ///< of the file, from 1; 0 for entries of an exported library
    std::string text{};    ///< the entry's title or address, or where a record stands ("clips[3]")
    std::string detail{};  ///< of an unreadable record; may be empty

    /// Such an entry comes in all the same.
    bool isImported() const { return obstacle == ImportObstacle::unreadableDate; }

    bool operator==(const ImportProblem&) const = default;
};

/// What an import would do.
struct ImportPreview {
    ImportForm form{};
    LibraryContents fresh{};                 ///< what is new
    LibraryContents here{};                  ///< what the library has already
    LibraryContents differing{};             ///< what the library has, with another content
    std::vector<std::string> readStories{};  ///< ids of new stories that the file says are read
    std::vector<ImportProblem> problems{};   ///< in the order of the file

    bool operator==(const ImportPreview&) const = default;
};

using ImportResult = boost::outcome_v2::unchecked<ImportPreview, ImportRefusal>;

inline constexpr std::size_t kMostBytesOfImport = 64'000'000;
inline constexpr std::size_t kMostImportedEntries = 200'000;

/// Reads a file that this or another program exported: which form it has is seen from its bytes.
/// A story is here when the library has its canonical link, whichever id it has; records of other
/// kinds are known by their ids. Folders and tags of bookmarks are tags. `here` is what the library
/// holds.
ImportResult previewImport(std::string_view bytes, const LibraryContents& here, Instant now);

}  // namespace kit
