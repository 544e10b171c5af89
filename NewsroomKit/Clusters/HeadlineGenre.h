#pragma once

#include <cstdint>
#include <string_view>

#include "NewsroomKit/Stories/StoryKind.h"

namespace kit {

/// What a headline promises.
enum class HeadlineGenre : std::uint8_t {
    news,
    /// Tells of several things, or of something that others report: roundups, live blogs, guides,
    /// deals. It may join a cluster but never leads one.
    companion,
    opinion,  ///< joins no cluster
};

HeadlineGenre headlineGenre(std::string_view title, StoryKind kind);

}  // namespace kit
