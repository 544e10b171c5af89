#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Feeds/XMLTree.h"
#include "NewsroomKit/Filings/Filing.h"
#include "NewsroomKit/Records/Codec.h"

/// The parts of the SEC's answers, a reader each.
namespace kit {

/// A filer's submissions, which name it; or one of their older pages, which do not. Nothing for
/// other JSON. Throws RecordError when the columns do not fit each other.
std::optional<std::vector<Filing>> submissionsFilings(const json::object& answer);

/// A company's feed or the feed of the latest filings. Nothing for other feeds.
std::optional<std::vector<Filing>> feedFilings(const XMLElement& feed);

/// What a web page of the SEC's says instead of an answer; nothing when it is no web page.
std::optional<FilingsError> refusalInPage(std::string_view bytes);

/// "0000320193-26-000012" when the text is such a number.
bool isAccessionNumber(std::string_view text);

/// The page of a filing for people to read.
std::string indexAddress(std::int64_t cik, std::string_view accession);
std::string documentAddress(std::int64_t cik, std::string_view accession,
                            std::string_view document);

/// The number in "0000320193"; nothing when it is none.
std::optional<std::int64_t> cikFrom(std::string_view text);

/// The day at the begin of "2024-07-19-05:00"; nothing when there is none.
std::optional<std::string> formDay(std::string_view text);

/// The day in "04/13/2023".
std::optional<std::string> noticeDay(std::string_view text);

/// Nothing unless the whole text is a finite number.
std::optional<double> formNumber(std::string_view text);

/// The XML document whose root has the given name: the text itself, or a part of a whole
/// submission, in which each document stands between "<XML>" and "</XML>".
boost::outcome_v2::unchecked<XMLElement, FilingsError> formDocument(std::string_view bytes,
                                                                    std::string_view root);

}  // namespace kit
