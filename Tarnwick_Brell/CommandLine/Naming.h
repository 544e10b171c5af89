#pragma once

#include <string>
#include <vector>

#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace desk {
class SourceRoster;
}

/// What the words of a command line name. Whatever is not there is wrong usage.
namespace brell {

/// The story with that id, or the only one whose id begins so. Throws WrongUsage, which lists the
/// stories that are meant when there are several.
desk::StoredStory storyNamed(desk::LocalStore& store, const std::string& id);

/// Throws WrongUsage.
const newsroom::NewsSource& sourceNamed(const desk::SourceRoster& roster, const std::string& id);

/// Throws WrongUsage unless every id is a source's.
void requireKnownSources(desk::LocalStore& store, const std::vector<std::string>& ids);

}  // namespace brell
