#include "BrellSharedSync/RecordMerge.h"

#include <algorithm>
#include <array>
#include <chrono>

#include <fmt/format.h>

#include "BrellSharedSync/TextMerge.h"

namespace shared {
namespace {

bool grewFrom(const Cell& text, const Cell& earlier) {
    return contains(text.saw, earlier.stamp) || text == earlier;
}

bool conflict(const Cell& a, const Cell& b) {
    return a.value != b.value && !contains(a.saw, b.stamp) && !contains(b.saw, a.stamp);
}

bool isEmptyText(const json::value& value) {
    return value.is_null() || (value.is_string() && value.get_string().empty());
}

/// FNV-1a from a start of one's own.
std::uint64_t hashOf(std::string_view text, std::uint64_t start) {
    for (const auto c : text) {
        start = (start ^ static_cast<unsigned char>(c)) * 0x100000001b3ULL;
    }
    return start;
}

/// A UUID made of its content (version 8), in upper case as all of them.
std::string copyID(std::string_view id, const Cell& loser) {
    const auto content =
        std::string(id) + "\n" + loser.stamp.text() + "\n" + canonicalText(loser.value);
    const auto high = hashOf(content, 0xcbf29ce484222325ULL);
    const auto low = hashOf(content, high ^ 0x9e3779b97f4a7c15ULL);
    return fmt::format("{}{:08X}-{:04X}-8{:03X}-8{:03X}-{:012X}", kNotePrefix, high >> 32,
                       (high >> 16) & 0xffff, high & 0xfff, (low >> 48) & 0xfff,
                       low & 0xffff'ffff'ffffULL);
}

/// What a note takes over from the record whose text it keeps: its members of sets, and single
/// fields, which of a clip have other names.
void takeOver(const FieldSet& from, FieldSet& copy, const Stamp& stamp) {
    constexpr std::array kSets{"tags/", "projectIDs/", "storyIDs/"};
    for (const auto& [name, cell] : from.cells()) {
        const auto isOf = [&](const char* prefix) { return name.starts_with(prefix); };
        if (std::ranges::any_of(kSets, isOf)) copy.put(name, {stamp, cell.value, {}});
    }
    copy.put("title", {stamp, from.value("title"), {}});
    const auto& story = from.value("storyID");
    if (story.is_string() && !story.get_string().empty()) {
        copy.put("storyIDs/" + std::string(story.get_string()), {stamp, true, {}});
    }
}

SharedRecord copyOf(std::string_view id, const FieldSet& losing, const Cell& loser) {
    SharedRecord copy{copyID(id, loser), {}};
    const auto& stamp = loser.stamp;
    takeOver(losing, copy.fields, stamp);
    copy.fields.put("text", {stamp, loser.value, {}});
    const kit::Instant at{
        std::chrono::milliseconds(std::min<std::int64_t>(stamp.milliseconds, 253'402'300'799'000))};
    for (const auto* name : {"createdAt", "changedAt"}) {
        copy.fields.put(name, {stamp, kit::encode(at), {}});
    }
    copy.fields.put("copyOf", {stamp,
                               json::object{{"id", json::string(id)},
                                            {"machine", json::string(stamp.machine)},
                                            {"at", stamp.milliseconds}},
                               {}});
    return copy;
}

/// One text that both sides edited.
class TextConflict {
public:
    TextConflict(std::string_view name, const FieldSet& mine, const FieldSet& theirs)
        : mine_(*mine.find(name)),
          theirs_(*theirs.find(name)),
          myWriters_(writersOf(mine, name)),
          theirWriters_(writersOf(theirs, name)) {}

    /// The text that was not removed with knowledge of it, where the other one was.
    const Cell* survivor(const Cell* gone) const {
        const bool mineWasSeen = wasSeen(gone, myWriters_);
        if (mineWasSeen == wasSeen(gone, theirWriters_)) return nullptr;
        return mineWasSeen ? &theirs_ : &mine_;
    }

    bool wereBothRemoved(const Cell* gone) const {
        return wasSeen(gone, myWriters_) && wasSeen(gone, theirWriters_);
    }

    const std::vector<Stamp>& writersOfOne(const Cell& text) const {
        return &text == &mine_ ? myWriters_ : theirWriters_;
    }

    std::vector<Stamp> writersOfBoth() const {
        auto writers = myWriters_;
        addStamps(writers, theirWriters_);
        return writers;
    }

    std::optional<json::value> woven(const Cell* base) const {
        if (!base || !grewFrom(mine_, *base) || !grewFrom(theirs_, *base)) return std::nullopt;
        for (const auto* cell : {base, &mine_, &theirs_}) {
            if (!cell->value.is_string()) return std::nullopt;
        }
        auto text = mergeTexts(base->value.get_string(), mine_.value.get_string(),
                               theirs_.value.get_string());
        if (!text) return std::nullopt;
        return json::value(json::string(*text));
    }

private:
    static bool wasSeen(const Cell* gone, const std::vector<Stamp>& writers) {
        return gone && gone->value == json::value(true) &&
               std::ranges::all_of(writers, [&](const auto& s) { return contains(gone->saw, s); });
    }

    const Cell& mine_;
    const Cell& theirs_;
    std::vector<Stamp> myWriters_;
    std::vector<Stamp> theirWriters_;
};

/// Writes a text that stands for both sides'.
void writeJoined(FieldSet& fields, std::string_view name, json::value value,
                 std::vector<Stamp> writers, const FieldSet& mine, const FieldSet& theirs,
                 const Author& author) {
    Cell joined{fields.next(author), std::move(value), {}};
    for (const auto* side : {&mine, &theirs}) {
        addStamps(joined.saw, side->find(name)->saw);
        addStamps(joined.saw, {side->find(name)->stamp});
    }
    forgetEarliest(joined.saw);
    fields.put(std::string(name) + std::string(kWriters),
               {joined.stamp, nullptr, std::move(writers)});
    fields.put(name, std::move(joined));
}

}  // namespace

FieldSet textsOf(const RecordKind& kind, const FieldSet& fields) {
    FieldSet texts;
    for (const auto& row : kind.fields) {
        const auto* cell = row.rule == FieldRule::text ? fields.find(row.name) : nullptr;
        if (cell) texts.put(row.name, *cell);
    }
    return texts;
}

MergedRecord mergeRecords(std::string_view id, const RecordKind& kind, const FieldSet& mine,
                          const FieldSet& theirs, const FieldSet& base, const Author& author) {
    MergedRecord merged{merge(kind, mine, theirs), {}, false};
    for (const auto& row : kind.fields) {
        if (row.rule != FieldRule::text) continue;
        const auto* own = mine.find(row.name);
        const auto* other = theirs.find(row.name);
        if (!own || !other || !conflict(*own, *other)) continue;
        const TextConflict both(row.name, mine, theirs);
        const auto* gone = merged.fields.find(kGone);
        if (both.wereBothRemoved(gone)) continue;
        if (const auto* survivor = both.survivor(gone)) {
            if (merged.fields.value(row.name) == survivor->value) continue;
            writeJoined(merged.fields, row.name, survivor->value, both.writersOfOne(*survivor),
                        mine, theirs, author);
        } else if (auto text = both.woven(base.find(row.name))) {
            writeJoined(merged.fields, row.name, std::move(*text), both.writersOfBoth(), mine,
                        theirs, author);
        } else {
            const bool ownWon = merged.fields.value(row.name) == own->value;
            const auto& loser = ownWon ? *other : *own;
            if (isEmptyText(loser.value)) continue;
            merged.copies.push_back(copyOf(id, ownWon ? theirs : mine, loser));
        }
    }
    merged.cameBack = (isGone(kind, mine) || isGone(kind, theirs)) && !isGone(kind, merged.fields);
    return merged;
}

}  // namespace shared
