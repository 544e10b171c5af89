#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {
class SourceRegistry;
}

/// Finds stories and sources named on the command line; a missing one is wrong usage.
namespace cli {

/// The story with that id, or the only one whose id begins with it. Throws WrongUsage, which lists
/// the candidates when there are several.
app::StoredStory storyNamed(app::LocalStore& store, const std::string& id);

/// Throws WrongUsage.
const kit::NewsSource& sourceNamed(const app::SourceRegistry& registry, const std::string& id);

/// Throws WrongUsage unless every id is a source's.
void requireKnownSources(app::LocalStore& store, const std::vector<std::string>& ids);

}  // namespace cli
