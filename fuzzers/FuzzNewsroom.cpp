#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Newsrooms/NewsroomFile.h"
#include "NewsroomKit/Newsrooms/PanelPlacement.h"

// Any bytes: an accepted newsroom is tidy, reads back as it was written, and its queries compile.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kit;
    NewsroomSpec spec;
    try {
        spec = NewsroomFile::read({reinterpret_cast<const char*>(data), size});
    } catch (const RecordError&) {
        return 0;
    }
    const auto placement = PanelPlacement::of(spec.panels);
    if (PanelPlacement::tidied(placement) != placement) std::abort();

    const auto again = NewsroomFile::read(NewsroomFile::write(spec));
    if (again != spec) std::abort();
    if (std::hash<NewsroomSpec>{}(again) != std::hash<NewsroomSpec>{}(spec)) std::abort();

    const StoryFacts story{.title = spec.name, .summary = spec.symbol};
    for (const auto& panel : spec.panels) spec.effectiveQuery(panel).compiled().matches(story);
    return 0;
}
