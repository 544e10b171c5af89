#pragma once

#include <cstddef>

#include "NewsroomKit/Newsrooms/Beat.h"
#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace kit {

/// Limits of a newsroom that is created or imported, which keep a file from filling the library or
/// the screen. Stored newsrooms are read without limits.
namespace NewsroomLimits {

inline constexpr std::size_t kFileBytes = 1 << 20;
inline constexpr std::size_t kPanels = 100;
inline constexpr std::size_t kListEntries = 200;     ///< per list in a query or in options
inline constexpr std::size_t kLineCharacters = 200;  ///< names, titles, terms
inline constexpr std::size_t kAddressCharacters = 2048;
inline constexpr std::size_t kPromptCharacters = 4000;

/// Throws RecordError with the path of the first text or list that is too long, of a text with
/// control characters or marks that change the text direction, of an empty name, or of an id that
/// two panels share.
void require(const NewsroomSpec& spec);

/// The same for a beat.
void require(const Beat& beat);

}  // namespace NewsroomLimits

}  // namespace kit
