#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "NewsroomKit/Pages/PageBlock.h"
#include "NewsroomKit/Text/SequenceDiff.h"

namespace kit {

/// Which of the blocks that were removed at a place became which of those that were added there:
/// likely pairs, in order. `removed` and `added` are places in the lists of blocks.
std::vector<SequenceMatch> pairBlocks(const std::vector<PageBlock>& before,
                                      const std::vector<std::size_t>& removed,
                                      const std::vector<PageBlock>& after,
                                      const std::vector<std::size_t>& added);

}  // namespace kit
