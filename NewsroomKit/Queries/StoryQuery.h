#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Queries/TermFinder.h"
#include "NewsroomKit/Queries/TermMarks.h"
#include "NewsroomKit/Records/RecordHash.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

class CompiledStoryQuery;

/// The conditions of a user's query: words and phrases, sources, sourcing. An empty list is no
/// condition.
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

/// The parts of a story that a query tests, independent of how the story is stored.
struct StoryFacts {
    StoryKind kind = StoryKind::coverage;
    Sourcing sourcing = Sourcing::unlabeled;
    std::string_view sourceID{};
    std::string_view title{};
    std::string_view summary{};

    static StoryFacts of(const Story& story);
};

/// A query prepared for testing many stories. Thread-safe.
class CompiledStoryQuery {
public:
    explicit CompiledStoryQuery(const StoryQuery& query);

    bool matches(const StoryFacts& story) const;
    bool matches(const Story& story) const { return matches(StoryFacts::of(story)); }

    /// The first any-term that the story mentions, in its normalised form; ignores the rest of the
    /// query.
    std::optional<std::string> matchedTerm(const StoryFacts& story) const;
    std::optional<std::string> matchedTerm(const Story& story) const {
        return matchedTerm(StoryFacts::of(story));
    }

    /// Where the any-terms occur in the story, in the same sense.
    TermMarks marks(const StoryFacts& story) const;

private:
    std::vector<PhraseMatcher> any_;
    std::vector<PhraseMatcher> excluded_;
    std::set<std::string, std::less<>> sources_;
    std::set<Sourcing> sourcings_;
    bool includesSetAside_;
    TermFinder terms_;  ///< of any_ and excluded_
};

template <>
struct JSONFields<StoryQuery> {
    static constexpr auto fields = std::tuple{
        field("anyTerms", &StoryQuery::anyTerms),
        field("excludedTerms", &StoryQuery::excludedTerms),
        field("sourceIDs", &StoryQuery::sourceIDs),
        field("sourcings", &StoryQuery::sourcings),
        field("includesSetAside", &StoryQuery::includesSetAside),
    };
};

}  // namespace kit

template <>
struct std::hash<kit::StoryQuery> : kit::RecordHash<kit::StoryQuery> {};
