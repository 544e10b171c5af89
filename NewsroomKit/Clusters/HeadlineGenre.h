#pragma once

#include <cstdint>
#include <string_view>

#include "NewsroomKit/Stories/StoryKind.h"

namespace kit {

/// What a headline promises.
enum class HeadlineGenre : std::uint8_t {
    news,
    /// Tells of several things, or of something that others report: roundups, live blogs, deals. It
    /// may join a cluster but never leads one.
    companion,
    guide,    ///< what something can do and how to use it; joins no cluster
    opinion,  ///< joins no cluster
};

HeadlineGenre headlineGenre(std::string_view title, StoryKind kind);

}  // namespace kit
