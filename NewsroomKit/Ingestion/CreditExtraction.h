#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/Stories/SourceCredit.h"

namespace kit {

/// The outlets, accounts and Apple documents that an item's HTML credits, its content read before
/// its summary: what follows a credit phrase ("according to", "first reported by"), links to social
/// posts, to known outlets and to Apple's own announcements. The item's own site and name are not
/// credits. Credits are unique, in the order of the text, and at most kCreditLimit.
std::vector<SourceCredit> extractCredits(std::string_view contentHTML, std::string_view summaryHTML,
                                         std::string_view siteURL, std::string_view sourceName);

inline constexpr std::size_t kCreditLimit = 24;

}  // namespace kit
