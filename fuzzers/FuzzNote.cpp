#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Library/NoteText.h"

// Any bytes: no crash, depths are bounded, only links to the web and to mail are kept, and no
// control characters are shown.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const auto& block : kit::noteBlocks({reinterpret_cast<const char*>(data), size})) {
        if (block.quoteDepth > kit::kDeepestNoteBlock || block.listDepth > kit::kDeepestNoteBlock)
            std::abort();
        for (const auto& span : block.spans) {
            if (kit::withoutControls(span.text) != span.text) std::abort();
            const bool isMail =
                span.link.size() > 7 && (span.link[0] == 'm' || span.link[0] == 'M');
            if (!span.link.empty() && !isMail && !kit::isWebLink(span.link)) std::abort();
        }
    }
    return 0;
}
