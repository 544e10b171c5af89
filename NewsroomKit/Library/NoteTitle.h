#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "NewsroomKit/Library/Note.h"

namespace kit {

/// The note's title, or the first line of its text that says something when it has none.
std::string shownTitle(const Note& note);

/// The beginning of a text on one line, of at most so many user-perceived characters.
std::string textBeginning(std::string_view text, std::size_t characters);

}  // namespace kit
