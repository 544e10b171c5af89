#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/FollowedPage.h"
#include "NewsroomKit/Panels/PagesContent.h"

namespace app {

class LocalStore;

/// The pages that the user follows, and those that only panels of newsrooms do, by address once
/// each.
std::vector<kit::PageStatus> followedPages(LocalStore& store);

/// The user's page with this id, address or name; nothing when there is none.
std::optional<kit::FollowedPage> followedPageNamed(LocalStore& store, std::string_view text);

/// Follows a page, or changes what is known of it. Call these within a transaction.
void followPage(LocalStore& store, const kit::FollowedPage& page);
/// What was seen of it stays.
void unfollowPage(LocalStore& store, std::string_view id, kit::Instant now);

/// Two revisions of a page, word by word, the earlier one first whatever the order of the numbers;
/// nothing unless both are kept and of one page.
std::optional<kit::PageComparison> comparedRevisions(LocalStore& store, std::string_view address,
                                                     std::int64_t one, std::int64_t other);

/// The whole text of the later of two revisions, with what changed in it; nothing unless both are
/// kept and of one page.
std::optional<std::vector<kit::PageChangeRow>> wholeRevision(LocalStore& store,
                                                             std::string_view address,
                                                             std::int64_t one, std::int64_t other);

/// Compares a part of the page again that was left out, since it differed at each look, or leaves
/// it out again. The next look finds no change by that. Call these within a transaction.
void comparePart(LocalStore& store, std::string_view address, const kit::VolatileBlock& part);
void leaveOutPart(LocalStore& store, std::string_view address, const kit::VolatileBlock& part);

/// What is left out of the page has changed.
void updateEarlierKeys(LocalStore& store, std::string_view address, kit::PageWatchState& state,
                       const std::vector<kit::VolatileBlock>& leftOutBefore);

/// What a page is called until the user names it.
std::string pageNameFor(const std::string& address);

/// The address in the form that it is followed under; nothing unless it is one of https.
std::optional<std::string> pageAddressIn(std::string_view text);

}  // namespace app
