#include "NewsroomKit/Queries/StoryQuery.h"

#include <utility>

namespace kit {

namespace {

/// Drops blank terms, which match nothing and would make an empty list a condition.
std::vector<PhraseMatcher> matchersFor(const std::vector<std::string>& terms) {
    std::vector<PhraseMatcher> matchers;
    for (const auto& term : terms) {
        PhraseMatcher matcher(term);
        if (!matcher.phrase.empty()) matchers.push_back(std::move(matcher));
    }
    return matchers;
}

}  // namespace

bool StoryQuery::isEmpty() const {
    return anyTerms.empty() && excludedTerms.empty() && sourceIDs.empty() && sourcings.empty();
}

CompiledStoryQuery StoryQuery::compiled() const { return CompiledStoryQuery(*this); }

CompiledStoryQuery::CompiledStoryQuery(const StoryQuery& query)
    : any_(matchersFor(query.anyTerms)),
      excluded_(matchersFor(query.excludedTerms)),
      sources_(query.sourceIDs.begin(), query.sourceIDs.end()),
      sourcings_(query.sourcings.begin(), query.sourcings.end()),
      includesSetAside_(query.includesSetAside),
      terms_(any_, excluded_) {}

StoryFacts StoryFacts::of(const Story& story) {
    return {.kind = story.kind,
            .sourcing = story.sourcing,
            .sourceID = story.sourceID,
            .title = story.title,
            .summary = story.summary};
}

bool CompiledStoryQuery::matches(const StoryFacts& story) const {
    // 1. to 3. The cheap tests come before any text is scanned.
    if (!includesSetAside_ && isSetAside(story.kind)) return false;
    if (!sources_.empty() && !sources_.contains(story.sourceID)) return false;
    if (!sourcings_.empty() && !sourcings_.contains(story.sourcing)) return false;

    // 4. to 8. An excluded term outranks every other.
    if (any_.empty() && excluded_.empty()) return true;
    return terms_.admits(story.title, story.summary);
}

std::optional<std::string> CompiledStoryQuery::matchedTerm(const StoryFacts& story) const {
    if (any_.empty()) return std::nullopt;
    const auto first = terms_.firstAny(story.title, story.summary);
    return first ? std::optional(any_[*first].phrase) : std::nullopt;
}

TermMarks CompiledStoryQuery::marks(const StoryFacts& story) const {
    return termMarks(any_, story.title, story.summary);
}

}  // namespace kit
