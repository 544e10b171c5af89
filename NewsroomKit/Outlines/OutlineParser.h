#pragma once

#include <cstddef>
#include <string_view>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/Outlines/Outlines.h"

namespace kit {

inline constexpr std::size_t outlineByteLimit = 5'000'000;
inline constexpr std::size_t outlineLimit = 5'000;  ///< folders count
inline constexpr std::size_t outlineDepthLimit = 100;

enum class OutlineError { notOutlines, malformed, tooLarge, tooMany };

template <>
inline constexpr std::array<EnumRow<OutlineError>, 4> enumTable<OutlineError>{{
    {OutlineError::notOutlines, "notOutlines", "The file is not a list of feeds (OPML)."},
    {OutlineError::malformed, "malformed", "The list of feeds is damaged or incomplete."},
    {OutlineError::tooLarge, "tooLarge", "The file is larger than 5 MB."},
    {OutlineError::tooMany, "tooMany", "The list has more than 5,000 entries."},
}};

constexpr std::string_view description(OutlineError error) { return label(error); }

using OutlinesResult = boost::outcome_v2::unchecked<Outlines, OutlineError>;

/// Reads OPML in any encoding, as other programs write it. Only https feeds are accepted; other
/// entries are reported with a reason, except for folders without a feed. Included lists are not
/// followed: nothing outside `bytes` is ever read, declarations of the document are ignored, and
/// time and memory grow only with its size.
OutlinesResult parseOutlines(std::string_view bytes);

}  // namespace kit
