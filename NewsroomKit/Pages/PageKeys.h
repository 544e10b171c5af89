#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Pages/PageBlock.h"

namespace kit {

/// What pages are compared by: equal keys mean that a reader sees no difference.
struct PageKeys {
    std::string key;       ///< of the blocks in order, 16 hexadecimal digits
    std::string orderKey;  ///< of the blocks in any order

    bool operator==(const PageKeys&) const = default;
};

PageKeys pageKeys(const std::vector<PageBlock>& blocks);

/// Of where the links of the blocks lead, in order.
std::string linksKey(const std::vector<PageBlock>& blocks);

}  // namespace kit
