#pragma once

#include <QString>

#include "Tarnwick_Brell/Desk/PackedStory.h"

/// What a row of the wire says in words.
namespace desk {

inline constexpr int kTitleCharacters = 300;
inline constexpr int kExcerptCharacters = 300;

/// Empty for what needs no label.
QString kindText(newsroom::StoryKind kind);
QString sourcingText(newsroom::Sourcing sourcing);

/// The outlet that the link leads to, when it is another than the source.
QString destinationText(const PackedStory& story);

/// The row as a screen reader says it: marks and labels as words.
QString spokenText(const PackedStory& story, newsroom::Instant now);

}  // namespace desk
