#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Court/DocketSheet.h"
#include "NewsroomKit/Feeds/FeedTree.h"
#include "NewsroomKit/Feeds/XMLTree.h"
#include "NewsroomKit/Records/Codec.h"

/// The forms in which docket entries are published, a reader each. parseDocket chooses.
namespace kit {

inline constexpr std::string_view courtListenerSite = "https://www.courtlistener.com";

/// A feed that a court makes itself from its case files (CM/ECF).
DocketSheet courtFeedSheet(const FeedTree& feed);

/// CourtListener's feed of one docket: its newest 30 entries.
DocketSheet courtListenerSheet(const FeedTree& feed);

/// An answer of CourtListener's API, or what it posts to webhooks. Nothing for other JSON.
std::optional<DocketSheet> courtListenerSheet(const json::object& answer);

/// A docket as RECAP stores it in the Internet Archive.
DocketSheet archivedSheet(const XMLElement& docket);

/// Names are published with their references escaped once more than the document needs
/// ("Food &amp;amp; Water"), cut, and padded with white space. Nothing when nothing is left.
std::optional<std::string> courtName(std::string_view text);

/// Nothing unless the text is an address of the web.
std::optional<std::string> webLink(std::string_view text);

/// The court in a path like "recap/gov.uscourts.cand.364265/…" or in the name of a host like
/// "ecf.cand.uscourts.gov"; nothing in others.
std::optional<std::string> courtOfDocument(std::string_view address);

/// Where PACER sells a document.
std::string pacerLink(std::string_view court, std::string_view document);

/// Midnight of a day "2026-03-31"; nothing when it is none.
std::optional<Instant> docketDay(std::string_view text);

/// Sets kind, text and weight from the words of an entry. A heading may be empty.
void setWords(DocketEntry& entry, std::string_view text, std::string_view heading = {});

}  // namespace kit
