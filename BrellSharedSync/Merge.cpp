#include "BrellSharedSync/Merge.h"

#include <algorithm>
#include <tuple>

namespace shared {
namespace {

std::string_view fieldOf(std::string_view name) { return name.substr(0, name.find('/')); }

bool tellsOfRemoval(std::string_view name) { return name == kGone || name.ends_with("/gone"); }

/// Whether `a` wins over `b` of equal stamps.
bool isGreater(const Cell& a, const Cell& b) {
    return canonicalText(a.value) > canonicalText(b.value);
}

Cell mergeCells(FieldRule rule, std::string_view name, const Cell& a, const Cell& b) {
    if (a == b) return a;
    if (name.ends_with(kWriters)) {
        const auto order = [](const Cell& one) {
            return std::tuple(one.stamp, one.saw, canonicalText(one.value));
        };
        return order(a) > order(b) ? a : b;
    }
    const bool isLater = a.stamp == b.stamp ? isGreater(a, b) : a.stamp > b.stamp;
    const bool wins = rule == FieldRule::first && a.stamp != b.stamp ? !isLater : isLater;
    Cell merged = wins ? a : b;
    const Cell& other = wins ? b : a;
    addStamps(merged.saw, other.saw);
    if (rule == FieldRule::text && other.stamp != merged.stamp) {
        addStamps(merged.saw, {other.stamp});
    }
    if (!tellsOfRemoval(name)) forgetEarliest(merged.saw);
    return merged;
}

bool isGoneBut(const FieldSet& fields, const Cell* gone, const auto& isEdit) {
    if (!gone || gone->value != json::value(true)) return false;
    const auto wasSeen = [&](const Stamp& stamp) { return contains(gone->saw, stamp); };
    return std::ranges::none_of(fields.cells(), [&](const auto& item) {
        const std::string_view name = item.first;
        return isEdit(name) && !name.ends_with(kWriters) && !wasSeen(item.second.stamp) &&
               !std::ranges::all_of(writersOf(fields, name), wasSeen);
    });
}

void removeAll(FieldSet& fields, std::string_view goneName, std::string_view prefix,
               const Stamp& stamp) {
    Cell removal{stamp, true, {}};
    if (const auto* old = fields.find(goneName)) removal.saw = old->saw;
    std::vector<Stamp> seen;
    for (const auto& [name, cell] : fields.cells()) {
        if (!name.starts_with(prefix) || name == goneName) continue;
        seen.push_back(cell.stamp);
        // Also what a text grew from: elsewhere a machine may bring that together with another.
        seen.insert(seen.end(), cell.saw.begin(), cell.saw.end());
    }
    addStamps(removal.saw, seen);
    fields.put(goneName, std::move(removal));
}

}  // namespace

FieldSet merge(const RecordKind& kind, const FieldSet& a, const FieldSet& b) {
    FieldSet merged = a;
    for (const auto& [name, cell] : b.cells()) {
        const auto* own = a.find(name);
        merged.put(name, own ? mergeCells(kind.ruleOf(fieldOf(name)), name, *own, cell) : cell);
    }
    return merged;
}

bool isGone(const RecordKind& kind, const FieldSet& fields) {
    // What was seen first is no edit: an earlier version of it may come at any time.
    return isGoneBut(fields, fields.find(kGone), [&](std::string_view name) {
        return kind.comesBack && name != kGone && kind.ruleOf(fieldOf(name)) != FieldRule::first;
    });
}

bool isEntryGone(const FieldSet& fields, std::string_view entry) {
    const auto prefix = std::string(entry) + "/";
    const auto goneName = prefix + std::string(kGone);
    return isGoneBut(fields, fields.find(goneName), [&](std::string_view name) {
        return name.starts_with(prefix) && name != goneName;
    });
}

void remove(FieldSet& fields, const Author& author) {
    removeAll(fields, kGone, "", fields.next(author));
}

void removeEntry(FieldSet& fields, std::string_view entry, const Stamp& stamp) {
    const auto prefix = std::string(entry) + "/";
    removeAll(fields, prefix + std::string(kGone), prefix, stamp);
}

std::vector<Stamp> writersOf(const FieldSet& fields, std::string_view name) {
    const auto* cell = fields.find(name);
    const auto* writers = fields.find(std::string(name) + std::string(kWriters));
    if (cell && writers && writers->stamp == cell->stamp) return writers->saw;
    return cell ? std::vector{cell->stamp} : std::vector<Stamp>{};
}

void bringBack(FieldSet& fields, const Author& author) {
    auto cell = fields.find(kGone) ? *fields.find(kGone) : Cell{};
    cell.stamp = fields.next(author);
    cell.value = false;
    fields.put(kGone, std::move(cell));
}

}  // namespace shared
