#include "BrellSharedSync/FieldSet.h"

#include <algorithm>

namespace shared {
namespace {

json::value sortedKeys(const json::value& value) {
    if (value.is_array()) {
        json::array list;
        for (const auto& item : value.get_array()) list.push_back(sortedKeys(item));
        return list;
    }
    if (!value.is_object()) return value;
    std::map<std::string_view, const json::value*> items;
    for (const auto& pair : value.get_object()) items.emplace(pair.key(), &pair.value());
    json::object object;
    for (const auto& [key, item] : items) object.emplace(key, sortedKeys(*item));
    return object;
}

Cell cellFromJSON(const json::value& value) {
    if (!value.is_array()) throw kit::RecordError("", "a field is a list");
    const auto& parts = value.get_array();
    if (parts.size() < 2 || parts.size() > 3) {
        throw kit::RecordError("", "a field has a stamp and a value");
    }
    Cell cell;
    cell.stamp = Stamp::parse(kit::decode<std::string>(parts[0]));
    cell.value = parts[1];
    if (parts.size() == 3) cell.saw = stampsFromJSON(parts[2]);
    return cell;
}

}  // namespace

std::string canonicalText(const json::value& value) { return json::serialize(sortedKeys(value)); }

const Cell* FieldSet::find(std::string_view name) const {
    const auto found = cells_.find(name);
    return found == cells_.end() ? nullptr : &found->second;
}

const json::value& FieldSet::value(std::string_view name) const {
    static const json::value null;
    const auto* cell = find(name);
    return cell ? cell->value : null;
}

bool FieldSet::set(std::string_view name, json::value value, const Stamp& stamp) {
    if (this->value(name) == value) return false;
    put(name, {stamp, std::move(value), {}});
    return true;
}

bool FieldSet::setText(std::string_view name, json::value value, const Stamp& stamp) {
    const auto* old = find(name);
    if (this->value(name) == value) return false;
    Cell cell{stamp, std::move(value), {}};
    if (old) {
        cell.saw = old->saw;
        addStamps(cell.saw, {old->stamp});
        forgetEarliest(cell.saw);
    }
    put(name, std::move(cell));
    return true;
}

void FieldSet::erase(std::string_view name) {
    if (const auto found = cells_.find(name); found != cells_.end()) cells_.erase(found);
}

Stamp FieldSet::next(const Author& author) const {
    std::int64_t latest = 0;
    for (const auto& [name, cell] : cells_) latest = std::max(latest, cell.stamp.milliseconds);
    return Stamp::behind(latest, author);
}

json::object FieldSet::toJSON() const {
    json::object object;
    for (const auto& [name, cell] : cells_) {
        json::array parts{json::string(cell.stamp.text()), cell.value};
        if (!cell.saw.empty()) parts.push_back(stampsJSON(cell.saw));
        object.emplace(name, std::move(parts));
    }
    return object;
}

FieldSet FieldSet::fromJSON(const json::value& value) {
    if (!value.is_object()) throw kit::RecordError("", "an object is expected");
    FieldSet fields;
    for (const auto& pair : value.get_object()) {
        try {
            fields.put(pair.key(), cellFromJSON(pair.value()));
        } catch (const kit::RecordError& error) {
            throw error.inside(std::string(pair.key()));
        }
    }
    return fields;
}

FieldSet FieldSet::parse(std::string_view text) { return fromJSON(kit::parseJSON(text)); }

void forgetEarliest(std::vector<Stamp>& sorted) {
    if (sorted.size() <= kMostAncestors) return;
    sorted.erase(sorted.begin(), sorted.end() - static_cast<std::ptrdiff_t>(kMostAncestors));
}

}  // namespace shared
