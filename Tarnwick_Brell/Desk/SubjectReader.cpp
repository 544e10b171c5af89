#include "Tarnwick_Brell/Desk/SubjectReader.h"

#include <utility>

#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

std::vector<const kit::Story*> Subjects::pointers() const {
    std::vector<const kit::Story*> pointers;
    pointers.reserve(stories.size());
    for (const auto& story : stories) pointers.push_back(&story);
    return pointers;
}

Subjects readSubjects(const std::filesystem::path& library, kit::Instant from,
                      const std::stop_token& stop) {
    Subjects subjects;
    if (!LocalStore::exists(library)) return subjects;
    LocalStore store(library, Database::Access::readOnly);
    store.stories().eachInWireOrder(from, [&](const StoredStory& stored) {
        subjects.isCut = subjects.stories.size() == kMostSubjectStories;
        if (subjects.isCut || stop.stop_requested()) return false;
        subjects.stories.push_back(stored.story);
        return true;
    });
    if (stop.stop_requested()) return subjects;
    kit::StoryClusterer clusterer(kit::WordMemory::of(subjects.stories));
    clusterer.add(subjects.stories);
    subjects.corrections = store.corrections().overlay();
    clusterer.setOverrides(
        {.joined = subjects.corrections->joined(), .apart = subjects.corrections->apart()});
    for (auto& cluster : clusterer.clusters())
        subjects.groups.push_back(std::move(cluster.storyIDs));
    return subjects;
}

}  // namespace app
