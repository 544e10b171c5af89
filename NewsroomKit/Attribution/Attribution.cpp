#include "NewsroomKit/Attribution/Attribution.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <vector>

#include "NewsroomKit/Attribution/AttributionSentence.h"
#include "NewsroomKit/Attribution/CreditedOrigin.h"
#include "NewsroomKit/Attribution/Telling.h"
#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Attribution/TimeOrder.h"
#include "NewsroomKit/Editorial/AppleOrigin.h"
#include "NewsroomKit/Stories/CanonicalLink.h"

namespace kit {

namespace {

using Basis = Attribution::Basis;
using Confidence = Attribution::Confidence;

const CorrectionOverlay::First* correctionOf(const AttributionEvidence& evidence) {
    if (!evidence.corrections) return nullptr;
    std::vector<std::string_view> ids;
    for (const auto* story : evidence.stories) ids.push_back(story->id);
    return evidence.corrections->firstOf(ids);
}

/// Fills in what the first outlet's own telling says: its story, its time, who came next.
void addTimes(Attribution& attribution, const Telling* own, std::span<const Telling> tellings) {
    if (!own) return;
    if (own->story) attribution.story = own->story->id;
    attribution.at = own->at;
    const auto* next = nextAfter(tellings, *own);
    if (!next) return;
    attribution.second = next->outlet;
    if (own->isDayOnly || next->isDayOnly) return;
    const auto lead = std::chrono::floor<std::chrono::seconds>(next->at - own->at).count();
    if (lead > 0) attribution.lead = lead;
}

/// The outlet's story on the wire at the link that proves it, else its earliest telling.
Telling provenTelling(const CorrectionOverlay::First& first, std::span<const Telling> tellings) {
    const auto key = outletKey(first.outlet);
    Telling proven{.outlet = first.outlet, .key = key};
    if (const auto* own = earliestOf(tellings, key)) proven = *own;
    const auto link = first.link ? canonicalLink(*first.link) : "";
    for (const auto& telling : tellings) {
        if (telling.story && telling.story->link == link) proven = telling;
    }
    proven.outlet = first.outlet;
    proven.key = key;
    if (first.at) {
        proven.at = *first.at;
        proven.isDayOnly = isDayStamp(*first.at);
    }
    return proven;
}

Attribution byCorrection(const CorrectionOverlay::First& first, std::span<const Telling> tellings) {
    Attribution attribution{
        .first = first.outlet, .confidence = Confidence::stated, .basis = Basis::correction};
    const auto proven = provenTelling(first, tellings);
    if (proven.at != Instant()) addTimes(attribution, &proven, tellings);
    return attribution;
}

Attribution byCredit(const CreditedOrigin& origin, std::span<const Telling> tellings) {
    Attribution attribution{.basis = Basis::credit};
    if (origin.outlet.empty()) return attribution;
    attribution.first = origin.outlet;
    attribution.confidence = origin.isLinked ? Confidence::stated : Confidence::unclear;
    addTimes(attribution, earliestOf(tellings, origin.key), tellings);
    if (attribution.confidence == Confidence::unclear) attribution.lead.reset();
    return attribution;
}

Attribution byTime(const FirstByTime& found, std::span<const Telling> tellings) {
    if (!found.first) return {};
    Attribution attribution{.first = found.first->outlet,
                            .confidence = found.isSure ? Confidence::timed : Confidence::unclear,
                            .basis = found.first->basis};
    addTimes(attribution, found.first, tellings);
    // On the wire too, though the archive or the trace has the earlier time.
    const auto onWire = std::ranges::find_if(tellings, [&](const Telling& telling) {
        return telling.story && telling.key == found.first->key && !telling.isSecondHand;
    });
    if (!attribution.story && onWire != tellings.end()) attribution.story = onWire->story->id;
    return attribution;
}

/// An outlet that is named without a link agrees with the times, or leaves the matter unclear.
Attribution byEvidence(std::span<const Telling> tellings) {
    const auto origin = creditedOrigin(tellings);
    if (origin && origin->isLinked) return byCredit(*origin, tellings);
    const auto timed = firstByTime(tellings);
    if (!origin || (timed.isSure && timed.first->key == origin->key))
        return byTime(timed, tellings);
    return byCredit(*origin, tellings);
}

/// The story by whose labels the scoop is judged: the first outlet's own, or where that is not on
/// the wire the earliest one that passes it on.
const Story* judgedStory(const Attribution& attribution, std::span<const Telling> tellings) {
    const Telling* judged = nullptr;
    for (const auto& telling : tellings) {
        if (!telling.story) continue;
        if (attribution.story == telling.story->id) return telling.story;
        if (!judged || telling.at < judged->at) judged = &telling;
    }
    return judged ? judged->story : nullptr;
}

bool isScoop(const Attribution& attribution, const AttributionEvidence& evidence,
             std::span<const Telling> tellings) {
    if (!attribution.first || attribution.confidence == Confidence::unclear) return false;
    const auto key = outletKey(*attribution.first);
    if (key == outletKey(kAppleOutlet)) return false;
    const bool isFollowed =
        attribution.creditedBy > 0 ||
        std::ranges::any_of(tellings, [&](const Telling& telling) { return telling.key != key; });
    if (!isFollowed) return false;
    const auto* story = judgedStory(attribution, tellings);
    if (!story) return true;
    if (story->sourcing == Sourcing::confirmed || story->sourcing == Sourcing::onRecord)
        return false;
    if (AppleOrigin::isAppleOnRecord(*story)) return false;
    const bool appleTells =
        std::ranges::any_of(evidence.stories, [](const Story* s) { return s->isAppleSource; });
    return !appleTells || story->sourcing == Sourcing::report || story->sourcing == Sourcing::rumor;
}

}  // namespace

Attribution attributionOf(const AttributionEvidence& evidence) {
    const auto tellings = tellingsOf(evidence);
    const auto* correction = correctionOf(evidence);
    auto attribution = correction ? byCorrection(*correction, tellings) : byEvidence(tellings);
    if (attribution.first)
        attribution.creditedBy = creditingOutlets(tellings, outletKey(*attribution.first));
    attribution.scoop = isScoop(attribution, evidence, tellings);
    attribution.sentence = attributionSentence(attribution);
    return attribution;
}

}  // namespace kit
