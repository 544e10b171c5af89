#pragma once

#include <string_view>
#include <vector>

#include "NewsroomKit/Stories/SourceCredit.h"

namespace kit {

/// The outlets, accounts and Apple documents that an item's HTML credits, its content read before
/// its summary.
///
/// A credit with a `detail` is cited: the text says in these words where its news comes from
/// ("according to", "first reported by", "told"). Without `detail` are links to Apple's
/// announcements that no words explain and, in an item that cites nobody, those to the articles and
/// posts of a single outlet, which may be its source.
/// Names after a phrase count when the table of outlets has them, when a link to a publisher stands
/// with them, or when they are an outlet's beyond doubt ("the newspaper X"): persons, companies and
/// courts are sources, not outlets. The item's own site, name and accounts are not credits.
///
/// Credits are unique, in the order of the text, and at most kCreditLimit, cited ones first to
/// count.
std::vector<SourceCredit> extractCredits(std::string_view contentHTML, std::string_view summaryHTML,
                                         std::string_view siteURL, std::string_view sourceName);

/// The credits of a feed's entry and of its page as one list, the feed's first: each once, and
/// background only where neither cites anybody.
std::vector<SourceCredit> joinedCredits(std::vector<SourceCredit> ofFeed,
                                        const std::vector<SourceCredit>& ofPage);

inline constexpr std::size_t kCreditLimit = 24;

}  // namespace kit
