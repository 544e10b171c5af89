#include "NewsroomKit/Editorial/RuleHit.h"

namespace kit {

std::optional<RuleHit> ruleHit(PhraseTable table, const PhraseHits& hits, RuleHit::Where where) {
    const auto phrase = hits.first(table);
    if (!phrase) return std::nullopt;
    return RuleHit{.table = tableName(table), .phrase = *phrase, .where = where};
}

}  // namespace kit
