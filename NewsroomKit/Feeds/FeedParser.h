#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/Feeds/FeedEntry.h"
#include "NewsroomKit/Feeds/WorkLimit.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

enum class FeedParserError { notAFeed, malformed };

template <>
inline constexpr std::array<EnumRow<FeedParserError>, 2> enumTable<FeedParserError>{{
    {FeedParserError::notAFeed, "notAFeed", "The address didn't return a feed."},
    {FeedParserError::malformed, "malformed", "The feed couldn't be read."},
}};

constexpr std::string_view description(FeedParserError error) { return label(error); }

struct ParsedFeed {
    std::string title;               ///< the feed's own name as plain text; empty when it has none
    std::vector<FeedEntry> entries;  ///< in document order
    bool reachedLimit = false;       ///< the document may hold more entries

    bool operator==(const ParsedFeed&) const = default;
};

using ParsedFeedResult = boost::outcome_v2::unchecked<ParsedFeed, FeedParserError>;

/// A feed yields at most this many entries, the first ones in the document.
inline constexpr std::size_t feedEntryLimit = 150;

/// Reads RSS 2.0, RSS 1.0 and Atom in any encoding. Harmless violations of XML are tolerated (see
/// FeedEncoding.h and XMLSanitizer.h), and HTML's entity names are known; any other error makes the
/// whole feed `malformed`, also after valid entries. A document without a feed element is
/// `notAFeed`. Nothing outside `bytes` is ever read, and time and memory grow only with the size of
/// the document. Whatever would break that is `malformed`: far more names, attributes or namespaces
/// than feeds use, a long DTD, attributes' default values, entities that expand to megabytes.
///
/// Relative addresses are completed (see AddressBase.h); `address` is where the document was
/// fetched from, when that is known. A feed whose reading reaches `limit` is `malformed`.
ParsedFeedResult parseFeed(std::string_view bytes, std::string_view address = {},
                           const WorkLimit& limit = {});

}  // namespace kit
