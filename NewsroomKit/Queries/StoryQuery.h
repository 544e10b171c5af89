#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Stories/Story.h"

namespace newsroom {

class CompiledStoryQuery;

/// Which stories of the wire are wanted, as a person writes it: words and phrases, sources,
/// sourcing. A list that is empty asks for nothing.
struct StoryQuery {
    std::vector<std::string> anyTerms{};       ///< a story mentions at least one of them
    std::vector<std::string> excludedTerms{};  ///< a story that mentions one never matches
    std::vector<std::string> sourceIDs{};
    std::vector<Sourcing> sourcings{};
    bool includesSetAside = false;  ///< deals, reviews, roundups and advertising too

    /// All four lists are empty.
    bool isEmpty() const;

    CompiledStoryQuery compiled() const;

    bool operator==(const StoryQuery&) const = default;
};

/// A query made ready to be tested against many stories.
class CompiledStoryQuery {
public:
    explicit CompiledStoryQuery(const StoryQuery& query);

    bool matches(const Story& story) const;

    /// The first of the any-terms that the story mentions, as it is compared; looks at
    /// nothing else of the query.
    std::optional<std::string> matchedTerm(const Story& story) const;

private:
    std::vector<PhraseMatcher> any_;
    std::vector<PhraseMatcher> excluded_;
    std::set<std::string, std::less<>> sources_;
    std::set<Sourcing> sourcings_;
    bool includesSetAside_;
};

template <>
struct RecordShape<StoryQuery> {
    static constexpr auto fields = std::tuple{
        field("anyTerms", &StoryQuery::anyTerms),
        field("excludedTerms", &StoryQuery::excludedTerms),
        field("sourceIDs", &StoryQuery::sourceIDs),
        field("sourcings", &StoryQuery::sourcings),
        field("includesSetAside", &StoryQuery::includesSetAside),
    };
};

}  // namespace newsroom
