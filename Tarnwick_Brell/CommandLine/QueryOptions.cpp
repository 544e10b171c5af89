#include "Tarnwick_Brell/CommandLine/QueryOptions.h"

#include <algorithm>

#include "NewsroomKit/Queries/TermList.h"
#include "NewsroomKit/Stories/Sourcing.h"
#include "Tarnwick_Brell/Arguments/Arguments.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

namespace cli {

bool QueryOptions::isGiven() const {
    return !any.empty() || !exclude.empty() || !sources.empty() || !sourcings.empty() || setAside;
}

void QueryOptions::addTo(arguments::Command& command) {
    command.option("--any", any, "Stories that mention one of these, separated by commas")
        .shownAs("TERMS");
    command.option("--exclude", exclude, "Leave out stories that mention one of these")
        .shownAs("TERMS");
    command.option("--source", sources, "Only stories of this source; may be repeated")
        .shownAs("ID");
    command
        .option("--sourcing", sourcings,
                "Only confirmed, onRecord, report, rumor or unlabeled; may be repeated")
        .shownAs("S");
    command.flag("--set-aside", setAside, "Deals, reviews, roundups and advertising too");
}

namespace {

/// Refuses terms that are empty once normalised: they would be dropped, and the list would be no
/// condition.
void requireWords(const std::vector<std::string>& terms) {
    for (const auto& term : terms) {
        if (kit::PhraseMatcher(term).phrase.empty())
            throw WrongUsage("There is no word to search for in \"" + printable(term) + "\".");
    }
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : between) + printable(word);
    return text;
}

}  // namespace

kit::StoryQuery QueryOptions::query() const {
    kit::StoryQuery query{.anyTerms = kit::separatedTerms(any),
                          .excludedTerms = kit::separatedTerms(exclude),
                          .sourceIDs = sources,
                          .includesSetAside = setAside};
    requireWords(query.anyTerms);
    requireWords(query.excludedTerms);
    for (const auto& name : sourcings) {
        const auto sourcing = kit::enumFromRaw<kit::Sourcing>(name);
        if (!sourcing) {
            throw WrongUsage("There is no sourcing named " + name +
                             ": use confirmed, onRecord, report, rumor or unlabeled.");
        }
        query.sourcings.push_back(*sourcing);
    }
    return query;
}

std::string queryText(const kit::StoryQuery& query) {
    std::vector<std::string> parts;
    if (!query.anyTerms.empty()) parts.push_back(joined(query.anyTerms, " or "));
    if (!query.excludedTerms.empty())
        parts.push_back("without " + joined(query.excludedTerms, " or "));
    if (!query.sourceIDs.empty()) parts.push_back("from " + joined(query.sourceIDs, " or "));
    std::vector<std::string> sourcings;
    for (const auto sourcing : query.sourcings) sourcings.emplace_back(rawValue(sourcing));
    if (!sourcings.empty()) parts.push_back("sourced as " + joined(sourcings, " or "));
    if (query.includesSetAside) parts.push_back("deals and reviews too");
    return parts.empty() ? "every story" : joined(parts, ", ");
}

}  // namespace cli
