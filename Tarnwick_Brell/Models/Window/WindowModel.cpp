#include "Tarnwick_Brell/Models/Window/WindowModel.h"

#include <algorithm>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "Tarnwick_Brell/Models/Pages/PageFactory.h"
#include "Tarnwick_Brell/Models/Rows/EndLater.h"
#include "Tarnwick_Brell/Models/Sheets/SheetFactory.h"
#include "Tarnwick_Brell/Models/Sidebar/TrackerPages.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

using Kind = Destination::Kind;

WindowModel::WindowModel(const DeskStores& stores, int number)
    : stores_(stores),
      sidebar_(stores),
      placeMenu_(stores),
      storyList_(stores.news, stores.newsrooms, stores.clock),
      selected_(stores.news, storyList_, stores.defaults, stores.clock),
      clusters_(stores.news, storyList_, selected_, stores.clock),
      storyActions_(stores.news, stores.undo, *storyList_.list(), selected_),
      keeping_(stores, *selected_.reader()),
      newsroom_({.news = stores.news,
                 .trackers = stores.trackers,
                 .kept = stores.kept,
                 .clock = stores.clock}),
      editor_(stores, newsroom_),
      newsroomActions_(stores),
      board_(stores),
      beatActions_(stores),
      refresh_({.news = stores.news, .trackers = stores.trackers}, stores.clock),
      palette_(
          actions_, [this] { return palettePlaces(); }, stores.news, stores.clock),
      appearance_(stores.defaults),
      state_(stores.defaults, number),
      readingPlace_(stores.news, storyList_, selected_, state_),
      rowMenu_(stores.news, storyActions_, actions_) {
    if (state_.place().isEmpty()) {
        for (const auto& group : SidebarModel::groupsClosedAtFirst())
            state_.setCollapsed(group, true);
    }
    sidebar_.setClosedGroups(state_.collapsedGroups());
    connectPages();
    connectActions();
    connectFind();
}

WindowModel::~WindowModel() = default;

void WindowModel::connectPages() {
    connect(&sidebar_, &SidebarModel::placeWanted, this,
            qOverload<const QString&>(&WindowModel::open));
    connect(&newsroom_, &NewsroomModel::storyWanted, this, &WindowModel::openStory);
    connect(&newsroom_, &NewsroomModel::linkWanted, this, [this](const QString& link) {
        if (kit::isOpenable(link.toStdString())) emit linkWanted(link);
    });
    connect(&newsroom_, &NewsroomModel::subtitleChanged, this, [this] {
        if (page_) page_->tick();
    });
    connect(&placeMenu_, &PlaceMenu::placeWanted, this,
            qOverload<const QString&>(&WindowModel::open));
    connect(&placeMenu_, &PlaceMenu::noticed, this, &WindowModel::noticed);
    connect(&storyActions_, &StoryActions::linkWanted, this, &WindowModel::linkWanted);
    connect(&stores_.newsrooms, &NewsroomStore::newsroomsChanged, this,
            &WindowModel::newsroomsChanged);
    connect(&sidebar_, &SidebarModel::groupToggled, &state_, &WindowState::setCollapsed);
    connect(&storyActions_, &StoryActions::noticed, this, &WindowModel::noticed);
    connect(&keeping_, &StoryKeeping::noticed, this, &WindowModel::noticed);
    connect(&rowMenu_, &RowMenu::noticed, this, &WindowModel::noticed);
    connect(&rowMenu_, &RowMenu::linkWanted, this, [this](const QString& link) {
        if (kit::isOpenable(link.toStdString())) emit linkWanted(link);
    });
    connect(&rowMenu_, &RowMenu::timelineWanted, this, &WindowModel::openTimelineOf);
    connect(&rowMenu_, &RowMenu::correctionWanted, this, &WindowModel::correctStory);
    connect(&rowMenu_, &RowMenu::sheetWanted, this, &WindowModel::showSheet);
    connect(&refresh_, &RefreshStatus::failed, this, &WindowModel::noticed);
    connect(&appearance_, &Appearance::failed, this, &WindowModel::noticed);
    connect(&state_, &WindowState::failed, this, &WindowModel::noticed);
    connect(&stores_.newsrooms, &NewsroomStore::beatsChanged, this, [this] {
        if (place_.kind == Kind::beat && !exists(place_)) open(Destination{Kind::all, {}});
    });
}

bool WindowModel::exists(const Destination& place) const {
    const auto id = place.id.toStdString();
    switch (place.kind) {
        case Kind::newsroom:
            // Before they have been read, any may be there.
            return !stores_.newsrooms.isLoaded() || stores_.newsrooms.newsrooms().find(id);
        case Kind::beat: return !stores_.newsrooms.isLoaded() || stores_.newsrooms.beats().find(id);
        case Kind::tracker:
            return std::any_of(trackerPages().begin(), trackerPages().end(),
                               [&](const auto& each) { return each.id == id; });
        case Kind::page: return isPage(place);
        default: return true;
    }
}

Destination WindowModel::home() const {
    const auto& entries = stores_.newsrooms.newsrooms().entries();
    if (entries.empty() && stores_.newsrooms.isLoaded()) return {Kind::all, {}};
    const auto id =
        entries.empty() ? std::string(kit::NewsroomSpec::kBuiltInID) : entries.front().id;
    return {Kind::newsroom, plainText(id)};
}

void WindowModel::open(const QString& key) {
    const auto place = Destination::fromKey(key);
    open(place && exists(*place) ? *place : home());
}

WindowModel::View WindowModel::view() const {
    if (page_) return Page;
    return place_.isStoryList() ? Stories : Newsroom;
}

void WindowModel::open(const Destination& place) {
    const bool isOther = !hasOpened_ || place != place_;
    hasOpened_ = true;
    place_ = place;
    if (isOther) showPage();
    if (place.isStoryList()) {
        if (isOther || storyList_.destination() != place || storyList_.isSearching()) {
            storyList_.open(place);
        }
        newsroom_.clear();
    } else if (page_) {
        newsroom_.clear();
    } else if (isOther) {
        showNewsroom();
    }
    clusters_.setWanted(place.isStoryList() && state_.isClustered(place.key()));
    updateEditor();
    sidebar_.setCurrent(sidebarKey(place_));
    state_.setPlace(place_.key());
    emit placeChanged();
    updateActions();
}

/// The view lets go of the old page when it hears of the new place; it ends after that.
void WindowModel::showPage() {
    endLater(std::move(page_), *this);
    page_ = makePage(stores_, place_);
    if (!page_) return;
    connect(page_.get(), &PageModel::storyWanted, this, &WindowModel::openStory);
    connect(page_.get(), &PageModel::linkWanted, this, [this](const QString& link) {
        if (kit::isOpenable(link.toStdString())) emit linkWanted(link);
    });
    connect(page_.get(), &PageModel::placeWanted, this,
            qOverload<const QString&>(&WindowModel::open));
    connect(page_.get(), &PageModel::sheetWanted, this, &WindowModel::showSheet);
    connect(page_.get(), &PageModel::clustersWanted, this, &WindowModel::setClustered);
    page_->setClustered(state_.isClustered(place_.key()));
    connect(page_.get(), &PageModel::noticed, this, &WindowModel::noticed);
    connect(page_.get(), &PageModel::changed, this, &WindowModel::updateActions);
}

bool WindowModel::showSheet(const QString& key) {
    auto sheet = makeSheet(stores_, key);
    if (!sheet) return false;
    closeSheet();
    sheet_ = std::move(sheet);
    connect(sheet_.get(), &SheetModel::closeWanted, this, &WindowModel::closeSheet);
    connect(sheet_.get(), &SheetModel::noticed, this, &WindowModel::noticed);
    connect(sheet_.get(), &SheetModel::libraryWorkWanted, this, &WindowModel::libraryWorkWanted);
    connect(sheet_.get(), &SheetModel::fileWanted, this, &WindowModel::fileWanted);
    connect(sheet_.get(), &SheetModel::sheetWanted, this, &WindowModel::showSheet,
            Qt::QueuedConnection);
    connect(sheet_.get(), &SheetModel::placeWanted, this,
            qOverload<const QString&>(&WindowModel::open));
    connect(sheet_.get(), &SheetModel::linkWanted, this, [this](const QString& link) {
        if (kit::isOpenable(link.toStdString())) emit linkWanted(link);
    });
    emit sheetChanged();
    return true;
}

void WindowModel::closeSheet() {
    if (!sheet_) return;
    endLater(std::move(sheet_), *this);
    emit sheetChanged();
}

void WindowModel::useFile(const QString& path) {
    if (sheet_) sheet_->useFile(path);
}

void WindowModel::showNewsroom() {
    if (const auto* entry = stores_.newsrooms.newsrooms().find(place_.id.toStdString())) {
        if (entry->value) {
            newsroom_.show(*entry->value);
        } else {
            newsroom_.showFault(titleText(entry->name), bodyText(entry->fault));
        }
    } else {
        newsroom_.clear();
    }
}

void WindowModel::newsroomsChanged() {
    if (!hasOpened_ || place_.kind != Kind::newsroom) return;
    if (!exists(place_)) return open(home());
    showNewsroom();
    updateEditor();
}

void WindowModel::updateEditor() {
    editor_.setNewsroom(place_.kind == Kind::newsroom ? place_.id.toStdString() : std::string());
}

void WindowModel::openStory(const QString& storyID) {
    if (!place_.isStoryList()) open(Destination{Kind::all, {}});
    selected_.open(storyID);
}

void WindowModel::searchFor(const QString& text) {
    if (!place_.isStoryList()) open(Destination{Kind::all, {}});
    storyList_.setSearchText(text);
}

}  // namespace app
