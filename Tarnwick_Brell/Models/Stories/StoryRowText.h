#pragma once

#include <QString>

#include "Tarnwick_Brell/Desk/PackedStory.h"

/// What a row of the wire says in words.
namespace app {

/// Empty for what needs no label.
QString kindText(kit::StoryKind kind);
QString sourcingText(kit::Sourcing sourcing);

/// The outlet that the link leads to, when it is another than the source.
QString destinationText(const PackedStory& story);

/// How long after the first story of the same news another one came: "+3 min".
QString delayText(kit::Instant::duration delay);

/// The row as a screen reader says it: marks and labels as words.
QString spokenText(const PackedStory& story, kit::Instant now);

}  // namespace app
