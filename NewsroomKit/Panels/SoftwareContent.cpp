#include "NewsroomKit/Panels/SoftwareContent.h"

#include <algorithm>
#include <chrono>

namespace kit {

namespace {

constexpr std::chrono::days kNewFor{3};

SoftwareContent::Row rowOf(const PlatformRelease& platform, Instant now) {
    SoftwareContent::Row row{.platform = platform};
    for (const auto* release : {&platform.current, &platform.beta}) {
        if (!*release) continue;
        row.latest = std::max(row.latest.value_or((*release)->published), (*release)->published);
        row.isNew |= isNewBuild(**release, now);
    }
    return row;
}

}  // namespace

bool isNewBuild(const SoftwareRelease& release, Instant now) {
    return now - release.published < kNewFor;
}

SoftwareContent softwareContent(const CachedValue<std::vector<PlatformRelease>>& releases,
                                const Platforms& platforms, Instant now) {
    SoftwareContent content;
    for (const auto& name : platforms) {
        if (!releases.value) break;
        const auto platform = std::ranges::find(*releases.value, name, &PlatformRelease::platform);
        if (platform != releases.value->end()) content.rows.push_back(rowOf(*platform, now));
    }
    content.condition = PanelCondition::of(releases, !content.rows.empty());
    return content;
}

ReleasesContent releasesContent(const CachedValue<std::vector<PlatformRelease>>& releases,
                                const std::vector<SeenBuild>& builds, const Platforms& platforms,
                                Instant now) {
    ReleasesContent content;
    for (const auto& build : builds) {
        if (std::ranges::find(platforms, build.platform) == platforms.end()) continue;
        content.rows.push_back({build, isNewBuild(build.release, now)});
    }
    std::ranges::stable_sort(content.rows, std::ranges::greater{},
                             [](const auto& row) { return row.build.release.published; });
    content.condition = PanelCondition::of(releases, !content.rows.empty());
    return content;
}

}  // namespace kit
