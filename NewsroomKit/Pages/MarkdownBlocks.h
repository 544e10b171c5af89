#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Pages/PageBlock.h"

namespace kit {

/// Blocks of a page that an archive keeps as lines of Markdown, a block a line; empty lines yield
/// blocks without text. Lines that begin with "#" are headings, all others paragraphs. Marks of
/// lists, emphasis and links are not part of the text.
std::vector<PageBlock> markdownBlocks(const std::vector<std::string>& lines);

}  // namespace kit
