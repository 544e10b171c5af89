#pragma once

#include <array>

#include "NewsroomKit/Records/EnumTable.h"

namespace app {

/// What the user keeps.
enum class KeptKind { clip, note, project, story };

}  // namespace app

template <>
inline constexpr std::array<kit::EnumRow<app::KeptKind>, 4> kit::enumTable<app::KeptKind>{{
    {app::KeptKind::clip, "clip", "Clip"},
    {app::KeptKind::note, "note", "Note"},
    {app::KeptKind::project, "project", "Project"},
    {app::KeptKind::story, "story", "Saved story"},
}};
