#pragma once

#include <optional>
#include <string>
#include <utility>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Trackers/CachedValue.h"

namespace kit {

enum class PanelState {
    loading,  ///< nothing is known yet, and nothing has failed
    empty,
    ready,
    stale,  ///< the last good content stays
    failed  ///< nothing was ever good
};

/// Whether a panel has something to show, from when that is, and why it is no newer.
struct PanelCondition {
    PanelState state = PanelState::loading;
    std::optional<Instant> fetchedAt{};
    std::optional<std::string> error{};  ///< of a stale or failed one

    /// There is something to show, were it that there is nothing.
    bool isKnown() const { return state != PanelState::loading && state != PanelState::failed; }

    /// `isKnown`: something was ever fetched, or is in a history.
    static PanelCondition of(bool isKnown, bool hasRows, std::optional<Instant> fetchedAt,
                             std::optional<std::string> error) {
        const auto state = !isKnown  ? (error ? PanelState::failed : PanelState::loading)
                           : error   ? PanelState::stale
                           : hasRows ? PanelState::ready
                                     : PanelState::empty;
        return {state, fetchedAt, std::move(error)};
    }
    template <class T>
    static PanelCondition of(const CachedValue<T>& cached, bool hasRows) {
        return of(cached.value || hasRows, hasRows, cached.fetchedAt, cached.error);
    }

    bool operator==(const PanelCondition&) const = default;
};

}  // namespace kit
