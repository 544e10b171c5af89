#pragma once

#include <cstddef>
#include <vector>

#include "tests/support/LabelledHeadlines.h"

/// What simpler ways to cluster headlines achieve.
namespace baselines {

using Parts = std::vector<std::size_t>;

Parts sameTitle(const test::LabelledHeadlines& labelled);

/// Titles whose sets of words overlap by at least `least`, in chains, within 48 hours.
Parts jaccard(const test::LabelledHeadlines& labelled, double least);

/// Likewise by the cosine of the titles' words, weighted by their rarity in the set itself.
Parts tfidf(const test::LabelledHeadlines& labelled, double least);

}  // namespace baselines
