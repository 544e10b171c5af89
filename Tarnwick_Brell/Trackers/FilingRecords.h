#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"
#include "Tarnwick_Brell/Storage/Histories/RecordHistory.h"

namespace app {

class LocalStore;

/// The names of the files of filings begin with it.
inline constexpr std::string_view kFilingPrefix = "filings/";

std::string filingFileName(std::int64_t company);

/// Filings as the library holds them. Those that can't be parsed, because another version wrote
/// them, are left out.
std::vector<kit::FollowedFiling> followedFilings(const std::vector<HistoricRecord>& records);
std::vector<kit::FollowedFiling> filingsOf(LocalStore& store, std::int64_t company);

/// Stores a filing, in place of what was known of it.
void putFiling(LocalStore& store, const kit::FollowedFiling& followed);

/// Logs the signal of a filing that is news, once. A form of insiders is told once it has been
/// read.
void tellFiling(LocalStore& store, const kit::FollowedFiling& followed, kit::Instant now);

/// Records the newest filings of a company. New is what has a new accession number; nothing is
/// told of the first look at a company.
void recordFilingFeed(LocalStore& store, std::int64_t company,
                      const std::vector<kit::Filing>& filings, kit::Instant now);

/// Records the filer's list of the last 400 days: details that the feed lacks, and filings that
/// never were among its newest, such as letters, which are published weeks later under old dates.
void recordFilingList(LocalStore& store, std::int64_t company,
                      const std::vector<kit::Filing>& listed, kit::Instant now);

/// Whether the filer's list should be read again: a day later, and half an hour later while a
/// filing lacks what only the list has.
bool isFilingListDue(LocalStore& store, std::int64_t company,
                     const std::vector<kit::FollowedFiling>& known, kit::Instant now);

}  // namespace app
