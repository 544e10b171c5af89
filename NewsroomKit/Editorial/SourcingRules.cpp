#include "NewsroomKit/Editorial/SourcingRules.h"

#include "NewsroomKit/Editorial/StoryScan.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

using Where = RuleHit::Where;

/// The label that the headline alone gives; unlabeled when it doesn't decide.
SourcingDecision fromTitle(const PhraseHits& title, bool rumorsCount) {
    const auto hit = [&](PhraseTable table) { return ruleHit(table, title, Where::title); };
    if (rumorsCount) {
        if (auto why = hit(PhraseTable::rumor)) return {.sourcing = Sourcing::rumor, .why = why};
    }
    if (auto why = hit(PhraseTable::report)) return {.sourcing = Sourcing::report, .why = why};
    if (auto why = hit(PhraseTable::appleSpeaks)) {
        return {.sourcing = Sourcing::onRecord, .why = why};
    }
    const auto spokesperson = hit(PhraseTable::spokesperson);
    const auto speech = hit(PhraseTable::speech);
    if (spokesperson && speech) {
        return {.sourcing = Sourcing::onRecord, .why = spokesperson, .speech = speech};
    }
    if (auto why = hit(PhraseTable::release)) return {.sourcing = Sourcing::confirmed, .why = why};
    return {};
}

SourcingDecision fromOpening(const PhraseHits& opening, bool rumorsCount) {
    const auto hit = [&](PhraseTable table) { return ruleHit(table, opening, Where::summary); };
    if (rumorsCount) {
        if (auto why = hit(PhraseTable::rumor)) return {.sourcing = Sourcing::rumor, .why = why};
    }
    if (auto why = hit(PhraseTable::report)) return {.sourcing = Sourcing::report, .why = why};
    return {};
}

}  // namespace

Sourcing SourcingRules::classify(std::string_view title, std::string_view summary,
                                 bool isAppleSource) {
    return explain(title, summary, isAppleSource).sourcing;
}

SourcingDecision SourcingRules::explain(std::string_view title, std::string_view summary,
                                        bool isAppleSource) {
    if (isAppleSource) return explainAppleSource();
    return explain(StoryScan(title, firstCharacters(summary, openingCharacters)));
}

SourcingDecision SourcingRules::explain(const StoryScan& scan) {
    const auto fulfilled = ruleHit(PhraseTable::fulfilledRumor, scan.title(), Where::title);
    SourcingDecision decision = fromTitle(scan.title(), !fulfilled);
    if (!decision.why) decision = fromOpening(scan.opening(), !fulfilled);
    decision.rumorsTurnedOffBy = fulfilled;
    return decision;
}

SourcingDecision SourcingRules::explainAppleSource() {
    return {.sourcing = Sourcing::confirmed,
            .why = RuleHit{.table = "sources of Apple", .phrase = "", .where = Where::source}};
}

}  // namespace kit
