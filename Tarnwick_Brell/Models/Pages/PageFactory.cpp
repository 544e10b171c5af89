#include "Tarnwick_Brell/Models/Pages/PageFactory.h"

#include <array>
#include <string_view>

#include "Tarnwick_Brell/Models/Pages/ActivityPageModel.h"
#include "Tarnwick_Brell/Models/Pages/ArchivePageModel.h"
#include "Tarnwick_Brell/Models/Pages/BackendPageModel.h"
#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Models/Pages/ChartsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/ClipsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/CorrectionsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/EventsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/LedgerPageModel.h"
#include "Tarnwick_Brell/Models/Pages/MarketsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/NotesPageModel.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Pages/PagesPageModel.h"
#include "Tarnwick_Brell/Models/Pages/ProjectPageModel.h"
#include "Tarnwick_Brell/Models/Pages/ProjectsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/RacesPageModel.h"
#include "Tarnwick_Brell/Models/Pages/RecordsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/RemovedPageModel.h"
#include "Tarnwick_Brell/Models/Pages/SearchPageModel.h"
#include "Tarnwick_Brell/Models/Pages/SigningPageModel.h"
#include "Tarnwick_Brell/Models/Pages/SoftwarePageModel.h"
#include "Tarnwick_Brell/Models/Pages/SourcesPageModel.h"
#include "Tarnwick_Brell/Models/Pages/StatusPageModel.h"
#include "Tarnwick_Brell/Models/Pages/TimelinePageModel.h"
#include "Tarnwick_Brell/Models/Pages/TopStoriesPageModel.h"
#include "Tarnwick_Brell/Models/Pages/UpdatesPageModel.h"

namespace app {

namespace {

using Make = std::unique_ptr<PageModel> (*)(const DeskStores& stores);

struct PageRow {
    std::string_view key;  ///< of its Destination
    Make make;
};

template <class Page>
std::unique_ptr<PageModel> pageOf(const DeskStores& stores) {
    return std::make_unique<Page>(stores);
}

const PageRow* rowOf(const Destination& place) {
    static constexpr std::array kPages{
        PageRow{"tracker:markets", pageOf<MarketsPageModel>},
        PageRow{"tracker:signing", pageOf<SigningPageModel>},
        PageRow{"tracker:updates", pageOf<UpdatesPageModel>},
        PageRow{"tracker:charts", pageOf<ChartsPageModel>},
        PageRow{"tracker:records", pageOf<RecordsPageModel>},
        PageRow{"tracker:pages", pageOf<PagesPageModel>},
        PageRow{"tracker:backend", pageOf<BackendPageModel>},
        PageRow{"page:sources", pageOf<SourcesPageModel>},
        PageRow{"tracker:status", pageOf<StatusPageModel>},
        PageRow{"tracker:software", pageOf<SoftwarePageModel>},
        PageRow{"tracker:events", pageOf<EventsPageModel>},
        PageRow{"page:activity", pageOf<ActivityPageModel>},
        PageRow{"page:archive", pageOf<ArchivePageModel>},
        PageRow{"page:races", pageOf<RacesPageModel>},
        PageRow{"page:ledger", pageOf<LedgerPageModel>},
        PageRow{"wire:top", pageOf<TopStoriesPageModel>},
        PageRow{"page:corrections", pageOf<CorrectionsPageModel>},
    };
    const auto key = place.key().toStdString();
    for (const auto& row : kPages) {
        if (row.key == key) return &row;
    }
    return nullptr;
}

std::unique_ptr<PageModel> libraryPage(const DeskStores& stores, const LibraryPlace& place) {
    using Page = LibraryPlace::Page;
    switch (place.page) {
        case Page::clips: return std::make_unique<ClipsPageModel>(stores, place.id);
        case Page::notes: return std::make_unique<NotesPageModel>(stores, place.id);
        case Page::projects: return std::make_unique<ProjectsPageModel>(stores, place.id);
        case Page::project: return std::make_unique<ProjectPageModel>(stores, place.id);
        case Page::removed: return std::make_unique<RemovedPageModel>(stores);
        case Page::search: return std::make_unique<SearchPageModel>(stores, place.id);
    }
    return nullptr;
}

}  // namespace

bool isPage(const Destination& place) {
    return rowOf(place) != nullptr || TimelineSubject::isPlace(place) || LibraryPlace::of(place);
}

QString sidebarKey(const Destination& place) {
    if (const auto kept = LibraryPlace::of(place)) return kept->sidebarPlace().key();
    return (TimelineSubject::isPlace(place) ? TimelineSubject().place() : place).key();
}

std::unique_ptr<PageModel> makePage(const DeskStores& stores, const Destination& place) {
    if (TimelineSubject::isPlace(place))
        return std::make_unique<TimelinePageModel>(stores, TimelineSubject::of(place));
    if (const auto kept = LibraryPlace::of(place)) return libraryPage(stores, *kept);
    const auto* row = rowOf(place);
    return row ? row->make(stores) : nullptr;
}

}  // namespace app
