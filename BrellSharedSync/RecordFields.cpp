#include "BrellSharedSync/RecordFields.h"

#include <algorithm>
#include <set>

#include "BrellSharedSync/Merge.h"
#include "BrellSharedSync/Rank.h"

namespace shared {
namespace {

constexpr std::string_view kID = "id";
/// The parts of an entry: where it stands, its place in the list, and all the rest of it.
constexpr std::string_view kFrame = "frame";
constexpr std::string_view kRank = "rank";
constexpr std::string_view kSpec = "spec";

std::string below(std::string_view name, std::string_view key) {
    return std::string(name) + "/" + std::string(key);
}

/// Calls use(key, cell) for the fields "name/key".
void eachBelow(const FieldSet& fields, std::string_view name, const auto& use) {
    const auto prefix = below(name, "");
    for (auto i = fields.cells().lower_bound(prefix);
         i != fields.cells().end() && i->first.starts_with(prefix); ++i) {
        use(std::string_view(i->first).substr(prefix.size()), i->second);
    }
}

/// Writes the keys of a set or a map; those that are missing get `absent`.
bool writeKeys(FieldSet& fields, std::string_view name,
               const std::map<std::string, json::value>& wanted, const json::value& absent,
               const Stamp& stamp) {
    std::vector<std::string> dropped;
    eachBelow(fields, name, [&](std::string_view key, const Cell& cell) {
        if (!wanted.contains(std::string(key)) && cell.value != absent) dropped.emplace_back(key);
    });
    bool wrote = false;
    for (const auto& key : dropped) wrote |= fields.set(below(name, key), absent, stamp);
    for (const auto& [key, value] : wanted) wrote |= fields.set(below(name, key), value, stamp);
    return wrote;
}

bool writeSet(FieldSet& fields, std::string_view name, const json::value& list,
              const Stamp& stamp) {
    std::map<std::string, json::value> wanted;
    for (auto& member : kit::decode<std::vector<std::string>>(list)) wanted.emplace(member, true);
    return writeKeys(fields, name, wanted, false, stamp);
}

bool writeMap(FieldSet& fields, std::string_view name, const json::value& map, const Stamp& stamp) {
    std::map<std::string, json::value> wanted;
    if (!map.is_object()) throw kit::RecordError(std::string(name), "an object is expected");
    for (const auto& pair : map.get_object()) wanted.emplace(pair.key(), pair.value());
    return writeKeys(fields, name, wanted, nullptr, stamp);
}

std::string textOf(const json::value& value) {
    return value.is_string() ? std::string(value.get_string()) : std::string();
}

/// The ids of all entries, with those that are gone.
std::set<std::string> entryIDs(const FieldSet& fields, std::string_view name) {
    std::set<std::string> ids;
    eachBelow(fields, name, [&](std::string_view key, const Cell&) {
        ids.emplace(key.substr(0, key.find('/')));
    });
    return ids;
}

/// A present rank stays where it is behind the entry before.
std::string placed(const FieldSet& fields, const std::string& entry, const std::string& before,
                   const std::string& following) {
    auto present = textOf(fields.value(below(entry, kRank)));
    return present > before ? present : rankBetween(before, following);
}

bool writeEntries(FieldSet& fields, std::string_view name, const json::value& list,
                  const Stamp& stamp) {
    bool wrote = false;
    std::set<std::string> missing = entryIDs(fields, name);
    std::string rank;
    if (!list.is_array()) throw kit::RecordError(std::string(name), "a list is expected");
    const auto& items = list.get_array();
    const auto entryOf = [&](const json::value& item) {
        if (!item.is_object()) throw kit::RecordError(std::string(name), "objects are expected");
        const auto* id = item.get_object().if_contains(kID);
        return id ? textOf(*id) : std::string();
    };
    for (std::size_t i = 0; i < items.size(); ++i) {
        const auto id = entryOf(items[i]);
        const auto entry = below(name, id);
        missing.erase(id);
        auto spec = items[i].get_object();
        const auto frame = spec.contains(kFrame) ? spec[kFrame] : json::value();
        spec.erase(kFrame);
        spec.erase(kID);
        if (isEntryGone(fields, entry)) wrote |= fields.set(below(entry, kGone), false, stamp);
        const auto following =
            i + 1 < items.size() ? below(below(name, entryOf(items[i + 1])), kRank) : "";
        rank = placed(fields, entry, rank, textOf(fields.value(following)));
        wrote |= fields.set(below(entry, kSpec), std::move(spec), stamp);
        wrote |= fields.set(below(entry, kFrame), frame, stamp);
        wrote |= fields.set(below(entry, kRank), json::string(rank), stamp);
    }
    for (const auto& id : missing) {
        if (isEntryGone(fields, below(name, id))) continue;
        removeEntry(fields, below(name, id), stamp);
        wrote = true;
    }
    return wrote;
}

bool writeField(FieldRule rule, FieldSet& fields, std::string_view name, const json::value& value,
                const Stamp& stamp) {
    switch (rule) {
        case FieldRule::set: return writeSet(fields, name, value, stamp);
        case FieldRule::map: return writeMap(fields, name, value, stamp);
        case FieldRule::entries: return writeEntries(fields, name, value, stamp);
        case FieldRule::text: return fields.setText(name, value, stamp);
        case FieldRule::first: return !fields.find(name) && fields.set(name, value, stamp);
        case FieldRule::latest: break;
    }
    return fields.set(name, value, stamp);
}

json::array setJSON(const FieldSet& fields, std::string_view name) {
    json::array list;
    eachBelow(fields, name, [&](std::string_view key, const Cell& cell) {
        if (cell.value == json::value(true)) list.emplace_back(json::string(key));
    });
    return list;
}

json::object mapJSON(const FieldSet& fields, std::string_view name) {
    json::object map;
    eachBelow(fields, name, [&](std::string_view key, const Cell& cell) {
        if (!cell.value.is_null()) map.emplace(key, cell.value);
    });
    return map;
}

json::array entriesJSON(const FieldSet& fields, std::string_view name) {
    std::map<std::pair<std::string, std::string>, json::value> ranked;
    for (const auto& id : entryIDs(fields, name)) {
        const auto entry = below(name, id);
        const auto& spec = fields.value(below(entry, kSpec));
        if (!spec.is_object() || isEntryGone(fields, entry)) continue;
        json::object item{{kID, json::string(id)}};
        for (const auto& pair : spec.get_object()) item.emplace(pair.key(), pair.value());
        item[kFrame] = fields.value(below(entry, kFrame));
        ranked.emplace(std::pair(textOf(fields.value(below(entry, kRank))), id), std::move(item));
    }
    json::array list;
    for (auto& [place, item] : ranked) list.push_back(std::move(item));
    return list;
}

}  // namespace

bool writeRecord(const RecordKind& kind, FieldSet& fields, const json::object& record,
                 const Author& author) {
    const auto stamp = fields.next(author);
    // What is made anew under a name that it may have had before is no longer gone.
    bool wrote = false;
    if (fields.cells().empty() && !kind.comesBack) wrote = fields.set(kGone, false, stamp);
    for (const auto& row : kind.fields) {
        if (const auto* value = record.if_contains(row.name)) {
            wrote |= writeField(row.rule, fields, row.name, *value, stamp);
        } else if (row.rule == FieldRule::latest || row.rule == FieldRule::text) {
            wrote |= writeField(row.rule, fields, row.name, nullptr, stamp);
        }
    }
    for (const auto& pair : record) {
        if (kind.lists(pair.key()) || pair.key() == kID) continue;
        wrote |= fields.set(pair.key(), pair.value(), stamp);
    }
    return wrote;
}

json::object recordJSON(const RecordKind& kind, const FieldSet& fields) {
    json::object record;
    for (const auto& row : kind.fields) {
        switch (row.rule) {
            case FieldRule::set: record.emplace(row.name, setJSON(fields, row.name)); break;
            case FieldRule::map: record.emplace(row.name, mapJSON(fields, row.name)); break;
            case FieldRule::entries: record.emplace(row.name, entriesJSON(fields, row.name)); break;
            default:
                if (!fields.value(row.name).is_null()) {
                    record.emplace(row.name, fields.value(row.name));
                }
        }
    }
    return record;
}

}  // namespace shared
