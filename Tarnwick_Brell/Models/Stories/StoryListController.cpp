#include "Tarnwick_Brell/Models/Stories/StoryListController.h"

#include <algorithm>

#include <QLocale>

#include "Tarnwick_Brell/Desk/SourceOverview.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using kit::Sourcing;
using kit::StoryKind;

template <class E>
std::vector<FilterOptions::Choice> choicesOf(QString (*name)(E)) {
    std::vector<FilterOptions::Choice> choices;
    for (const auto& row : kit::enumTable<E>) {
        choices.push_back({std::string(row.raw), name(row.value)});
    }
    return choices;
}

template <class E>
std::set<E> chosenValues(const FilterOptions& options) {
    std::set<E> values;
    for (const auto& key : options.chosen()) {
        if (const auto value = kit::enumFromRaw<E>(key)) values.insert(*value);
    }
    return values;
}

QString kindName(StoryKind kind) {
    return kind == StoryKind::coverage ? StoryListController::tr("Coverage") : kindText(kind);
}

QString sourcingName(Sourcing sourcing) {
    return sourcing == Sourcing::unlabeled ? StoryListController::tr("Unlabeled")
                                           : sourcingText(sourcing);
}

}  // namespace

StoryListController::StoryListController(NewsDesk& desk, NewsroomStore& newsrooms, kit::Clock clock,
                                         QObject* parent)
    : QObject(parent),
      desk_(desk),
      newsrooms_(newsrooms),
      list_(desk, std::move(clock)),
      search_(desk),
      kinds_(tr("Kind")),
      sourcings_(tr("Sourcing")),
      sources_(tr("Source")),
      hidden_(desk) {
    kinds_.offer(choicesOf<StoryKind>(&kindName));
    sourcings_.offer(choicesOf<Sourcing>(&sourcingName));
    updateSources();
    for (auto* options : {&kinds_, &sourcings_, &sources_}) {
        connect(options, &FilterOptions::changed, this, &StoryListController::refilter);
    }
    connect(&list_, &StoryListModel::countChanged, this, &StoryListController::countsChanged);
    connect(&list_, &StoryListModel::arrivalsChanged, this, &StoryListController::countsChanged);
    connect(&hidden_, &SetAsideCount::changed, this, &StoryListController::countsChanged);
    connect(&search_, &SearchController::textChanged, this, &StoryListController::searchChanged);
    connect(&search_, &SearchController::answered, this, &StoryListController::showFound);
    connect(&search_, &SearchController::ended, this, [this] {
        refilter();
        emit listBegins();
    });
    connectStores();
}

void StoryListController::connectStores() {
    connect(&desk_, &NewsDesk::sourcesChanged, this, &StoryListController::updateSources);
    connect(&newsrooms_, &NewsroomStore::beatsChanged, this, [this] {
        if (destination_.kind == Destination::Kind::beat) refilter();
        emit destinationChanged();
    });
}

void StoryListController::open(const Destination& destination) {
    destination_ = destination;
    emit aboutToReplace();
    search_.clear();
    refilter();
    emit destinationChanged();
    emit listBegins();
}

kit::StoryQuery StoryListController::destinationQuery() const {
    const auto id = destination_.id.toStdString();
    if (destination_.kind == Destination::Kind::source) return {.sourceIDs = {id}};
    if (destination_.kind != Destination::Kind::beat) return {};
    const auto* entry = newsrooms_.beats().find(id);
    return entry && entry->value ? entry->value->query : kit::StoryQuery{};
}

StoryFilter StoryListController::filter() const {
    StoryFilter filter{.query = destinationQuery(),
                       .kinds = chosenValues<StoryKind>(kinds_),
                       .sourcings = chosenValues<Sourcing>(sourcings_),
                       .sourceIDs = sources_.chosen(),
                       .showsSetAside = showsSetAside_};
    using enum Destination::Kind;
    if (destination_.kind == all || destination_.kind == unread) filter.leftOut = leftOut_;
    if (destination_.kind == unread) filter.marks = StoryFilter::Marks::unread;
    if (destination_.kind == saved) {
        filter.marks = StoryFilter::Marks::saved;
        // A saved review must stay findable.
        filter.showsSetAside = true;
    }
    return filter;
}

/// Offers the enabled sources as choices.
void StoryListController::updateSources() {
    std::vector<FilterOptions::Choice> choices;
    for (const auto& source : desk_.sources()) {
        if (desk_.enabledSourceIDs().contains(source.id)) {
            choices.push_back({source.id, titleText(source.name)});
        }
    }
    sources_.offer(choices);
    if (auto leftOut = sourcesNotInAll(desk_.sourceOptions()); leftOut != leftOut_) {
        leftOut_ = std::move(leftOut);
        refilter();
    }
}

void StoryListController::refilter() {
    if (!isSearching()) {
        list_.show(filter());
        hidden_.count(filter());
    } else if (search_.isAnswered()) {
        list_.show(filter(), search_.found());
    }
    emit filterChanged();
    emit countsChanged();
}

void StoryListController::setShowsSetAside(bool shows) {
    if (shows == showsSetAside_) return;
    showsSetAside_ = shows;
    refilter();
}

void StoryListController::showFound(bool isRepeated) {
    if (isRepeated) {
        list_.foundAgain(search_.found());
    } else {
        emit aboutToReplace();
        list_.show(filter(), search_.found());
        hidden_.clear();
        emit listBegins();
    }
    emit countsChanged();
}

void StoryListController::clearAll() {
    kinds_.clear();
    sourcings_.clear();
    sources_.clear();
    setShowsSetAside(false);
    setSearchText({});
}

void StoryListController::showArrivals() {
    list_.showArrivals();
    emit listBegins();
}

// Texts.

QString StoryListController::title() const {
    switch (destination_.kind) {
        case Destination::Kind::unread: return tr("Unread");
        case Destination::Kind::saved: return tr("Saved");
        case Destination::Kind::beat: {
            const auto* beat = newsrooms_.beats().find(destination_.id.toStdString());
            return beat ? titleText(beat->name) : tr("Beat");
        }
        case Destination::Kind::source: {
            const auto source = std::ranges::find(desk_.sources(), destination_.id.toStdString(),
                                                  &kit::NewsSource::id);
            return source != desk_.sources().end() ? titleText(source->name) : destination_.id;
        }
        default: return tr("All stories");
    }
}

QString StoryListController::unreadText() const {
    if (isSearching()) return tr("%n found", nullptr, list_.count());
    return list_.unread() > 0 ? tr("%n unread", nullptr, list_.unread()) : QString();
}

QString StoryListController::setAsideText() const {
    if (showsSetAside_) return tr("Set aside: shown");
    return setAside() > 0 ? tr("Set aside: %1 hidden").arg(QLocale().toString(setAside()))
                          : tr("Set aside: none");
}

QString StoryListController::arrivalsText() const {
    return tr("%n new stories", nullptr, list_.arrivals());
}

bool StoryListController::canClear() const { return isSearching() || filter().isNarrowed(); }

QString StoryListController::emptyMessage() const {
    if (list_.count() > 0) return {};
    if (isSearching()) {
        return search_.isAnswered() ? tr("No story mentions “%1”.").arg(searchText().trimmed())
                                    : QString();
    }
    if (!list_.isComplete()) return {};
    if (filter().isNarrowed()) return tr("No story here matches the filters.");
    switch (destination_.kind) {
        case Destination::Kind::unread: return tr("You have read everything.");
        case Destination::Kind::saved: return tr("You have not saved any stories yet.");
        case Destination::Kind::beat: return tr("No story matches this beat.");
        case Destination::Kind::source: return tr("This source has no stories yet.");
        default: return tr("There are no stories yet.");
    }
}

QString StoryListController::emptyHint() const {
    if (list_.count() > 0) return {};
    if (setAside() > 0) return tr("%n stories are set aside.", nullptr, setAside());
    if (isSearching()) return tr("The titles and excerpts of all stories were searched.");
    if (destination_.kind == Destination::Kind::saved)
        return tr("Press s to save the story in the reader.");
    if (desk_.isRefreshing()) return tr("The sources are being refreshed.");
    if (desk_.lastPassFailed()) return tr("This computer seems to be offline.");
    if (destination_.kind == Destination::Kind::source) {
        const auto id = destination_.id.toStdString();
        const auto& status = desk_.sourceStatus(id);
        if (status.lastError) return bodyText(*status.lastError, 200);
        if (!desk_.enabledSourceIDs().contains(id)) return tr("This source is switched off.");
    }
    return {};
}

}  // namespace app
