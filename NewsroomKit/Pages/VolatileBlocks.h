#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Pages/PageBlock.h"

namespace kit {

/// A block that says something else each time the page is fetched. Since its text says nothing
/// about which one it is, it is known by the block that it follows.
struct VolatileBlock {
    std::string place;   ///< made from its kind, its headings and the block before it
    std::string sample;  ///< what it once said, for people

    bool operator==(const VolatileBlock&) const = default;
};

template <>
struct JSONFields<VolatileBlock> {
    static constexpr auto fields =
        std::tuple{field("place", &VolatileBlock::place), field("sample", &VolatileBlock::sample)};
};

std::vector<PageBlock> withoutVolatile(const std::vector<PageBlock>& blocks,
                                       const std::vector<VolatileBlock>& volatileBlocks);

/// Adds the blocks that differ between two fetches of a page made within minutes. Nothing when
/// these are so many that the page itself differs.
std::optional<std::vector<VolatileBlock>> learnedVolatile(const std::vector<PageBlock>& first,
                                                          const std::vector<PageBlock>& second,
                                                          std::vector<VolatileBlock> known);

}  // namespace kit
