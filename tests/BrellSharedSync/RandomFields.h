#pragma once

#include <random>
#include <string>

#include "BrellSharedSync/FieldSet.h"
#include "BrellSharedSync/RecordKinds.h"

namespace shared::random {

class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    /// 0 to `count` - 1, the same everywhere.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    bool oneIn(std::size_t count) { return below(count) == 0; }

private:
    std::mt19937_64 engine_;
};

/// From so few values that equal stamps with different values come up all the time.
inline Stamp stamp(Dice& dice) {
    return {static_cast<std::int64_t>(1 + dice.below(6)), dice.oneIn(2) ? "aa" : "bb"};
}

inline json::value value(Dice& dice) {
    switch (dice.below(5)) {
        case 0: return nullptr;
        case 1: return true;
        case 2: return static_cast<std::int64_t>(dice.below(3));
        case 3: return json::object{{"x", static_cast<std::int64_t>(dice.below(2))}, {"a", 1}};
        default: return json::string(std::string(1 + dice.below(2), 'x'));
    }
}

inline Cell cell(Dice& dice) {
    Cell made{stamp(dice), value(dice), {}};
    while (dice.oneIn(2)) addStamps(made.saw, {stamp(dice)});
    return made;
}

inline FieldSet fields(const RecordKind& kind, Dice& dice) {
    FieldSet made;
    for (const auto& row : kind.fields) {
        if (dice.oneIn(3)) continue;
        made.put(row.name, cell(dice));
        if (dice.oneIn(3)) made.put(std::string(row.name) + "/k", cell(dice));
    }
    for (const auto* name :
         {"gone", "panels/p/gone", "panels/p/frame", "text/writers", "new in version 9"}) {
        if (dice.oneIn(3)) made.put(name, cell(dice));
    }
    return made;
}

}  // namespace shared::random
