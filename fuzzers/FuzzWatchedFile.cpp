#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Backend/RecordDiff.h"
#include "NewsroomKit/Backend/WatchedRecord.h"

// Any file as any source: keys are unique, and nothing differs from itself.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const auto sources = kit::enumTable<kit::WatchedSource>;
    const auto source = sources[data[0] % sources.size()].value;
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const auto records = kit::readWatchedRecords(source, bytes);
    if (!records) return 0;
    for (std::size_t i = 1; i < records->size(); ++i) {
        if (!((*records)[i - 1].key < (*records)[i].key)) std::abort();
    }
    const auto diff = kit::compareRecords(*records, *records);
    if (!diff.added.empty() || !diff.removed.empty() || !diff.changed.empty()) std::abort();
    return 0;
}
