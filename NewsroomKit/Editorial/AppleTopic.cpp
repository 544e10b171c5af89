#include "NewsroomKit/Editorial/AppleTopic.h"

#include "NewsroomKit/Editorial/PhraseAutomaton.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"

namespace kit {

bool AppleTopic::matches(std::string_view text) { return explain(text).has_value(); }

std::optional<RuleHit> AppleTopic::explain(std::string_view text) {
    return ruleHit(PhraseTable::appleTopic, findPhrases(PhraseMatcher::normalize(text)),
                   RuleHit::Where::text);
}

}  // namespace kit
