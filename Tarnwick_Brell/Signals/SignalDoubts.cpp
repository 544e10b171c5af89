#include "Tarnwick_Brell/Signals/SignalDoubts.h"

#include <algorithm>

namespace app {

using kit::ChartEntry;
using kit::SignedBuild;
using kit::SigningStatus;
using kit::UpdateOffer;

namespace {

bool areOne(const SignedBuild& one, const SignedBuild& other) {
    return one.build == other.build && one.version == other.version;
}

bool areOne(const UpdateOffer& one, const UpdateOffer& other) {
    return one.build == other.build && one.version == other.version &&
           one.platform == other.platform;
}

bool isSigned(const SigningStatus& status, const SignedBuild& build) {
    return std::ranges::any_of(
        status.builds, [&](const auto& other) { return other.isSigned && areOne(build, other); });
}

}  // namespace

std::optional<SigningStatus> mended(const SigningStatus& before, const SigningStatus& latest) {
    auto whole = latest;
    bool isMended = false;
    auto place = whole.builds.begin();
    for (const auto& build : before.builds) {
        auto now = std::ranges::find_if(whole.builds,
                                        [&](const auto& other) { return areOne(build, other); });
        if (now == whole.builds.end()) {
            now = whole.builds.insert(place, build);
            isMended = true;
        } else if (build.isSigned && !isSigned(latest, build)) {
            // Some builds are listed twice: one listing that says so is enough.
            now->isSigned = true;
            isMended = true;
        }
        // What is lacking comes back behind the build that it stood behind.
        place = now + 1;
    }
    return isMended ? std::optional(std::move(whole)) : std::nullopt;
}

std::optional<std::vector<UpdateOffer>> mended(const std::vector<UpdateOffer>& before,
                                               const std::vector<UpdateOffer>& latest) {
    auto whole = latest;
    for (const auto& offer : before) {
        const bool isThere =
            std::ranges::any_of(latest, [&](const auto& other) { return areOne(offer, other); });
        if (!isThere) whole.push_back(offer);
    }
    if (whole.size() == latest.size()) return std::nullopt;
    std::ranges::stable_sort(whole, kit::AppleUpdateCatalog::standsAhead);
    return whole;
}

std::optional<std::vector<ChartEntry>> mended(const std::vector<ChartEntry>& before,
                                              const std::vector<ChartEntry>& latest) {
    return latest.size() < before.size() ? std::optional(before) : std::nullopt;
}

}  // namespace app
