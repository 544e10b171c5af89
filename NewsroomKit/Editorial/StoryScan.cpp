#include "NewsroomKit/Editorial/StoryScan.h"

#include <string>

#include "NewsroomKit/Editorial/PhraseAutomaton.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

using Where = RuleHit::Where;

/// The normalised story as one text, "title summary", and the positions of its parts. The opening
/// is cut between user-perceived characters, so that its normalised form is a prefix of the
/// normalised summary.
struct JoinedText {
    std::string text;
    std::size_t titleEnd;
    std::size_t openingEnd;

    JoinedText(std::string_view title, std::string_view summary) {
        text.reserve(title.size() + 1 + summary.size());
        PhraseMatcher::appendNormalized(title, text);
        titleEnd = text.size();
        text += ' ';
        const std::string_view opening = firstCharacters(summary, openingCharacters);
        PhraseMatcher::appendNormalized(opening, text);
        openingEnd = text.size();
        PhraseMatcher::appendNormalized(summary.substr(opening.size()), text);
    }

    std::string_view untilTitleEnd() const { return {text.data(), titleEnd}; }
    std::string_view untilOpeningEnd() const { return {text.data(), openingEnd}; }

    Where whereIs(std::size_t start, std::size_t end) const {
        if (end <= titleEnd) return Where::title;
        return start > titleEnd ? Where::summary : Where::titleAndSummary;
    }
};

}  // namespace

StoryScan::StoryScan(std::string_view title, std::string_view summary) {
    const JoinedText joined(title, summary);
    PhraseHits exclusions;
    Where exclusionWhere = Where::title;
    const auto visit = [&](const PhraseAutomaton::Ending& ending, std::size_t end) {
        const std::size_t start = end - ending.length;
        const Where where = joined.whereIs(start, end);
        if (ending.table == PhraseTable::kindExclusion) {
            if (exclusions.record(ending.table, ending.phraseIndex)) exclusionWhere = where;
            return;
        }
        // The end of each part counts as the end of a text: what follows in the joined text must
        // neither create nor break a word boundary.
        if (where == Where::title) {
            if (!ending.bounded || standsAsWords(joined.untilTitleEnd(), start, end)) {
                title_.record(ending.table, ending.phraseIndex);
            }
        } else if (where == Where::summary && end <= joined.openingEnd) {
            if (!ending.bounded || standsAsWords(joined.untilOpeningEnd(), start, end)) {
                opening_.record(ending.table, ending.phraseIndex);
            }
        }
    };
    phraseAutomaton().scan(joined.text, visit);
    exclusion_ = ruleHit(PhraseTable::kindExclusion, exclusions, exclusionWhere);
}

}  // namespace kit
