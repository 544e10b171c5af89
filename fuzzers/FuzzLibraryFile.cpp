#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Library/LibraryFile.h"

// Any bytes: no crash, and what is read is written and read back the same, apart from unknown
// numbers with fractions, which the parser rounds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto reading = kit::readLibraryFile({reinterpret_cast<const char*>(data), size});
    if (!reading) return 0;
    const auto file = kit::libraryFile(reading.value().contents, kit::Instant(), "fuzz");
    auto again = kit::readLibraryFile(file);
    if (!again) std::abort();
    for (auto* read : {&reading, &again}) {
        read->value().contents.extras.clear();
        read->value().contents.unknownParts.clear();
    }
    if (again.value().contents != reading.value().contents) std::abort();
    return 0;
}
