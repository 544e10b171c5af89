#include <gtest/gtest.h>

#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"

namespace kit {
namespace {

TEST(CatalogueDay, ADayBeginsAtMidnightOfNewYorkWhateverTheSeason) {
    const std::pair<const char*, const char*> cases[] = {
        {"2026-01-15", "2026-01-15T05:00:00Z"},
        {"2026-07-15", "2026-07-15T04:00:00Z"},
        // Clocks change at two o'clock, so the day itself still begins by the old time.
        {"2026-03-08", "2026-03-08T05:00:00Z"},
        {"2026-03-09", "2026-03-09T04:00:00Z"},
        {"2026-11-01", "2026-11-01T04:00:00Z"},
        {"2026-11-02", "2026-11-02T05:00:00Z"},
        // Before 2007 summer time came in April.
        {"2006-03-20", "2006-03-20T05:00:00Z"},
        {"2026-03-24T23:59:59Z", "2026-03-24T04:00:00Z"},
        {"2026-1-5", "2026-01-05T05:00:00Z"},
    };
    for (const auto& [text, instant] : cases) {
        EXPECT_EQ(catalogueDay(text), parseISO8601(instant)) << text;
    }
}

TEST(CatalogueDay, WhatIsNoDayOfTheCalendarReadsAsNothing) {
    for (const auto* text :
         {"", "soon", "2026-02-29", "2026-13-01", "2026-00-10", "0000-01-01", "2026/03/24",
          "24.03.2026", "2026-03", "2026-1-5T10:00", " 2026-03-24", "2026-03-2\xCC\x81"}) {
        EXPECT_EQ(catalogueDay(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace kit
