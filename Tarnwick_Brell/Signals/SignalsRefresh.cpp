#include "Tarnwick_Brell/Signals/SignalsRefresh.h"

#include <utility>

#include "NewsroomKit/Signals/SignalsAPI.h"

namespace desk {

using newsroom::Instant;
using newsroom::SignalsAPI;
using newsroom::SigningStatus;

namespace {

// More than a desk follows; people look at others once.
constexpr std::size_t kDevicesKept = 200;

}  // namespace

SignalsRefresh::SignalsRefresh(LocalStore& store, newsroom::HTTPClient& http,
                               TrackedFetch::Clock clock)
    : store_(store), fetch_(store, http, std::move(clock)) {}

SignalsRefresh::Result<SigningStatus> SignalsRefresh::signing(std::string_view device) {
    return fetch_.refresh<SigningStatus>(
        signingFile(device), {SignalsAPI::signingAddress(device), SignalsAPI::kByteLimit},
        [this, name = std::string(device)](const auto& before, const auto& status, Instant now) {
            store_.signing().note(name, before, status, now);
            store_.trackerCopies().keepLastAsked(kSigningNames, kDevicesKept);
        });
}

SignalsRefresh::Result<std::vector<newsroom::UpdateOffer>> SignalsRefresh::updates() {
    return fetch_.refresh<std::vector<newsroom::UpdateOffer>>(
        updatesFile(), {SignalsAPI::updatesAddress(), SignalsAPI::kByteLimit},
        [this](const auto& before, const auto& offers, Instant now) {
            store_.offers().note(before, offers, now);
        });
}

SignalsRefresh::Result<std::vector<newsroom::ChartEntry>> SignalsRefresh::chart(
    newsroom::AppStoreCharts::Kind kind) {
    return fetch_.refresh<std::vector<newsroom::ChartEntry>>(
        chartFile(kind), {SignalsAPI::chartAddress(kind), SignalsAPI::kByteLimit},
        [this, kind](const auto&, const auto& entries, Instant now) {
            store_.charts().note(kind, entries, now);
        });
}

}  // namespace desk
