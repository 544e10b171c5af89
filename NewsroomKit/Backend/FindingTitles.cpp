#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Backend/BackendFinding.h"
#include "NewsroomKit/Backend/ManagedBuild.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"

namespace kit {
namespace {

using Records = std::vector<WatchedRecord>;
using Findings = std::vector<BackendFinding>;

constexpr std::size_t kMostEntriesKept = 500;
constexpr std::size_t kMostNamesInTitle = 3;
constexpr std::size_t kLongestTitleName = 80;
constexpr std::string_view kPublicSet = "PublicAssetSets ";
constexpr std::string_view kDevices = "SupportedDevices";

std::string titleName(std::string_view text) {
    const auto begin = firstCharacters(text, kLongestTitleName);
    std::string name(begin);
    std::ranges::replace(name, '\n', ' ');
    return begin.size() == text.size() ? name : name + "…";
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string namesIn(const std::vector<std::string>& names) {
    return fmt::format("{}", fmt::join(names, ", "));
}

/// How the entries of a source are called.
struct EntryNoun {
    std::string_view one;
    std::string_view many;
};

EntryNoun nounOf(WatchedSource source) {
    switch (source) {
        case WatchedSource::gdmf: return {"build", "builds"};
        case WatchedSource::assets: return {"asset", "assets"};
        case WatchedSource::catalogue: return {"product", "products"};
        case WatchedSource::configuration: return {"setting", "settings"};
        case WatchedSource::aasa: return {"path", "paths"};
        case WatchedSource::robots: return {"line", "lines"};
        case WatchedSource::sitemap: return {"address", "addresses"};
        case WatchedSource::json:
        case WatchedSource::plist: break;
    }
    return {"entry", "entries"};
}

BackendFinding findingWith(const WatchedFile& file, FindingKind kind, std::string title,
                           Records records) {
    const auto noun = nounOf(file.source);
    BackendFinding finding{.file = std::string(file.id), .kind = kind, .title = std::move(title)};
    finding.extent = fmt::format("{}{}", kind == FindingKind::removed ? "−" : "+",
                                 counted(records.size(), noun.one, noun.many));
    if (records.size() > kMostEntriesKept) records.resize(kMostEntriesKept);
    (kind == FindingKind::removed ? finding.removed : finding.added) = std::move(records);
    return finding;
}

// Managed versions

std::set<std::string> publicBuilds(const Records& records) {
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
    return titleName(fmt::format("{} {}", systemOf(build, devices), build.version));
}

std::string_view devicesOf(const WatchedRecord& record) {
    const auto field = record.fields.find(std::string(kDevices));
    return field == record.fields.end() ? std::string_view() : field->second;
}

std::string buildTitle(const WatchedRecord& record, FindingKind kind) {
    const auto build = managedBuild(record.key);
    const bool isImprovement = build.set.find("BackgroundSecurity") != std::string_view::npos;
    const auto name = titleName(build.build);
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
void addBuilds(const WatchedFile& file, const Records& records, FindingKind kind,
               const std::set<std::string>& trackedBuilds, Findings& findings) {
    std::map<std::string, Records> byBuild;
    for (const auto& record : records) {
        const std::string build(managedBuild(record.key).build);
        if (!trackedBuilds.contains(build)) byBuild[build].push_back(record);
    }
    for (auto& [name, list] : byBuild) {
        auto title = buildTitle(list.front(), kind);
        findings.push_back(findingWith(file, kind, std::move(title), std::move(list)));
    }
}

Findings managedFindings(const WatchedFile& file, const RecordDiff& diff, const Records& before,
                         const Records& after) {
    Findings findings;
    addBuilds(file, diff.added, FindingKind::added, publicBuilds(after), findings);
    addBuilds(file, diff.removed, FindingKind::removed, publicBuilds(before), findings);
    std::map<std::string, std::vector<FieldChange>> byBuild;
    for (const auto& change : diff.changed)
        byBuild[std::string(managedBuild(change.key).build)].push_back(change);
    for (auto& [name, changes] : byBuild) {
        const auto build = managedBuild(changes.front().key);
        const bool isOfDevices = std::ranges::all_of(
            changes, [](const auto& change) { return change.field == kDevices; });
        findings.push_back(
            {.file = std::string(file.id),
             .kind = FindingKind::changed,
             .title = fmt::format(
                 "{} of build {} of {} changed", isOfDevices ? "The devices" : "The entry",
                 titleName(name),
                 systemName(build, isOfDevices ? changes.front().after.value_or("") : "")),
             .extent = counted(changes.size(), "entry", "entries"),
             .changed = std::move(changes)});
    }
    return findings;
}

// robots.txt

/// "User-agent: a | Disallow: /x" as ("Disallow", "/x").
std::pair<std::string, std::string> robotsRule(const std::string& key) {
    const auto bar = key.find(" | ");
    const auto rule = bar == key.npos ? key : key.substr(bar + 3);
    const auto colon = rule.find(": ");
    return colon == rule.npos ? std::pair{rule, std::string()}
                              : std::pair{rule.substr(0, colon), rule.substr(colon + 2)};
}

std::string robotsTitle(const std::string& name, const std::set<std::string>& values, bool isNew) {
    const auto count = values.size();
    const auto first = titleName(*values.begin());
    if (name == "Disallow") {
        const auto verb = isNew ? "blocks" : "no longer blocks";
        return count == 1 ? fmt::format("robots.txt {} {}", verb, first)
                          : fmt::format("robots.txt {} {} paths", verb, count);
    }
    if (name == "Sitemap") {
        const auto verb = isNew ? "names" : "no longer names";
        return count == 1 ? fmt::format("robots.txt {} the site map {}", verb, first)
                          : fmt::format("robots.txt {} {} site maps", verb, count);
    }
    const auto rules = count == 1 ? fmt::format("\"{}: {}\"", titleName(name), first)
                                  : fmt::format("{} rules \"{}\"", count, titleName(name));
    return fmt::format("robots.txt {} {}", isNew ? "has" : "no longer has", rules);
}

void addRobots(const WatchedFile& file, const Records& records, FindingKind kind,
               Findings& findings) {
    std::map<std::string, std::pair<std::set<std::string>, Records>> byRule;
    for (const auto& record : records) {
        const auto [name, value] = robotsRule(record.key);
        byRule[name].first.insert(value);
        byRule[name].second.push_back(record);
    }
    for (auto& [name, rules] : byRule) {
        auto title = robotsTitle(name, rules.first, kind == FindingKind::added);
        findings.push_back(findingWith(file, kind, std::move(title), std::move(rules.second)));
    }
}

// The other files

/// The name of a product of installers is that of its first package.
std::string packageName(const WatchedRecord& record) {
    for (const auto& [name, value] : record.fields) {
        const auto end = value.find(".pkg");
        if (end == value.npos) continue;
        const auto slash = value.rfind('/', end);
        const auto begin = slash == value.npos ? 0 : slash + 1;
        return fmt::format("{} ({})", value.substr(begin, end - begin), record.key);
    }
    return record.key;
}

std::string entryName(WatchedSource source, const WatchedRecord& record) {
    if (source == WatchedSource::catalogue) return titleName(packageName(record));
    if (source == WatchedSource::aasa)
        return titleName(record.key.substr(record.key.rfind(' ') + 1));
    if (source == WatchedSource::sitemap) {
        const auto host = record.key.find("://");
        return titleName(host == record.key.npos ? record.key : record.key.substr(host + 3));
    }
    return titleName(record.key);
}

std::string entriesTitle(const WatchedFile& file, const Records& records, bool isNew) {
    std::vector<std::string> names;
    for (const auto& record : records) {
        const auto name = entryName(file.source, record);
        if (std::ranges::find(names, name) == names.end()) names.push_back(name);
        if (names.size() > kMostNamesInTitle) break;
    }
    const auto noun = nounOf(file.source);
    if (names.size() == 1) {
        if (file.source == WatchedSource::aasa)
            return fmt::format("{} {} in an app", names[0], isNew ? "opens" : "no longer opens");
        const auto verb = isNew ? "appeared" : "is gone";
        return file.source == WatchedSource::configuration
                   ? fmt::format("Setting \"{}\" {}", names[0], verb)
                   : fmt::format("{} {}", names[0], verb);
    }
    const auto count = counted(records.size(), noun.one, noun.many);
    const auto list = names.size() <= kMostNamesInTitle ? ": " + namesIn(names) : std::string();
    return isNew ? fmt::format("{} appeared{}", count, list)
                 : fmt::format("{} are gone{}", count, list);
}

std::string changesTitle(const WatchedFile& file, const std::vector<FieldChange>& changes) {
    if (changes.size() > 1) return fmt::format("{} values changed", changes.size());
    const auto& change = changes.front();
    const bool isSetting = change.field == "value";
    const auto name = isSetting ? fmt::format("Setting \"{}\"", titleName(change.key))
                                : fmt::format("\"{}\" of {}", titleName(change.field),
                                              entryName(file.source, {change.key, {}}));
    constexpr std::size_t shortValue = 24;
    const bool isShort = change.before && change.after && change.before->size() <= shortValue &&
                         change.after->size() <= shortValue;
    return isShort ? fmt::format("{} changed, {} → {}", name, *change.before, *change.after)
                   : fmt::format("{} changed", name);
}

Findings entryFindings(const WatchedFile& file, const RecordDiff& diff) {
    Findings findings;
    if (!diff.added.empty()) {
        findings.push_back(findingWith(file, FindingKind::added,
                                       entriesTitle(file, diff.added, true), diff.added));
    }
    if (!diff.removed.empty()) {
        findings.push_back(findingWith(file, FindingKind::removed,
                                       entriesTitle(file, diff.removed, false), diff.removed));
    }
    if (!diff.changed.empty()) {
        auto changes = diff.changed;
        if (changes.size() > kMostEntriesKept) changes.resize(kMostEntriesKept);
        findings.push_back({.file = std::string(file.id),
                            .kind = FindingKind::changed,
                            .title = changesTitle(file, diff.changed),
                            .extent = counted(diff.changed.size(), "value", "values"),
                            .changed = std::move(changes)});
    }
    return findings;
}

BackendFinding rebuiltFinding(const WatchedFile& file, const RecordDiff& diff) {
    auto finding = findingWith(file, FindingKind::rebuilt,
                               fmt::format("The site map was rebuilt, {} new",
                                           counted(diff.added.size(), "address", "addresses")),
                               diff.added);
    finding.removed = diff.removed;
    if (finding.removed.size() > kMostEntriesKept) finding.removed.resize(kMostEntriesKept);
    finding.extent = fmt::format("+{} −{} addresses", diff.added.size(), diff.removed.size());
    finding.isTold = false;
    return finding;
}

bool namesDevice(const std::map<std::string, std::string>& fields, const std::string& identifier) {
    const auto field = fields.find(std::string(kDevices));
    if (field == fields.end()) return false;
    return (", " + field->second + ", ").find(", " + identifier + ", ") != std::string::npos;
}

/// The entries that name the device are shown with it.
BackendFinding identifierFinding(const WatchedFile& file, const RecordDiff& diff,
                                 const std::string& identifier) {
    BackendFinding finding{
        .file = std::string(file.id),
        .kind = FindingKind::identifier,
        .title = fmt::format("An identifier not seen before: {}", titleName(identifier)),
        .extent = "+1 identifier"};
    for (const auto& record : diff.added) {
        if (namesDevice(record.fields, identifier)) finding.added.push_back(record);
    }
    for (const auto& change : diff.changed) {
        if (change.after && namesDevice({{change.field, *change.after}}, identifier))
            finding.changed.push_back(change);
    }
    return finding;
}

}  // namespace

std::vector<BackendFinding> findingsOf(const WatchedFile& file, const RecordDiff& diff,
                                       const Records& before, const Records& after,
                                       const std::vector<std::string>& identifiers) {
    if (isRebuilt(file.source, diff)) return {rebuiltFinding(file, diff)};
    Findings findings;
    for (const auto& identifier : identifiers)
        findings.push_back(identifierFinding(file, diff, identifier));
    Findings others;
    if (file.source == WatchedSource::gdmf) {
        others = managedFindings(file, diff, before, after);
    } else if (file.source == WatchedSource::robots) {
        addRobots(file, diff.added, FindingKind::added, others);
        addRobots(file, diff.removed, FindingKind::removed, others);
    } else {
        others = entryFindings(file, diff);
    }
    std::ranges::move(others, std::back_inserter(findings));
    return findings;
}

std::string durationText(std::int64_t minutes) {
    constexpr std::int64_t hour = 60;
    constexpr std::int64_t day = 24 * hour;
    const auto text = [](std::int64_t count, const char* unit) {
        return fmt::format("{} {}{}", count, unit, count == 1 ? "" : "s");
    };
    if (minutes < 1) return "less than a minute";
    if (minutes < 2 * hour) return text(minutes, "minute");
    return minutes < 2 * day ? text(minutes / hour, "hour") : text(minutes / day, "day");
}

}  // namespace kit
