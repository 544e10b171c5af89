#pragma once

#include <cstddef>

#include "NewsroomKit/Newsrooms/Beat.h"
#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace kit {

/// What a newsroom made or taken in may hold at most. Reading a stored one knows no limits;
/// these keep a file from filling the library or the screen.
namespace NewsroomLimits {

inline constexpr std::size_t kFileBytes = 1 << 20;
inline constexpr std::size_t kPanels = 100;
inline constexpr std::size_t kListEntries = 200;     ///< of any list in a query or in options
inline constexpr std::size_t kLineCharacters = 200;  ///< names, titles, terms
inline constexpr std::size_t kAddressCharacters = 2048;
inline constexpr std::size_t kPromptCharacters = 4000;

/// Throws RecordError with the path of the first text or list that is too long, of a text
/// with control characters or with marks that turn the direction of the text around it, of
/// an empty name, or of an id that two panels share.
void require(const NewsroomSpec& spec);

/// The same for a beat.
void require(const Beat& beat);

}  // namespace NewsroomLimits

}  // namespace kit
