#include "NewsroomKit/Trackers/Updates/OfferSignals.h"

#include <algorithm>
#include <set>
#include <string>
#include <tuple>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Trackers/Signing/SigningNews.h"
#include "NewsroomKit/Trackers/SignalsAPI.h"

namespace kit {

namespace {

using OfferKey = std::tuple<std::string, std::string, std::string>;

OfferKey keyOf(const UpdateOffer& offer) { return {offer.platform, offer.version, offer.build}; }

/// The offers that are not among the others, each once.
void addMissing(std::vector<OfferChange>& changes, const std::vector<UpdateOffer>& others,
                const std::vector<UpdateOffer>& offers, bool isOffered, Instant now) {
    std::set<OfferKey> known;
    for (const auto& offer : others) known.insert(keyOf(offer));
    for (const auto& offer : offers) {
        if (known.insert(keyOf(offer)).second) changes.push_back({offer, isOffered, now});
    }
}

SignalEvent eventOf(const OfferChange& change, std::span<const OfferChange> changes) {
    if (change.isOffered) return SignalEvent::updateOffered;
    const bool isReplaced = std::ranges::any_of(changes, [&](const OfferChange& other) {
        return other.isOffered && other.seenAt == change.seenAt &&
               other.offer.platform == change.offer.platform;
    });
    return isReplaced ? SignalEvent::updateReplaced : SignalEvent::updateWithdrawn;
}

}  // namespace

std::vector<OfferChange> offerChanges(const std::optional<std::vector<UpdateOffer>>& before,
                                      const std::vector<UpdateOffer>& after, Instant now) {
    std::vector<OfferChange> changes;
    if (!before) return changes;
    addMissing(changes, after, *before, false, now);
    addMissing(changes, *before, after, true, now);
    return changes;
}

std::vector<Signal> signalsOf(std::span<const OfferChange> changes) {
    std::vector<Signal> found;
    for (const auto& change : changes) {
        const auto& offer = change.offer;
        auto signal = signalOf(eventOf(change, changes));
        signal.id = "update|" + offer.platform + "|" + offer.version + "|" + offer.build +
                    (change.isOffered ? "|1|" : "|0|") + signalDay(change.seenAt);
        signal.subject = offer.platform;
        signal.title = titleOf(change);
        signal.seenAt = change.seenAt;
        if (change.isOffered) {
            signal.detail = "For " + std::to_string(offer.deviceCount) +
                            (offer.deviceCount == 1 ? " model" : " models");
            signal.happenedAt = offer.posted;
            signal.dayOnly = true;
        }
        signal.evidence = {{"version", offer.version},
                           {"build", offer.build},
                           {"before", change.isOffered ? "not offered" : "offered"},
                           {"after", change.isOffered ? "offered" : "not offered"},
                           {"readAt", SignalsAPI::updatesAddress()}};
        found.push_back(std::move(signal));
    }
    return found;
}

}  // namespace kit
