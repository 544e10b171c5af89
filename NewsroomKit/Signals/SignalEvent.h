#pragma once

#include <array>
#include <cstddef>

#include "NewsroomKit/Signals/Signal.h"

namespace kit {

/// What can happen, as far as it decides how much a signal matters.
enum class SignalEvent {
    publicRelease,
    betaRelease,
    serviceOutage,
    serviceIssue,
    serviceMaintenance,
    serviceRestored,
    servicePastProblem,  ///< over when it was first seen
    signingEnded,
    signingBegan,
    updateOffered,
    updateWithdrawn,
    updateReplaced,  ///< another build of the platform came in the same answer
    chartLeader,
    chartTopTen,
    chartTopTenOfApple,
    docketEntry,  ///< of a kind that matters
    docketRoutine,
    docketNewCase,   ///< with Apple as a party
    docketReadable,  ///< a stub that got its text
    pressRelease,
    pressReleaseOfApple,
    filingMajor,
    filingNotable,
    filingRoutine,
    saleNotice,
    insiderDecision,  ///< bought, sold, gave away
    insiderRoutine,   ///< grants, vesting, tax
    backendFinding,
    backendRemoval,     ///< of what was there for long
    backendIdentifier,  ///< of a device that no file has named before
    pageChanged,
    pageEdited,      ///< in punctuation, or where links lead
    pageReturned,    ///< to an earlier text
    pageUnreadable,  ///< several looks in a row have failed
    priceMove,       ///< unusually far in a day
};

struct SignalEventRow {
    SignalEvent value;
    SignalKind kind;
    SignalWeight weight;
};

/// The one table of weights, in the order of the events.
inline constexpr std::array kSignalEvents{
    SignalEventRow{SignalEvent::publicRelease, SignalKind::release, SignalWeight::major},
    SignalEventRow{SignalEvent::betaRelease, SignalKind::release, SignalWeight::notable},
    SignalEventRow{SignalEvent::serviceOutage, SignalKind::service, SignalWeight::major},
    SignalEventRow{SignalEvent::serviceIssue, SignalKind::service, SignalWeight::notable},
    SignalEventRow{SignalEvent::serviceMaintenance, SignalKind::service, SignalWeight::routine},
    SignalEventRow{SignalEvent::serviceRestored, SignalKind::service, SignalWeight::notable},
    SignalEventRow{SignalEvent::servicePastProblem, SignalKind::service, SignalWeight::routine},
    SignalEventRow{SignalEvent::signingEnded, SignalKind::signing, SignalWeight::notable},
    SignalEventRow{SignalEvent::signingBegan, SignalKind::signing, SignalWeight::routine},
    SignalEventRow{SignalEvent::updateOffered, SignalKind::update, SignalWeight::notable},
    SignalEventRow{SignalEvent::updateWithdrawn, SignalKind::update, SignalWeight::notable},
    SignalEventRow{SignalEvent::updateReplaced, SignalKind::update, SignalWeight::routine},
    SignalEventRow{SignalEvent::chartLeader, SignalKind::chart, SignalWeight::notable},
    SignalEventRow{SignalEvent::chartTopTen, SignalKind::chart, SignalWeight::routine},
    SignalEventRow{SignalEvent::chartTopTenOfApple, SignalKind::chart, SignalWeight::notable},
    SignalEventRow{SignalEvent::docketEntry, SignalKind::docket, SignalWeight::notable},
    SignalEventRow{SignalEvent::docketRoutine, SignalKind::docket, SignalWeight::routine},
    SignalEventRow{SignalEvent::docketNewCase, SignalKind::docket, SignalWeight::notable},
    SignalEventRow{SignalEvent::docketReadable, SignalKind::docket, SignalWeight::routine},
    SignalEventRow{SignalEvent::pressRelease, SignalKind::pressRelease, SignalWeight::routine},
    SignalEventRow{SignalEvent::pressReleaseOfApple, SignalKind::pressRelease,
                   SignalWeight::notable},
    SignalEventRow{SignalEvent::filingMajor, SignalKind::filing, SignalWeight::major},
    SignalEventRow{SignalEvent::filingNotable, SignalKind::filing, SignalWeight::notable},
    SignalEventRow{SignalEvent::filingRoutine, SignalKind::filing, SignalWeight::routine},
    SignalEventRow{SignalEvent::saleNotice, SignalKind::insiderTrade, SignalWeight::notable},
    SignalEventRow{SignalEvent::insiderDecision, SignalKind::insiderTrade, SignalWeight::notable},
    SignalEventRow{SignalEvent::insiderRoutine, SignalKind::insiderTrade, SignalWeight::routine},
    SignalEventRow{SignalEvent::backendFinding, SignalKind::backend, SignalWeight::notable},
    SignalEventRow{SignalEvent::backendRemoval, SignalKind::backend, SignalWeight::routine},
    SignalEventRow{SignalEvent::backendIdentifier, SignalKind::backend, SignalWeight::major},
    SignalEventRow{SignalEvent::pageChanged, SignalKind::page, SignalWeight::notable},
    SignalEventRow{SignalEvent::pageEdited, SignalKind::page, SignalWeight::routine},
    SignalEventRow{SignalEvent::pageReturned, SignalKind::page, SignalWeight::notable},
    SignalEventRow{SignalEvent::pageUnreadable, SignalKind::page, SignalWeight::routine},
    SignalEventRow{SignalEvent::priceMove, SignalKind::price, SignalWeight::notable},
};

static_assert(
    [] {
        for (std::size_t i = 0; i < kSignalEvents.size(); ++i) {
            if (kSignalEvents[i].value != static_cast<SignalEvent>(i)) return false;
        }
        return true;
    }(),
    "the rows stand in the order of the events");

/// A signal with the event's kind and weight; its producer sets the rest.
inline Signal signalOf(SignalEvent event) {
    const auto& row = kSignalEvents[static_cast<std::size_t>(event)];
    Signal signal;
    signal.kind = row.kind;
    signal.weight = row.weight;
    return signal;
}

}  // namespace kit
