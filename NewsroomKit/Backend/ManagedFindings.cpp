#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Backend/FindingParts.h"
#include "NewsroomKit/Backend/ManagedBuild.h"
#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"

namespace kit {
namespace {

using BuildFindings = std::vector<BackendFinding>;

constexpr std::string_view kPublicSet = "PublicAssetSets ";

std::set<std::string> publicBuilds(const WatchedRecords& records) {
    std::set<std::string> builds;
    for (const auto& record : records) {
        if (record.key.starts_with(kPublicSet)) builds.emplace(managedBuild(record.key).build);
    }
    return builds;
}

/// The set "iOS" also has builds of other systems, which their devices tell apart.
std::string_view systemOf(const ManagedBuild& build, std::string_view devices) {
    if (build.platform != "iOS") return build.platform;
    if (devices.starts_with("AudioAccessory")) return "HomePod software";
    return platformOfFamily(devices.substr(0, devices.find(','))).value_or(build.platform);
}

std::string systemName(const ManagedBuild& build, std::string_view devices) {
    return findingName(fmt::format("{} {}", systemOf(build, devices), build.version));
}

std::string_view devicesOf(const WatchedRecord& record) {
    const auto field = record.fields.find(std::string(kDevicesOfBuild));
    return field == record.fields.end() ? std::string_view() : field->second;
}

std::string buildTitle(const WatchedRecord& record, FindingKind kind) {
    const auto build = managedBuild(record.key);
    const bool isImprovement = build.set.find("BackgroundSecurity") != std::string_view::npos;
    const auto name = findingName(build.build);
    if (build.version.empty()) {
        return fmt::format("\"{}\" {}", name,
                           kind == FindingKind::removed ? "is gone" : "appeared");
    }
    const auto system = systemName(build, devicesOf(record));
    if (kind == FindingKind::removed) return fmt::format("{} ({}) left the list", system, name);
    return fmt::format("{} {} of {} appeared",
                       isImprovement ? "Background security improvement" : "Build", name, system);
}

/// The same build stands in several sets and for several platforms.
void addBuilds(const WatchedFile& file, const WatchedRecords& records, FindingKind kind,
               const std::set<std::string>& trackedBuilds, BuildFindings& findings) {
    std::map<std::string, WatchedRecords> byBuild;
    for (const auto& record : records) {
        const std::string build(managedBuild(record.key).build);
        if (!trackedBuilds.contains(build)) byBuild[build].push_back(record);
    }
    for (auto& [name, list] : byBuild) {
        auto title = buildTitle(list.front(), kind);
        findings.push_back(findingOfEntries(file, kind, std::move(title), std::move(list)));
    }
}

}  // namespace

std::vector<BackendFinding> managedFindings(const WatchedFile& file, const RecordDiff& diff,
                                            const WatchedRecords& before,
                                            const WatchedRecords& after) {
    BuildFindings findings;
    addBuilds(file, diff.added, FindingKind::added, publicBuilds(after), findings);
    addBuilds(file, diff.removed, FindingKind::removed, publicBuilds(before), findings);
    std::map<std::string, std::vector<FieldChange>> byBuild;
    for (const auto& change : diff.changed)
        byBuild[std::string(managedBuild(change.key).build)].push_back(change);
    for (auto& [name, changes] : byBuild) {
        const auto build = managedBuild(changes.front().key);
        const bool isOfDevices = std::ranges::all_of(
            changes, [](const auto& change) { return change.field == kDevicesOfBuild; });
        findings.push_back(
            {.file = std::string(file.id),
             .kind = FindingKind::changed,
             .title = fmt::format(
                 "{} of build {} of {} changed", isOfDevices ? "The devices" : "The entry",
                 findingName(name),
                 systemName(build, isOfDevices ? changes.front().after.value_or("") : "")),
             .extent = countedEntries(changes.size(), "entry", "entries"),
             .changed = std::move(changes)});
    }
    return findings;
}

}  // namespace kit
