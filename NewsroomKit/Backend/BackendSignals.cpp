#include "NewsroomKit/Backend/BackendSignals.h"

#include <fmt/format.h>

#include "NewsroomKit/Signals/SignalEvent.h"

namespace kit {
namespace {

constexpr std::size_t kMostEvidence = 12;

SignalEvent eventOf(const BackendFinding& finding) {
    switch (finding.kind) {
        case FindingKind::identifier: return SignalEvent::backendIdentifier;
        case FindingKind::added:
        case FindingKind::changed: return SignalEvent::backendFinding;
        case FindingKind::removed:
            // What came and went is news; what left after long was usually replaced.
            return finding.minutesThere ? SignalEvent::backendFinding : SignalEvent::backendRemoval;
        case FindingKind::wentBack: return SignalEvent::backendFinding;
        case FindingKind::rebuilt: return SignalEvent::backendRemoval;
    }
    return SignalEvent::backendFinding;
}

/// The entries as lines, as many as a card has room for.
struct EvidenceText {
    std::string text{};
    std::size_t lines = 0;

    void add(std::string_view line) {
        if (++lines > kMostEvidence) return;
        if (lines > 1) text += '\n';
        text += line;
    }
};

json::object evidenceOf(const BackendFinding& finding, std::string_view address) {
    EvidenceText before, after;
    for (const auto& record : finding.removed) before.add(record.key);
    for (const auto& record : finding.added) after.add(record.key);
    for (const auto& [key, field, old, fresh] : finding.changed) {
        before.add(fmt::format("{} {}: {}", key, field, old.value_or("none")));
        after.add(fmt::format("{} {}: {}", key, field, fresh.value_or("none")));
    }
    json::object evidence{{"readAt", address},
                          {"notSeenAt", secondsSince1970(finding.notSeenAt)},
                          {"confirmedAt", secondsSince1970(finding.confirmedAt)}};
    if (before.lines > 0) evidence["before"] = before.text;
    if (after.lines > 0) evidence["after"] = after.text;
    return evidence;
}

}  // namespace

std::string meaningText(const BackendFinding& finding) {
    const auto* file = watchedFile(finding.file);
    if (!file) return {};
    const auto meaning = meaningOf(file->source, finding.kind);
    return fmt::format("{} What it doesn't say: {}", meaning.can, meaning.cannot);
}

std::vector<Signal> signalsOf(const std::vector<BackendFinding>& findings) {
    std::vector<Signal> signals;
    for (const auto& finding : findings) {
        const auto* file = watchedFile(finding.file);
        if (!finding.isTold || !file) continue;
        auto signal = signalOf(eventOf(finding));
        signal.id = fmt::format("backend|{}|{}|{}|{}", finding.file, rawValue(finding.kind),
                                finding.title, iso8601Text(finding.seenAt));
        signal.subject = file->name;
        signal.title = finding.title + ".";
        signal.detail = meaningText(finding);
        signal.link = std::string(file->address);
        signal.seenAt = finding.seenAt;
        signal.evidence = evidenceOf(finding, file->address);
        signals.push_back(std::move(signal));
    }
    return signals;
}

}  // namespace kit
