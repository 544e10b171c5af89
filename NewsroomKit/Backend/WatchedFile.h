#pragma once

#include <array>
#include <chrono>
#include <span>
#include <string_view>

#include "NewsroomKit/Backend/WatchedRecord.h"

namespace kit {

/// What the entries of a watched file are about.
enum class FileSubject { builds, settings, paths, assets };

template <>
inline constexpr std::array<EnumRow<FileSubject>, 4> enumTable<FileSubject>{{
    {FileSubject::builds, "builds", "Builds"},
    {FileSubject::settings, "settings", "Settings"},
    {FileSubject::paths, "paths", "Paths"},
    {FileSubject::assets, "assets", "Assets"},
}};

/// One public file of Apple's that the desk watches.
struct WatchedFile {
    std::string_view id;    ///< stored with its findings
    std::string_view name;  ///< for lists
    std::string_view address;
    WatchedSource source;
    FileSubject subject;
    std::string_view identity;  ///< what an entry is known by, in words
    /// Fields that are written again without news in them.
    std::array<std::string_view, 2> ignoredFields{};
    std::chrono::minutes interval{30};
};

/// Only published addresses, each asked for at most once in its interval.
std::span<const WatchedFile> watchedFiles();

/// Null when there is no such file.
const WatchedFile* watchedFile(std::string_view id);

}  // namespace kit
