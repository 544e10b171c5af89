#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "BrellSharedSync/Stamp.h"

namespace shared {

/// A value with the stamp of the write that gave it.
struct Cell {
    Stamp stamp{};
    json::value value{};
    /// Of a text the stamps of the texts that it grew from, of a removal those of what was removed.
    /// Sorted, each once.
    std::vector<Stamp> saw{};

    bool operator==(const Cell&) const = default;
};

/// JSON with the keys of its objects sorted, so that equal values have equal texts.
std::string canonicalText(const json::value& value);

/// A record as it travels between computers: each field with a stamp of its own. Fields are flat:
/// the members of sets and maps and the parts of their entries are fields too, named
/// "tags/leaks", "done/clip:4711", "panels/8B3D…/frame". A field that was emptied stays, with null.
/// What it does not know it keeps as it is.
class FieldSet {
public:
    using Cells = std::map<std::string, Cell, std::less<>>;

    const Cells& cells() const { return cells_; }
    const Cell* find(std::string_view name) const;
    /// The field's value; null where there is none.
    const json::value& value(std::string_view name) const;

    /// Writes a value that differs from the present one; tells whether it did. Null is not written
    /// where there is no field yet. What is written together may have one stamp, from `next`.
    bool set(std::string_view name, json::value value, const Stamp& stamp);
    bool set(std::string_view name, json::value value, const Author& author) {
        return set(name, std::move(value), next(author));
    }
    /// The same for a text whose edits on two computers are brought together: it remembers the
    /// latest kMostAncestors texts that it grew from.
    bool setText(std::string_view name, json::value value, const Stamp& stamp);
    bool setText(std::string_view name, json::value value, const Author& author) {
        return setText(name, std::move(value), next(author));
    }

    /// Lays a cell over what is there.
    void put(std::string_view name, Cell cell) { cells_.insert_or_assign(std::string(name), cell); }
    void erase(std::string_view name);

    /// The stamp of a write by somebody who sees this record. It is later than all of its stamps
    /// and not only than the replaced one, so that the stamps that one machine gives to a record
    /// rise even when its clock does not.
    Stamp next(const Author& author) const;

    /// {"title": ["1763862000000-k3x9q2ab", "Tim"], "gone": ["…", true, {…stamps}], …}
    json::object toJSON() const;
    /// Throws kit::RecordError.
    static FieldSet fromJSON(const json::value& value);

    /// The same as text, in one canonical form.
    std::string text() const { return canonicalText(toJSON()); }
    /// Throws kit::RecordError.
    static FieldSet parse(std::string_view text);

    bool operator==(const FieldSet&) const = default;

private:
    Cells cells_;
};

inline constexpr std::size_t kMostAncestors = 200;

/// Drops the earliest of sorted stamps over kMostAncestors.
void forgetEarliest(std::vector<Stamp>& sorted);

}  // namespace shared
