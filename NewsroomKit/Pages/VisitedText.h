#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/Pages/PageKeys.h"
#include "NewsroomKit/Pages/PageWatch.h"

namespace kit {

/// The text that a look at a page has found, and what it is compared by.
struct VisitedText {
    std::vector<PageBlock> blocks{};
    std::vector<PageBlock> stable{};  ///< without volatile ones
    PageKeys keys{};
    std::string linksKey{};
    std::optional<Instant> statedDay{};
    std::string host{};
    std::string language{};

    /// Without these blocks from now on.
    void leaveOut(const std::vector<VolatileBlock>& volatileBlocks);
    std::int64_t length() const;  ///< bytes
};

using VisitedTextResult = boost::outcome_v2::unchecked<VisitedText, PageMiss>;

VisitedTextResult readVisit(const PageVisit& visit,
                            const std::vector<VolatileBlock>& volatileBlocks);

}  // namespace kit
