#include <algorithm>
#include <initializer_list>
#include <string>
#include <tuple>

#include <fmt/format.h>

#include "NewsroomKit/Backend/GenericRecords.h"
#include "NewsroomKit/Backend/PropertyList.h"
#include "NewsroomKit/Backend/WatchedRecord.h"
#include "NewsroomKit/Feeds/XMLTree.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

namespace json = boost::json;

using Records = std::vector<WatchedRecord>;
using MaybeRecords = std::optional<Records>;

std::string memberText(const json::object& object, std::string_view name) {
    const auto* value = object.if_contains(name);
    return value ? scalarText(*value) : std::string();
}

/// Sets of platforms of versions. Rows and their order are shuffled in every answer, and the
/// expiration dates move each night.
MaybeRecords managedVersions(const json::value& root) {
    const auto* sets = root.if_object();
    if (!sets) return std::nullopt;
    Records records;
    for (const auto& set : *sets) {
        if (!set.value().is_object()) continue;
        for (const auto& platform : set.value().get_object()) {
            if (!platform.value().is_array()) return std::nullopt;
            for (const auto& row : platform.value().get_array()) {
                if (!row.is_object()) return std::nullopt;
                const auto& object = row.get_object();
                const auto extra = memberText(object, "ProductVersionExtra");
                records.push_back(
                    {fmt::format("{} {} {}{}{} {}", std::string_view(set.key()),
                                 std::string_view(platform.key()),
                                 memberText(object, "ProductVersion"), extra.empty() ? "" : " ",
                                 extra, memberText(object, "Build")),
                     fieldsOf(object, {"ProductVersion", "ProductVersionExtra", "Build",
                                       "ExpirationDate"})});
            }
        }
    }
    // An answer without any row is not a list from which all versions are gone.
    if (records.empty()) return std::nullopt;
    return records;
}

std::string assetKey(const json::object& asset) {
    std::string key;
    const auto add = [&](std::string_view before, const std::string& text) {
        if (text.empty()) return;
        if (!key.empty()) key += ' ';
        key += std::string(before) + text;
    };
    if (asset.contains("Build")) {
        add("", memberText(asset, "SUProductSystemName"));
        add("", memberText(asset, "OSVersion"));
        add("", memberText(asset, "Build"));
        add("from ", memberText(asset, "PrerequisiteBuild"));
        add("for ", memberText(asset, "SupportedDevices"));
        return key;
    }
    for (const std::string_view name : {"AssetSpecifier", "AssetName", "Identifier", "Name",
                                        "AssetLocale", "Language", "__RelativePath"}) {
        if (asset.contains(name)) add("", memberText(asset, name));
    }
    return key.empty() ? scalarText(asset) : key;
}

MaybeRecords assetRecords(const json::value& root) {
    const auto* object = root.if_object();
    const auto* assets = object ? object->if_contains("Assets") : nullptr;
    if (!assets || !assets->is_array()) return std::nullopt;
    Records records;
    for (const auto& asset : assets->get_array()) {
        if (!asset.is_object()) return std::nullopt;
        records.push_back({assetKey(asset.get_object()), fieldsOf(asset.get_object(), {})});
    }
    return records;
}

MaybeRecords installerRecords(const json::value& root) {
    const auto* object = root.if_object();
    const auto* products = object ? object->if_contains("Products") : nullptr;
    if (!products || !products->is_object()) return std::nullopt;
    Records records;
    for (const auto& product : products->get_object()) {
        if (!product.value().is_object()) return std::nullopt;
        records.push_back({std::string(product.key()),
                           fieldsOf(product.value().get_object(), {"Digest", "IntegrityDataURL"})});
    }
    return records;
}

std::vector<std::string> textsOf(const json::object& object,
                                 std::initializer_list<std::string_view> names) {
    std::vector<std::string> texts;
    for (const auto name : names) {
        const auto* value = object.if_contains(name);
        if (!value) continue;
        if (const auto* list = value->if_array()) {
            for (const auto& item : *list) texts.push_back(scalarText(item));
        } else {
            texts.push_back(scalarText(*value));
        }
    }
    return texts;
}

void addAppLinks(const json::object& links, Records& records) {
    const auto* details = links.if_contains("details");
    if (!details || !details->is_array()) return;
    for (const auto& detail : details->get_array()) {
        if (!detail.is_object()) continue;
        const auto apps = textsOf(detail.get_object(), {"appID", "appIDs"});
        for (const auto& path : textsOf(detail.get_object(), {"paths", "components"})) {
            for (const auto& app : apps) {
                records.push_back({fmt::format("applinks {} {}", app, path), {}});
            }
        }
    }
}

MaybeRecords appSiteRecords(const json::value& root) {
    const auto* services = root.if_object();
    if (!services) return std::nullopt;
    Records records;
    for (const auto& service : *services) {
        if (!service.value().is_object()) continue;
        const auto& object = service.value().get_object();
        for (const auto& app : textsOf(object, {"apps"})) {
            records.push_back({fmt::format("{} {}", std::string_view(service.key()), app), {}});
        }
        addAppLinks(object, records);
    }
    return records;
}

/// Lines as (agent, rule): a block of agents shares the rules that follow it. Comments hold tokens
/// of services and are left out.
MaybeRecords robotsRecords(std::string_view text) {
    // Servers answer with a page when the file is missing.
    if (trimWhitespaceAndNewlines(text).starts_with('<')) return std::nullopt;
    Records records;
    std::vector<std::string> agents;
    bool hasRules = false;
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of("\r\n"), text.size());
        auto line = text.substr(0, end);
        text = text.substr(std::min(end + 1, text.size()));
        line = trimWhitespaceAndNewlines(line.substr(0, line.find('#')));
        const auto colon = line.find(':');
        if (colon == std::string_view::npos) continue;
        auto name = lowercasedASCII(trimWhitespaceAndNewlines(line.substr(0, colon)));
        if (name.empty()) continue;
        const std::string value(trimWhitespaceAndNewlines(line.substr(colon + 1)));
        if (name == "user-agent") {
            if (hasRules) agents.clear();
            hasRules = false;
            agents.push_back(value);
            continue;
        }
        if (name.front() >= 'a' && name.front() <= 'z') {
            name.front() = static_cast<char>(name.front() - 'a' + 'A');
        }
        const auto rule = fmt::format("{}: {}", name, value);
        if (name == "Sitemap" || name == "Host") {
            records.push_back({rule, {}});
            continue;
        }
        hasRules = true;
        for (const auto& agent : agents) {
            records.push_back({fmt::format("User-agent: {} | {}", agent, rule), {}});
        }
    }
    return records;
}

MaybeRecords siteMapRecords(std::string_view bytes) {
    const auto root = parseXMLTree(bytes);
    if (!root || (root->name != "urlset" && root->name != "sitemapindex")) return std::nullopt;
    Records records;
    for (const auto& entry : root->children) {
        if (const auto address = entry.childText("loc"); !address.empty()) {
            records.push_back({std::string(address), {}});
        }
    }
    return records;
}

MaybeRecords recordsOf(WatchedSource source, std::string_view bytes) {
    if (source == WatchedSource::robots) return robotsRecords(bytes);
    if (source == WatchedSource::sitemap) return siteMapRecords(bytes);
    const auto root = readValues(bytes);
    if (!root) return std::nullopt;
    switch (source) {
        case WatchedSource::gdmf: return managedVersions(*root);
        case WatchedSource::assets: return assetRecords(*root);
        case WatchedSource::catalogue: return installerRecords(*root);
        case WatchedSource::aasa: return appSiteRecords(*root);
        default: return genericRecords(*root);
    }
}

}  // namespace

std::optional<Records> readWatchedRecords(WatchedSource source, std::string_view bytes) {
    auto records = recordsOf(source, bytes);
    if (!records || records->size() > mostFileEntries) return std::nullopt;
    const auto isBefore = [](const auto& a, const auto& b) {
        return std::tie(a.key, a.fields) < std::tie(b.key, b.fields);
    };
    std::sort(records->begin(), records->end(), isBefore);
    // Files list some entries twice; entries of one name that say different things are numbered.
    records->erase(std::unique(records->begin(), records->end()), records->end());
    for (std::size_t i = 0, first = 0; i < records->size(); ++i) {
        if ((*records)[i].key != (*records)[first].key) first = i;
        if (i > first) (*records)[i].key += fmt::format(" ({})", i - first + 1);
    }
    std::sort(records->begin(), records->end(), isBefore);
    return records;
}

}  // namespace kit
