#include "NewsroomKit/Trackers/Signing/SigningSignals.h"

#include <set>
#include <string>
#include <utility>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Trackers/Signing/SigningNews.h"
#include "NewsroomKit/Trackers/SignalsAPI.h"

namespace kit {

namespace {

using BuildKey = std::pair<std::string, std::string>;

BuildKey keyOf(const SignedBuild& build) { return {build.version, build.build}; }

std::set<BuildKey> signedBuilds(const SigningStatus& status) {
    std::set<BuildKey> keys;
    for (const auto& build : status.builds) {
        if (build.isSigned) keys.insert(keyOf(build));
    }
    return keys;
}

/// The signed builds of the list that are not among the known ones.
void addChanges(std::vector<SigningChange>& changes, const SigningStatus& list,
                std::set<BuildKey> known, const SigningChange& change) {
    for (const auto& build : list.builds) {
        if (!build.isSigned || !known.insert(keyOf(build)).second) continue;
        changes.push_back(change);
        changes.back().version = build.version;
        changes.back().build = build.build;
    }
}

std::string textIn(const json::object& evidence, std::string_view key) {
    const auto* text = evidence.if_contains(key);
    return text && text->is_string() ? std::string(text->get_string()) : std::string();
}

}  // namespace

std::vector<SigningChange> signingChanges(std::string_view device,
                                          const std::optional<SigningStatus>& before,
                                          const SigningStatus& after, Instant now) {
    std::vector<SigningChange> changes;
    if (!before) return changes;
    SigningChange change{
        .device = std::string(device), .deviceName = after.name, .isSigned = false, .seenAt = now};
    addChanges(changes, *before, signedBuilds(after), change);
    change.isSigned = true;
    addChanges(changes, after, signedBuilds(*before), change);
    return changes;
}

std::vector<Signal> signalsOf(std::span<const SigningChange> changes) {
    std::vector<Signal> found;
    for (const auto& change : changes) {
        auto signal =
            signalOf(change.isSigned ? SignalEvent::signingBegan : SignalEvent::signingEnded);
        signal.id = "signing|" + change.device + "|" + change.build +
                    (change.isSigned ? "|1|" : "|0|") + signalDay(change.seenAt);
        signal.subject = change.device;
        signal.title = signingNews({change}).front().title();
        signal.detail = change.deviceName;
        signal.seenAt = change.seenAt;
        signal.evidence = {{"before", change.isSigned ? "not signed" : "signed"},
                           {"after", change.isSigned ? "signed" : "not signed"},
                           {"version", change.version},
                           {"build", change.build},
                           {"readAt", SignalsAPI::signingAddress(change.device)}};
        found.push_back(std::move(signal));
    }
    return found;
}

SigningChange signingChangeOf(const Signal& signal) {
    return {.device = signal.subject,
            .deviceName = signal.detail,
            .version = textIn(signal.evidence, "version"),
            .build = textIn(signal.evidence, "build"),
            .isSigned = textIn(signal.evidence, "after") == "signed",
            .seenAt = signal.seenAt};
}

}  // namespace kit
