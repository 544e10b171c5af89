#pragma once

#include "NewsroomKit/Library/Clip.h"
#include "NewsroomKit/Library/Note.h"
#include "NewsroomKit/Library/Project.h"
#include "NewsroomKit/Library/SavedStory.h"
#include "Tarnwick_Brell/Storage/Tables/KeptTable.h"

namespace app {

/// Which kind of record a type is.
template <class T>
inline constexpr KeptKind kKindOf{};
template <>
inline constexpr KeptKind kKindOf<kit::Clip> = KeptKind::clip;
template <>
inline constexpr KeptKind kKindOf<kit::Note> = KeptKind::note;
template <>
inline constexpr KeptKind kKindOf<kit::Project> = KeptKind::project;
template <>
inline constexpr KeptKind kKindOf<kit::SavedStory> = KeptKind::story;

/// What lists and the search show of a record.
KeptFace faceOf(const kit::Clip& clip);
KeptFace faceOf(const kit::Note& note);
KeptFace faceOf(const kit::Project& project);
KeptFace faceOf(const kit::SavedStory& story);

/// The record as JSON, laid over the one that was stored: keys that only a newer version knows
/// stay. `stored` may be empty. Throws RecordError when it is no object.
template <class T>
boost::json::object mergedRecord(std::string_view stored, const T& value) {
    auto record = stored.empty() ? boost::json::object() : kit::parseJSON(stored).as_object();
    std::apply([&](const auto&... field) { (record.erase(field.key), ...); },
               kit::JSONFields<T>::fields);
    const auto encoded = kit::encode(value);
    for (const auto& pair : encoded.get_object()) record[pair.key()] = pair.value();
    return record;
}

/// Writes the record within the caller's transaction, with `extras`, keys that T does not have.
template <class T>
boost::json::object writeKept(KeptTable& table, const T& value,
                              const boost::json::object& extras = {}) {
    const auto stored = table.record(kKindOf<T>, value.id);
    auto record = mergedRecord(stored.value_or(""), value);
    for (const auto& pair : extras) record[pair.key()] = pair.value();
    table.put(kKindOf<T>, value.id, record, faceOf(value));
    return record;
}

}  // namespace app
