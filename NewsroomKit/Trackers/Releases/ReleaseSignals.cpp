#include "NewsroomKit/Trackers/Releases/ReleaseSignals.h"

#include <algorithm>
#include <ranges>
#include <set>
#include <string>
#include <utility>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Trackers/Releases/ReleaseTitle.h"

namespace kit {

namespace {

Signal buildSignal(const std::string& platform, ReleaseChannel channel,
                   const SoftwareRelease& release, Instant seenAt) {
    const bool isPublic = channel == ReleaseChannel::general;
    auto signal = signalOf(isPublic ? SignalEvent::publicRelease : SignalEvent::betaRelease);
    signal.id = "release|" + platform + "|" + std::string(rawValue(channel)) + "|" + release.build;
    signal.subject = platform;
    signal.title = titleOf(platform, release) + " is out, build " + release.build;
    if (!release.url.empty()) signal.link = release.url;
    signal.happenedAt = release.published;
    signal.seenAt = seenAt;
    signal.evidence = {
        {"after", release.build}, {"version", release.version}, {"channel", rawValue(channel)}};
    return signal;
}

}  // namespace

std::vector<Signal> signalsOf(const std::optional<std::vector<PlatformRelease>>& before,
                              const std::vector<PlatformRelease>& after, Instant now) {
    std::vector<Signal> found;
    if (!before) return found;
    for (const auto& platform : after) {
        const auto known =
            std::ranges::find(*before, platform.platform, &PlatformRelease::platform);
        if (known == before->end()) continue;
        for (const auto channel : {ReleaseChannel::general, ReleaseChannel::beta}) {
            const auto& release = platform.release(channel);
            const auto& former = known->release(channel);
            if (!release || (former && former->build == release->build)) continue;
            found.push_back(buildSignal(platform.platform, channel, *release, now));
            if (former) found.back().evidence["before"] = former->build;
        }
    }
    return found;
}

std::vector<Signal> pastSignals(std::span<const SeenBuild> builds) {
    std::vector<Signal> found;
    std::set<std::pair<std::string, ReleaseChannel>> channels;
    for (const auto& build : std::views::reverse(builds)) {
        if (channels.emplace(build.platform, build.channel).second) continue;
        found.push_back(buildSignal(build.platform, build.channel, build.release, build.firstSeen));
    }
    return found;
}

bool isPublicRelease(const Signal& signal) {
    const auto* channel = signal.evidence.if_contains("channel");
    return signal.kind == SignalKind::release &&
           (!channel || *channel == json::string(rawValue(ReleaseChannel::general)));
}

}  // namespace kit
