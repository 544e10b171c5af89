#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Stories/Story.h"

/// Invented stories and a query for measuring.
namespace benchmarks {

/// Titles of about 80 characters, summaries of about 250; a third of the stories with curly
/// quotes, dashes and accents. The same for the same seed, with every compiler.
std::vector<kit::Story> storySamples(std::size_t count, unsigned seed);

/// 20 terms, of which one story in ten mentions at least one.
kit::StoryQuery twentyTerms();

/// Two or three terms of a beat; each `which` gives another choice.
kit::StoryQuery beat(std::size_t which);

}  // namespace benchmarks
