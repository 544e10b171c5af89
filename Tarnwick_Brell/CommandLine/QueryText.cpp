#include "Tarnwick_Brell/CommandLine/QueryText.h"

#include "NewsroomKit/Stories/Sourcing.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

namespace cli {

namespace {

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : between) + printable(word);
    return text;
}

}  // namespace

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
