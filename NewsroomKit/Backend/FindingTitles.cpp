#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Backend/FindingParts.h"

namespace kit {
namespace {

using Findings = std::vector<BackendFinding>;

constexpr std::size_t kMostNamesInTitle = 3;

std::string namesIn(const std::vector<std::string>& names) {
    return fmt::format("{}", fmt::join(names, ", "));
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
    const auto first = findingName(*values.begin());
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
    const auto rules = count == 1 ? fmt::format("\"{}: {}\"", findingName(name), first)
                                  : fmt::format("{} rules \"{}\"", count, findingName(name));
    return fmt::format("robots.txt {} {}", isNew ? "has" : "no longer has", rules);
}

void addRobots(const WatchedFile& file, const WatchedRecords& records, FindingKind kind,
               Findings& findings) {
    std::map<std::string, std::pair<std::set<std::string>, WatchedRecords>> byRule;
    for (const auto& record : records) {
        const auto [name, value] = robotsRule(record.key);
        byRule[name].first.insert(value);
        byRule[name].second.push_back(record);
    }
    for (auto& [name, rules] : byRule) {
        auto title = robotsTitle(name, rules.first, kind == FindingKind::added);
        findings.push_back(findingOfEntries(file, kind, std::move(title), std::move(rules.second)));
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
    if (source == WatchedSource::catalogue) return findingName(packageName(record));
    if (source == WatchedSource::aasa)
        return findingName(record.key.substr(record.key.rfind(' ') + 1));
    if (source == WatchedSource::sitemap) {
        const auto host = record.key.find("://");
        return findingName(host == record.key.npos ? record.key : record.key.substr(host + 3));
    }
    return findingName(record.key);
}

std::string entriesTitle(const WatchedFile& file, const WatchedRecords& records, bool isNew) {
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
    const auto count = countedEntries(records.size(), noun.one, noun.many);
    const auto list = names.size() <= kMostNamesInTitle ? ": " + namesIn(names) : std::string();
    return isNew ? fmt::format("{} appeared{}", count, list)
                 : fmt::format("{} are gone{}", count, list);
}

std::string changesTitle(const WatchedFile& file, const std::vector<FieldChange>& changes) {
    if (changes.size() > 1) return fmt::format("{} values changed", changes.size());
    const auto& change = changes.front();
    const bool isSetting = change.field == "value";
    const auto name = isSetting ? fmt::format("Setting \"{}\"", findingName(change.key))
                                : fmt::format("\"{}\" of {}", findingName(change.field),
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
        findings.push_back(findingOfEntries(file, FindingKind::added,
                                            entriesTitle(file, diff.added, true), diff.added));
    }
    if (!diff.removed.empty()) {
        findings.push_back(findingOfEntries(file, FindingKind::removed,
                                            entriesTitle(file, diff.removed, false), diff.removed));
    }
    if (!diff.changed.empty()) {
        auto changes = diff.changed;
        if (changes.size() > kMostFindingEntries) changes.resize(kMostFindingEntries);
        findings.push_back({.file = std::string(file.id),
                            .kind = FindingKind::changed,
                            .title = changesTitle(file, diff.changed),
                            .extent = countedEntries(diff.changed.size(), "value", "values"),
                            .changed = std::move(changes)});
    }
    return findings;
}

BackendFinding rebuiltFinding(const WatchedFile& file, const RecordDiff& diff) {
    auto finding =
        findingOfEntries(file, FindingKind::rebuilt,
                         fmt::format("The site map was rebuilt, {} new",
                                     countedEntries(diff.added.size(), "address", "addresses")),
                         diff.added);
    finding.removed = diff.removed;
    if (finding.removed.size() > kMostFindingEntries) finding.removed.resize(kMostFindingEntries);
    finding.extent = fmt::format("+{} −{} addresses", diff.added.size(), diff.removed.size());
    finding.isTold = false;
    return finding;
}

bool namesDevice(const std::map<std::string, std::string>& fields, const std::string& identifier) {
    const auto field = fields.find(std::string(kDevicesOfBuild));
    if (field == fields.end()) return false;
    return (", " + field->second + ", ").find(", " + identifier + ", ") != std::string::npos;
}

/// The entries that name the device are shown with it.
BackendFinding identifierFinding(const WatchedFile& file, const RecordDiff& diff,
                                 const std::string& identifier) {
    BackendFinding finding{
        .file = std::string(file.id),
        .kind = FindingKind::identifier,
        .title = fmt::format("An identifier not seen before: {}", findingName(identifier)),
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
                                       const WatchedRecords& before, const WatchedRecords& after,
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
