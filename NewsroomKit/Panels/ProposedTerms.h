#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"

namespace kit {

/// What to follow of a story's news, by its headline: product names, and the names of people,
/// companies and places, in the headline's order. Capital letters say nothing in a headline that
/// capitalises nearly every word; from such a one only names with digits or with capitals inside
/// are taken, and known products. Empty when the headline has no name.
std::vector<std::string> proposedTerms(std::string_view title);

inline constexpr std::size_t kMostProposedTerms = 8;

struct ProposedTerm {
    std::string term{};
    std::size_t stories = 0;  ///< whose headlines name it

    bool operator==(const ProposedTerm&) const = default;
};

/// What to add to a query: the names that most headlines of its stories share, most first. A term
/// that mentions one of the query's own words would find nothing new and is left out, and so is
/// one that it excludes. `stories` match the query, newest first; of many only the newest count.
std::vector<ProposedTerm> proposedTerms(std::span<const PanelStory> stories,
                                        const StoryQuery& query);

}  // namespace kit
