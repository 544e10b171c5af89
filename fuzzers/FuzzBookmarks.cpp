#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Library/BookmarkFile.h"
#include "NewsroomKit/Library/ImportPreview.h"
#include "NewsroomKit/Library/ImportedLink.h"
#include "NewsroomKit/Library/LineText.h"

// Any bytes behind the head of a file of bookmarks: no crash, only links to the web come in, and
// what came in is written and read back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const kit::Instant now{std::chrono::hours(490'000)};
    std::string file = "<!DOCTYPE NETSCAPE-Bookmark-file-1>";
    file.append(reinterpret_cast<const char*>(data), size);
    const auto preview = kit::previewImport(file, {}, now);
    if (!preview) return 0;
    const auto& stories = preview.value().fresh.stories;
    for (const auto& story : stories) {
        if (!kit::isWebLink(story.link) || story.title.empty()) std::abort();
    }
    const auto again = kit::readBookmarks(kit::bookmarkFile(stories), kit::kMostImportedEntries);
    if (again.size() != stories.size()) std::abort();
    return 0;
}
