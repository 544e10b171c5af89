#include "Tarnwick_Brell/CommandLine/Naming.h"

#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/Desk/SourceRoster.h"

namespace brell {

desk::StoredStory storyNamed(desk::LocalStore& store, const std::string& id) {
    auto found = store.stories().findByID(newsroom::lowercasedASCII(id), 2);
    if (found.empty())
        throw WorkFailed("There is no story with the id " + id + ". brell wire shows the ids.");
    if (found.size() > 1)
        throw WorkFailed("Several stories have ids that begin with " + id + ". Add more of it.");
    return std::move(found.front());
}

void requireKnownSources(desk::LocalStore& store, const std::vector<std::string>& ids) {
    if (ids.empty()) return;
    const desk::SourceRoster roster(store.sources());
    for (const auto& id : ids) {
        if (!roster.find(id))
            throw WrongUsage("There is no source with the id " + id + ". See brell sources.");
    }
}

}  // namespace brell
