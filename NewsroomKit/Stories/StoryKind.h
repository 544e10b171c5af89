#pragma once

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// What sort of item a story is.
enum class StoryKind {
    coverage,
    deal,
    review,
    roundup,
    sponsored,
    advertisement,
    podcast,
    video,
    post
};

template <>
inline constexpr std::array<EnumRow<StoryKind>, 9> enumTable<StoryKind>{{
    {StoryKind::coverage, "coverage", "Coverage"},
    {StoryKind::deal, "deal", "Deal"},
    {StoryKind::review, "review", "Review"},
    {StoryKind::roundup, "roundup", "Roundup"},
    {StoryKind::sponsored, "sponsored", "Sponsored"},
    {StoryKind::advertisement, "advertisement", "Ad"},
    {StoryKind::podcast, "podcast", "Podcast"},
    {StoryKind::video, "video", "Video"},
    {StoryKind::post, "post", "Post"},
}};

/// Kinds that every story query hides unless it asks for them.
constexpr bool isSetAside(StoryKind kind) {
    return kind >= StoryKind::deal && kind <= StoryKind::advertisement;
}

}  // namespace kit
