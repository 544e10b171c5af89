#pragma once

#include <string>
#include <vector>

#include "Tarnwick_Brell/Storage/LocalStore.h"

/// What the words of a command line name.
namespace brell {

/// The story with that id, or the only one whose id begins so. Throws WorkFailed.
desk::StoredStory storyNamed(desk::LocalStore& store, const std::string& id);

/// Throws WrongUsage unless every id is a source's.
void requireKnownSources(desk::LocalStore& store, const std::vector<std::string>& ids);

}  // namespace brell
