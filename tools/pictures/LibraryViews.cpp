#include "tools/pictures/LibraryViews.h"

#include <string>

#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Models/Pages/ProjectPageModel.h"
#include "Tarnwick_Brell/Models/Pages/SearchPageModel.h"

namespace pictures {

using namespace app;
using Page = LibraryPlace::Page;

namespace {

struct Samples {
    std::string project{};
    std::string story{};
};

kit::Story storyAt(NewsDesk& news, std::size_t place) {
    return news.stories()[std::min(place, news.stories().size() - 1)].unpacked().story;
}

/// Fills the library once.
const Samples& samples(NewsDesk& news, LibraryStore& kept) {
    static Samples made;
    if (!made.project.empty()) return made;
    made.story = storyAt(news, 0).id;
    bool isDone = false;
    kept.put<kit::Project>(
        {.name = "Browser engines", .description = "Who knew what, and when. For December."},
        [&](const kit::Project& project) { made.project = project.id; });
    kept.put<kit::Project>({.name = "Repairs"}, {});
    waitUntil("the project", [&] { return !made.project.empty(); });
    for (std::size_t place : {0U, 2U, 5U})
        kept.setMember(made.project, kit::MemberKind::story, storyAt(news, place).id, true);
    for (std::size_t place : {0U, 3U, 4U, 7U}) {
        const auto story = storyAt(news, place);
        kept.clip(story, story.summary.empty() ? story.title : story.summary.substr(0, 180),
                  "CLIP-" + std::to_string(place), {});
        if (place < 4)
            kept.setMember(made.project, kit::MemberKind::clip, "CLIP-" + std::to_string(place),
                           true);
    }
    kept.put<kit::Note>({.title = "Call the harbour",
                         .text = "# Before Monday\n\nAsk **why** the deadline is *1 March*, and "
                                 "not April.\n\n- [ ] the office in Tokyo\n- [x] both states of "
                                 "the page\n\n> \"We would need to see the words\"\n\nSee "
                                 "https://harbour.example/notes and `2.5.6`.",
                         .projectIDs = {made.project}},
                        {});
    kept.put<kit::Note>({.text = "Two states, 30 minutes apart.\nThe older text was served until "
                                 "14:32.",
                         .storyIDs = {made.story}},
                        {});
    kept.put<kit::Note>({.id = "OLD", .title = "Old list"}, {});
    kept.remove(KeptKind::note, "OLD");
    kept.setDone(made.project, kit::memberKey(kit::MemberKind::clip, "CLIP-0"), true);
    kept.count([&](LibraryStore::Counts) { isDone = true; });
    waitUntil("the library", [&] { return isDone; });
    return made;
}

void openPage(WindowModel& model, const LibraryPlace& place) {
    model.open(place.destination().key());
    waitUntil("the library", [&] { return model.page()->state() != PanelModel::Loading; });
}

}  // namespace

std::vector<View> libraryViews(NewsDesk& news, LibraryStore& kept) {
    const auto page = [&](Page which) {
        return [&news, &kept, which](WindowModel& model) {
            const auto& made = samples(news, kept);
            openPage(model, {which, which == Page::project ? made.project : std::string()});
        };
    };
    return {
        {"library-clips", page(Page::clips)},
        {"library-notes", page(Page::notes)},
        {"library-projects", page(Page::projects)},
        {"library-project", page(Page::project)},
        {"library-removed", page(Page::removed)},
        {"library-search",
         [&](WindowModel& model) {
             samples(news, kept);
             openPage(model, {Page::search, "app"});
         }},
        {"library-sheet",
         [&](WindowModel& model) {
             model.openStory(QString::fromStdString(samples(news, kept).story));
             model.actions()->trigger(DeskAction::PutIntoProject);
         }},
        {"library-reader",
         [&](WindowModel& model) {
             model.openStory(QString::fromStdString(samples(news, kept).story));
             model.actions()->trigger(DeskAction::WriteNote);
         }},
    };
}

}  // namespace pictures
