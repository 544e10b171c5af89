#pragma once

#include <array>
#include <cstddef>
#include <set>
#include <string>

#include "NewsroomKit/Library/ImportPreview.h"
#include "NewsroomKit/Library/LibraryExport.h"
#include "Tarnwick_Brell/Library/KeptStore.h"

/// What is kept, as a whole: for exports, and taken over from a file.
namespace app {

/// Which part of it; what is empty asks for all.
struct ContentsScope {
    std::set<kit::LibraryPart> parts{};
    std::string project{};  ///< the project with this id and its members
};

struct KeptContents {
    kit::LibraryContents contents{};
    std::size_t unreadable = 0;  ///< records of a newer version, which are left out
};

/// Everything in the order of its lists. Throws StoreError.
KeptContents keptContents(LocalStore& store, const ContentsScope& scope = {});

/// What happens to what the library has with another content.
enum class Differing { stays, isReplaced };

/// How many records of each kind.
using PartCounts = std::array<std::size_t, kit::enumTable<kit::LibraryPart>.size()>;

PartCounts partCounts(const kit::LibraryContents& contents);

struct ImportOutcome {
    PartCounts added{};
    PartCounts replaced{};
    /// What the library did not take, though the preview had no objection.
    std::vector<kit::ImportProblem> refused{};
};

/// Takes over what is new, under its ids, in one transaction. A story gets its mark, at once or
/// when it arrives; of a replaced story only tags, projects and a text that is missing here are
/// taken: the rest is what was seen first. Throws StoreError, and nothing has changed then.
ImportOutcome importKept(LocalStore& store, const kit::ImportPreview& preview, Differing differing,
                         kit::Instant now);

}  // namespace app
