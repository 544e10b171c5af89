#include "NewsroomKit/Queries/StoryQuery.h"

#include <algorithm>

namespace newsroom {

namespace {

/// Blank terms are dropped: they would match nothing and turn a list into a condition.
std::vector<PhraseMatcher> matchersFor(const std::vector<std::string>& terms) {
    std::vector<PhraseMatcher> matchers;
    for (const auto& term : terms) {
        PhraseMatcher matcher(term);
        if (!matcher.phrase.empty()) matchers.push_back(std::move(matcher));
    }
    return matchers;
}

/// The line break keeps a term from matching across the seam of title and summary.
std::string searchedText(const Story& story) {
    return PhraseMatcher::normalize(story.title + " \n " + story.summary);
}

bool mentions(const std::vector<PhraseMatcher>& matchers, const std::string& text) {
    return std::any_of(matchers.begin(), matchers.end(),
                       [&](const PhraseMatcher& matcher) { return matcher.matches(text); });
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
      includesSetAside_(query.includesSetAside) {}

bool CompiledStoryQuery::matches(const Story& story) const {
    // 1. to 3. The cheap tests come before any text is folded.
    if (!includesSetAside_ && isSetAside(story.kind)) return false;
    if (!sources_.empty() && !sources_.contains(story.sourceID)) return false;
    if (!sourcings_.empty() && !sourcings_.contains(story.sourcing)) return false;

    // 4. to 8. An excluded term outranks every other.
    if (any_.empty() && excluded_.empty()) return true;
    const auto text = searchedText(story);
    if (mentions(excluded_, text)) return false;
    return any_.empty() || mentions(any_, text);
}

std::optional<std::string> CompiledStoryQuery::matchedTerm(const Story& story) const {
    if (any_.empty()) return std::nullopt;
    const auto text = searchedText(story);
    for (const auto& matcher : any_) {
        if (matcher.matches(text)) return matcher.phrase;
    }
    return std::nullopt;
}

}  // namespace newsroom
