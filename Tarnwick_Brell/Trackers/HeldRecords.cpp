#include "Tarnwick_Brell/Trackers/HeldRecords.h"

#include <cstddef>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FilingRecords.h"

namespace app {

namespace {

// Ten companies file about a thousand times a year, most of it forms of insiders.
constexpr std::size_t kMostHeldFilings = 4'000;
constexpr std::size_t kMostHeldEntries = 10'000;
constexpr std::size_t kMostHeldCases = 500;
constexpr std::size_t kMostHeldReleases = 2'000;

}  // namespace

HeldRecords readRecords(const std::filesystem::path& library) {
    LocalStore store(library, Database::Access::readOnly);
    return {.filings = followedFilings(store.filings().newest(kMostHeldFilings)),
            .entries = seenEntries(store.docketEntries().newest(kMostHeldEntries)),
            .cases = seenCases(store.courtCases().newest(kMostHeldCases)),
            .releases = seenReleases(store.pressReleases().newest(kMostHeldReleases))};
}

}  // namespace app
