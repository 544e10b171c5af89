#include "NewsroomKit/Backend/GenericRecords.h"

#include <algorithm>
#include <array>
#include <set>

#include <fmt/format.h>

#include "NewsroomKit/Backend/PropertyList.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

namespace json = boost::json;

constexpr std::size_t longestKeyValue = 200;

/// The member that identifies the objects of a list: all have it, with different scalars.
std::string_view identityOf(const json::array& items) {
    constexpr std::array<std::string_view, 10> names{
        "id", "ID", "identifier", "Identifier", "uuid", "key", "name", "Name", "url", "appID"};
    for (const auto name : names) {
        std::set<std::string> values;
        const bool hasAll = std::all_of(items.begin(), items.end(), [&](const json::value& item) {
            const auto* value = item.is_object() ? item.get_object().if_contains(name) : nullptr;
            return value && !value->is_structured() && values.insert(scalarText(*value)).second;
        });
        if (hasAll) return name;
    }
    return {};
}

std::string under(const std::string& path, std::string_view name) {
    return path.empty() ? std::string(name) : fmt::format("{}/{}", path, name);
}

/// A value inside a key; a long one is told by its beginning, its length and its hash.
std::string shortText(const std::string& text) {
    if (text.size() <= longestKeyValue) return text;
    return fmt::format("{}… ({})", firstCharacters(text, longestKeyValue),
                       std::string_view(describedData(text)));
}

class GenericReader {
public:
    std::vector<WatchedRecord> read(const json::value& root) {
        readValue(root, "");
        return std::move(records_);
    }

private:
    void readValue(const json::value& value, const std::string& path) {
        if (const auto* object = value.if_object()) {
            for (const auto& member : *object) {
                if (!isVolatileMember(member.key())) {
                    readValue(member.value(), under(path, member.key()));
                }
            }
        } else if (const auto* list = value.if_array()) {
            readList(*list, path);
        } else {
            records_.push_back({path.empty() ? "value" : path, {{"value", scalarText(value)}}});
        }
    }

    void readList(const json::array& items, const std::string& path) {
        const auto identity = identityOf(items);
        for (const auto& item : items) {
            if (!identity.empty()) {
                const auto name = scalarText(item.get_object().at(identity));
                readValue(item, under(path, fmt::format("[{}]", shortText(name))));
            } else {
                records_.push_back(
                    {fmt::format("{}[] = {}", path, shortText(scalarText(item))), {}});
            }
        }
    }

    std::vector<WatchedRecord> records_;
};

void addFields(const json::object& object, const std::string& path,
               const std::vector<std::string_view>& ignored,
               std::map<std::string, std::string>& fields) {
    for (const auto& member : object) {
        const std::string_view name = member.key();
        if (std::find(ignored.begin(), ignored.end(), name) != ignored.end()) continue;
        if (isVolatileMember(name)) continue;
        if (const auto* inner = member.value().if_object()) {
            addFields(*inner, under(path, name), ignored, fields);
        } else {
            fields[under(path, name)] = scalarText(member.value());
        }
    }
}

}  // namespace

bool isVolatileMember(std::string_view name) {
    constexpr std::array<std::string_view, 15> names{
        "signature",      "certificate",  "signingkey",    "nonce",     "generated",
        "generatedat",    "generated-at", "generated_at",  "timestamp", "lastupdated",
        "expirationdate", "indexdate",    "_assetreceipt", "requestid", "etag"};
    const auto lower = lowercasedASCII(name);
    return std::find(names.begin(), names.end(), lower) != names.end();
}

std::string scalarText(const json::value& value) {
    if (const auto* text = value.if_string()) return std::string(*text);
    if (const auto* list = value.if_array()) {
        std::vector<std::string> items;
        for (const auto& item : *list) items.push_back(scalarText(item));
        std::sort(items.begin(), items.end());
        return fmt::format("{}", fmt::join(items, ", "));
    }
    if (const auto* object = value.if_object()) {
        std::vector<std::string> members;
        for (const auto& member : *object) {
            if (isVolatileMember(member.key())) continue;
            members.push_back(
                fmt::format("{}: {}", std::string_view(member.key()), scalarText(member.value())));
        }
        std::sort(members.begin(), members.end());
        return fmt::format("{{{}}}", fmt::join(members, "; "));
    }
    return json::serialize(value);
}

std::map<std::string, std::string> fieldsOf(const json::object& object,
                                            const std::vector<std::string_view>& ignored) {
    std::map<std::string, std::string> fields;
    addFields(object, "", ignored, fields);
    return fields;
}

std::vector<WatchedRecord> genericRecords(const json::value& root) {
    return GenericReader().read(root);
}

}  // namespace kit
