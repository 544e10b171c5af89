#include "Tarnwick_Brell/Signals/SignalsRefresh.h"

#include <utility>

#include "NewsroomKit/Trackers/SignalsAPI.h"

namespace app {

using kit::Instant;
using kit::SignalsAPI;
using kit::SigningStatus;

namespace {

// More than a desk follows; people look at others once.
constexpr std::size_t kDevicesKept = 200;

}  // namespace

SignalsRefresh::SignalsRefresh(LocalStore& store, kit::HTTPClient& http, kit::Clock clock)
    : store_(store), fetch_(store, http, std::move(clock)) {}

SignalsRefresh::Result<SigningStatus> SignalsRefresh::signing(std::string_view device) {
    return fetch_.refresh<SigningStatus>(
        signingFile(device), {SignalsAPI::signingAddress(device), SignalsAPI::kByteLimit},
        [this, name = std::string(device)](const auto& before, const auto& status, Instant now) {
            store_.signing().note(name, before, status, now);
            store_.trackerCopies().keepLastAsked(kSigningNames, kDevicesKept);
        });
}

SignalsRefresh::Result<std::vector<kit::UpdateOffer>> SignalsRefresh::updates() {
    return fetch_.refresh<std::vector<kit::UpdateOffer>>(
        updatesFile(), {SignalsAPI::updatesAddress(), SignalsAPI::kByteLimit},
        [this](const auto& before, const auto& offers, Instant now) {
            store_.offers().note(before, offers, now);
        });
}

SignalsRefresh::Result<std::vector<kit::ChartEntry>> SignalsRefresh::chart(
    kit::AppStoreCharts::Kind kind) {
    return fetch_.refresh<std::vector<kit::ChartEntry>>(
        chartFile(kind), {SignalsAPI::chartAddress(kind), SignalsAPI::kByteLimit},
        [this, kind](const auto&, const auto& entries, Instant now) {
            store_.charts().note(kind, entries, now);
        });
}

}  // namespace app
