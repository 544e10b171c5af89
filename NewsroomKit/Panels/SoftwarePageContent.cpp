#include "NewsroomKit/Panels/SoftwarePageContent.h"

#include <algorithm>
#include <map>
#include <utility>

#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Trackers/Signing/VersionOrder.h"

namespace kit {

namespace {

using SoftwarePage = SoftwarePageContent;

constexpr std::size_t kLeastGaps = 4;

std::vector<SoftwarePage::Release> datedReleases(std::vector<SeenBuild> builds, Instant now) {
    std::ranges::stable_sort(builds, std::ranges::greater{},
                             [](const auto& build) { return build.release.published; });
    std::vector<SoftwarePage::Release> releases;
    std::map<std::pair<std::string, ReleaseChannel>, std::size_t> later;
    for (auto& build : builds) {
        const auto published = build.release.published;
        const std::pair key(build.platform, build.channel);
        if (const auto found = later.find(key); found != later.end()) {
            auto& next = releases[found->second];
            // A build that came back is no release of its own.
            if (next.build.release.build != build.release.build)
                next.after = next.build.release.published - published;
        }
        later[key] = releases.size();
        releases.push_back({std::move(build), false, std::nullopt});
        releases.back().isNew = isNewBuild(releases.back().build.release, now);
    }
    return releases;
}

std::optional<Instant> nextBetaOf(const std::vector<SoftwarePage::Release>& releases,
                                  const PlatformRelease& platform) {
    if (!platform.beta) return std::nullopt;
    std::vector<Instant::duration> gaps;
    for (const auto& release : releases) {
        const auto& build = release.build;
        if (build.platform == platform.platform && build.channel == ReleaseChannel::beta &&
            release.after) {
            gaps.push_back(*release.after);
        }
    }
    if (gaps.size() < kLeastGaps) return std::nullopt;
    const auto middle = gaps.begin() + static_cast<std::ptrdiff_t>(gaps.size() / 2);
    std::ranges::nth_element(gaps, middle);
    return platform.beta->published + *middle;
}

bool passesSoftware(const SeenBuild& build, const SoftwareFilter& filter) {
    const auto& release = build.release;
    const auto words = fold(filter.words);
    return filter.channel.value_or(build.channel) == build.channel &&
           (filter.platform.empty() || filter.platform == build.platform) &&
           (filter.major.empty() || filter.major == majorOf(release)) &&
           (fold(release.version + " " + release.stage).find(words) != std::string::npos ||
            fold(release.build).find(words) != std::string::npos);
}

}  // namespace

std::string majorOf(const SoftwareRelease& release) {
    return release.version.substr(0, release.version.find('.'));
}

SoftwarePageContent softwarePageContent(const CachedValue<std::vector<PlatformRelease>>& releases,
                                        const std::vector<SeenBuild>& builds,
                                        const SoftwareFilter& filter, Instant now) {
    SoftwarePage page;
    auto all = datedReleases(builds, now);
    for (const auto& platform : releases.value.value_or(std::vector<PlatformRelease>())) {
        page.cards.push_back({.platform = platform,
                              .isNew = platform.current && isNewBuild(*platform.current, now),
                              .nextBeta = nextBetaOf(all, platform)});
    }
    std::ranges::stable_sort(page.cards, standsBefore,
                             [](const auto& card) { return card.platform.platform; });
    for (const auto& release : all) {
        const auto major = majorOf(release.build.release);
        if (std::ranges::find(page.majors, major) == page.majors.end())
            page.majors.push_back(major);
    }
    std::ranges::sort(page.majors,
                      [](const auto& a, const auto& b) { return compareVersions(a, b) > 0; });
    page.condition = PanelCondition::of(releases, !page.cards.empty() || !all.empty());
    std::erase_if(all, [&](const auto& release) { return !passesSoftware(release.build, filter); });
    page.releases = std::move(all);
    return page;
}

}  // namespace kit
