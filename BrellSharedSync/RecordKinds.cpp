#include "BrellSharedSync/RecordKinds.h"

#include <algorithm>
#include <array>

namespace shared {
namespace {

using enum FieldRule;

constexpr std::array kSavedStory{
    FieldRow{"savedAt", latest}, FieldRow{"link", first},        FieldRow{"title", first},
    FieldRow{"excerpt", first},  FieldRow{"author", first},      FieldRow{"publishedAt", first},
    FieldRow{"sourceID", first}, FieldRow{"sourceName", first},  FieldRow{"destinationName", first},
    FieldRow{"imageURL", first}, FieldRow{"articleLink", first}, FieldRow{"tags", set},
    FieldRow{"projectIDs", set},
};
constexpr std::array kSource{
    FieldRow{"id", first},       FieldRow{"name", latest},   FieldRow{"feedURL", latest},
    FieldRow{"siteURL", latest}, FieldRow{"addedAt", first},
};
constexpr std::array kSwitch{FieldRow{"enabled", latest}};
constexpr std::array kNewsroom{
    FieldRow{"version", latest}, FieldRow{"name", latest},   FieldRow{"symbol", latest},
    FieldRow{"origin", latest},  FieldRow{"prompt", latest}, FieldRow{"focus", latest},
    FieldRow{"panels", entries},
};
constexpr std::array kBeat{
    FieldRow{"name", latest},
    FieldRow{"symbol", latest},
    FieldRow{"query", latest},
    FieldRow{"alerts", latest},
};
constexpr std::array kClip{
    FieldRow{"quote", first},       FieldRow{"prefix", first},  FieldRow{"suffix", first},
    FieldRow{"storyID", latest},    FieldRow{"link", latest},   FieldRow{"title", latest},
    FieldRow{"sourceName", latest}, FieldRow{"author", latest}, FieldRow{"publishedAt", latest},
    FieldRow{"accessedAt", first},  FieldRow{"note", text},     FieldRow{"tags", set},
    FieldRow{"projectIDs", set},
};
constexpr std::array kNote{
    FieldRow{"title", latest},     FieldRow{"text", text},    FieldRow{"createdAt", first},
    FieldRow{"changedAt", latest}, FieldRow{"storyIDs", set}, FieldRow{"projectIDs", set},
    FieldRow{"tags", set},         FieldRow{"copyOf", first},
};
constexpr std::array kProject{
    FieldRow{"name", latest},     FieldRow{"description", latest}, FieldRow{"color", latest},
    FieldRow{"archived", latest}, FieldRow{"createdAt", first},    FieldRow{"ranks", map},
    FieldRow{"done", map},
};
constexpr std::array kPage{
    FieldRow{"address", latest},
    FieldRow{"name", latest},
    FieldRow{"added", first},
    FieldRow{"urgent", latest},
};
constexpr std::array kMachine{
    FieldRow{"name", latest},
    FieldRow{"programVersion", latest},
    FieldRow{"lastSeen", latest},
};
constexpr std::array kSetting{FieldRow{"value", latest}};

constexpr std::array kKinds{
    RecordKind{"saved story", "s:", false, kSavedStory},
    RecordKind{"source", "f:", false, kSource},
    RecordKind{"switch", "w:", false, kSwitch},
    RecordKind{"newsroom", "n:", false, kNewsroom},
    RecordKind{"beat", "b:", false, kBeat},
    RecordKind{"clip", "c:", true, kClip},
    RecordKind{"note", kNotePrefix, true, kNote},
    RecordKind{"project", "p:", true, kProject},
    RecordKind{"watched page", "g:", true, kPage},
    RecordKind{"machine", "x:", false, kMachine},
    RecordKind{"setting", "t:", false, kSetting},
};

}  // namespace

FieldRule RecordKind::ruleOf(std::string_view field) const {
    const auto row = std::ranges::find(fields, field, &FieldRow::name);
    return row == fields.end() ? latest : row->rule;
}

bool RecordKind::lists(std::string_view field) const {
    return std::ranges::find(fields, field, &FieldRow::name) != fields.end();
}

std::span<const RecordKind> recordKinds() { return kKinds; }

const RecordKind* kindOfRecord(std::string_view id) {
    const auto kind = std::ranges::find_if(
        kKinds, [&](const RecordKind& row) { return id.starts_with(row.prefix); });
    return kind == kKinds.end() ? nullptr : &*kind;
}

}  // namespace shared
