#include "Tarnwick_Brell/Models/Stories/WirePage.h"

#include <algorithm>

#include <QClipboard>
#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using namespace std::chrono_literals;
using kit::Sourcing;
using kit::StoryKind;

constexpr std::size_t kMostFound = 2000;
constexpr auto kTypingPause = 60ms;
constexpr auto kReadingTime = 2s;

template <class E>
std::vector<FilterOptions::Choice> choicesOf(QString (*name)(E)) {
    std::vector<FilterOptions::Choice> choices;
    for (const auto& row : kit::enumTable<E>) {
        choices.push_back({std::string(row.raw), name(row.value)});
    }
    return choices;
}

template <class E>
std::set<E> chosenValues(const FilterOptions& list) {
    std::set<E> values;
    for (const auto& key : list.chosen()) {
        if (const auto value = kit::enumFromRaw<E>(key)) values.insert(*value);
    }
    return values;
}

QString kindName(StoryKind kind) {
    return kind == StoryKind::coverage ? WirePage::tr("Coverage") : kindText(kind);
}

QString sourcingName(Sourcing sourcing) {
    return sourcing == Sourcing::unlabeled ? WirePage::tr("Unlabeled") : sourcingText(sourcing);
}

}  // namespace

WirePage::WirePage(NewsDesk& desk, NewsroomStore& newsrooms, const Defaults& defaults,
                   kit::Clock clock, QObject* parent)
    : QObject(parent),
      desk_(desk),
      newsrooms_(newsrooms),
      list_(desk, clock),
      reader_(desk, defaults, clock),
      kinds_(tr("Kind")),
      sourcings_(tr("Sourcing")),
      sources_(tr("Source")) {
    kinds_.offer(choicesOf<StoryKind>(&kindName));
    sourcings_.offer(choicesOf<Sourcing>(&sourcingName));
    offerChoices();
    for (auto* list : {&kinds_, &sourcings_, &sources_}) {
        connect(list, &FilterOptions::changed, this, &WirePage::refilter);
    }
    connect(&desk, &NewsDesk::sourcesChanged, this, &WirePage::offerChoices);
    connect(&desk, &NewsDesk::undoChanged, this, &WirePage::undoChanged);
    connect(&desk, &NewsDesk::passEnded, this, [this] {
        if (isSearching()) search();
    });
    connect(&newsrooms, &NewsroomStore::beatsChanged, this, [this] {
        if (place_.kind == Destination::Kind::beat) refilter();
        emit placeChanged();
    });
    connect(&list_, &StoryListModel::countChanged, this, &WirePage::findCurrentRow);
    connect(&list_, &StoryListModel::countChanged, this, &WirePage::countsChanged);
    connect(&list_, &StoryListModel::arrivalsChanged, this, &WirePage::countsChanged);
    typing_.setSingleShot(true);
    typing_.setInterval(kTypingPause);
    connect(&typing_, &QTimer::timeout, this, &WirePage::search);
    reading_.setSingleShot(true);
    reading_.setInterval(kReadingTime);
    connect(&reading_, &QTimer::timeout, this, [this] { markRead(true); });
}

// Which stories.

void WirePage::open(const Destination& place) {
    place_ = place;
    searchText_.clear();
    searched_.clear();
    choose(std::nullopt);
    refilter();
    emit searchChanged();
    emit placeChanged();
    emit listBegins();
}

kit::StoryQuery WirePage::placeQuery() const {
    const auto id = place_.id.toStdString();
    if (place_.kind == Destination::Kind::source) return {.sourceIDs = {id}};
    if (place_.kind != Destination::Kind::beat) return {};
    const auto* entry = newsrooms_.beats().find(id);
    return entry && entry->value ? entry->value->query : kit::StoryQuery{};
}

StoryFilter WirePage::filter() const {
    StoryFilter filter{.query = placeQuery(),
                       .kinds = chosenValues<StoryKind>(kinds_),
                       .sourcings = chosenValues<Sourcing>(sourcings_),
                       .sourceIDs = sources_.chosen(),
                       .showsSetAside = showsSetAside_};
    if (place_.kind == Destination::Kind::unread) filter.marks = StoryFilter::Marks::unread;
    if (place_.kind == Destination::Kind::saved) {
        filter.marks = StoryFilter::Marks::saved;
        // Whoever saves a review wants to find it.
        filter.showsSetAside = true;
    }
    return filter;
}

void WirePage::offerChoices() {
    std::vector<FilterOptions::Choice> choices;
    for (const auto& source : desk_.sources()) {
        if (desk_.enabledSourceIDs().contains(source.id)) {
            choices.push_back({source.id, titleText(source.name)});
        }
    }
    sources_.offer(choices);
}

void WirePage::refilter() {
    if (isSearching() && searched_ == searchText_) {
        list_.show(filter(), found_);
    } else if (!isSearching()) {
        list_.show(filter());
    }
    findCurrentRow();
    emit filterChanged();
    emit countsChanged();
}

void WirePage::setShowsSetAside(bool shows) {
    if (shows == showsSetAside_) return;
    showsSetAside_ = shows;
    refilter();
}

void WirePage::setSearchText(const QString& text) {
    if (text == searchText_) return;
    searchText_ = text;
    if (isSearching()) {
        typing_.start();
    } else {
        typing_.stop();
        searched_.clear();
        refilter();
        emit listBegins();
    }
    emit searchChanged();
}

void WirePage::search() {
    if (!isSearching()) return;
    desk_.search(searchText_.toStdString(), kMostFound,
                 [this, asked = searchText_](const std::vector<std::int64_t>& found) {
                     if (asked == searchText_) takeFound(found);
                 });
}

void WirePage::takeFound(const std::vector<std::int64_t>& found) {
    const bool isAgain = searched_ == searchText_;
    searched_ = searchText_;
    found_ = found;
    if (isAgain) {
        list_.foundAgain(found);
    } else {
        choose(std::nullopt);
        list_.show(filter(), found);
        emit listBegins();
    }
    emit countsChanged();
}

void WirePage::clearAll() {
    kinds_.clear();
    sourcings_.clear();
    sources_.clear();
    setShowsSetAside(false);
    setSearchText({});
}

// The chosen story.

void WirePage::setCurrentRow(int row) { choose(list_.numberAt(row)); }

void WirePage::choose(std::optional<std::int64_t> number) {
    if (number == reader_.number() && (number || currentRow_ < 0)) return;
    reading_.stop();
    reader_.show(number);
    findCurrentRow();
    emit currentRowChanged();
    if (number) reading_.start();
}

void WirePage::findCurrentRow() {
    const auto number = reader_.number();
    const auto row = number ? list_.rowOf(*number).value_or(-1) : -1;
    if (row == currentRow_) return;
    currentRow_ = row;
    emit currentRowChanged();
}

void WirePage::openStory(const QString& storyID) {
    if (const auto* story = desk_.stories().find(storyID.toStdString())) choose(story->number());
}

void WirePage::step(int by) {
    if (list_.count() == 0) return;
    const auto last = list_.count() - 1;
    setCurrentRow(currentRow_ < 0 ? (by > 0 ? 0 : last) : std::clamp(currentRow_ + by, 0, last));
}

bool WirePage::stepUnread(int direction) {
    const auto next = list_.unreadFrom(currentRow_, direction);
    if (!next) return false;
    // Who goes on from a story that has been on the screen has read it.
    if (reader_.hasStory()) markRead(true);
    setCurrentRow(*next);
    return true;
}

// What the reader does.

std::string WirePage::currentID() const { return reader_.storyID().toStdString(); }

void WirePage::markRead(bool read) {
    if (!reader_.hasStory() || reader_.isRead() == read) return;
    desk_.setRead({currentID()}, read);
}

void WirePage::toggleRead() {
    if (!reader_.hasStory()) return;
    reading_.stop();
    const bool before = reader_.isRead();
    desk_.setRead({currentID()}, !before, Undoable::yes);
    emit marked(before ? tr("Marked as unread.") : tr("Marked as read."));
}

void WirePage::toggleSaved() {
    if (!reader_.hasStory()) return;
    const bool before = reader_.isSaved();
    desk_.setSaved({currentID()}, !before);
    emit marked(before ? tr("No longer saved.") : tr("Saved."));
}

void WirePage::markAllRead() {
    const auto count = desk_.markAllRead(list_.numbers());
    if (count == 0) {
        emit noticed(tr("Everything in this list is read already."));
        return;
    }
    emit marked(tr("%n stories marked as read.", nullptr, static_cast<int>(count)));
}

bool WirePage::undo() {
    if (!desk_.undoMarks()) return false;
    reading_.stop();
    return true;
}

void WirePage::openInBrowser() {
    if (!reader_.hasStory()) return;
    const auto link = reader_.link();
    if (link.isEmpty()) {
        emit noticed(tr("This story has no address that a browser could open."));
        return;
    }
    markRead(true);
    emit linkWanted(link);
}

void WirePage::copyLink() {
    if (!reader_.hasStory()) return;
    if (reader_.link().isEmpty()) {
        emit noticed(tr("This story has no address that could be copied."));
        return;
    }
    QGuiApplication::clipboard()->setText(reader_.shownLink());
    emit noticed(tr("Link copied."));
}

void WirePage::copyCitation() {
    if (!reader_.hasStory()) return;
    QGuiApplication::clipboard()->setText(reader_.citation());
    emit noticed(tr("Citation copied."));
}

void WirePage::traceStory() {
    if (!reader_.hasStory()) return;
    // It goes to the archive.
    const auto link = reader_.shownLink();
    if (link.isEmpty()) {
        emit noticed(tr("This story has no address to look for."));
        return;
    }
    reader_.trace()->ask(link);
}

void WirePage::showArrivals() {
    list_.showArrivals();
    emit listBegins();
}

// Texts.

QString WirePage::title() const {
    switch (place_.kind) {
        case Destination::Kind::unread: return tr("Unread");
        case Destination::Kind::saved: return tr("Saved");
        case Destination::Kind::beat: {
            const auto* beat = newsrooms_.beats().find(place_.id.toStdString());
            return beat ? titleText(beat->name) : tr("Beat");
        }
        case Destination::Kind::source: {
            const auto& all = desk_.sources();
            const auto id = place_.id.toStdString();
            const auto source = std::find_if(all.begin(), all.end(),
                                             [&](const auto& each) { return each.id == id; });
            return source != all.end() ? titleText(source->name) : place_.id;
        }
        default: return tr("All stories");
    }
}

QString WirePage::unreadText() const {
    if (isSearching()) return tr("%n found", nullptr, list_.count());
    return list_.unread() > 0 ? tr("%n unread", nullptr, list_.unread()) : QString();
}

QString WirePage::arrivalsText() const { return tr("%n new stories", nullptr, list_.arrivals()); }

bool WirePage::canClear() const { return isSearching() || filter().isNarrowed(); }

QString WirePage::emptyMessage() const {
    if (list_.count() > 0) return {};
    if (isSearching()) {
        return searched_ == searchText_ ? tr("No story mentions “%1”.").arg(searchText_.trimmed())
                                        : QString();
    }
    if (!list_.isComplete()) return {};
    if (filter().isNarrowed()) return tr("No story here fits the filters.");
    switch (place_.kind) {
        case Destination::Kind::unread: return tr("Everything is read.");
        case Destination::Kind::saved: return tr("Nothing is saved yet.");
        case Destination::Kind::beat: return tr("No story matches this beat.");
        case Destination::Kind::source: return tr("No story from this source yet.");
        default: return tr("No stories yet.");
    }
}

QString WirePage::emptyHint() const {
    if (list_.count() > 0) return {};
    if (isSearching()) return tr("Titles and excerpts of all stories were searched.");
    if (place_.kind == Destination::Kind::saved)
        return tr("Press s to save the story in the reader.");
    if (desk_.isRefreshing()) return tr("The sources are being asked.");
    if (desk_.lastPassFailed()) return tr("This computer seems to be offline.");
    if (place_.kind == Destination::Kind::source) {
        const auto& status = desk_.sourceStatus(place_.id.toStdString());
        if (status.lastError) return bodyText(*status.lastError, 200);
        if (!desk_.enabledSourceIDs().contains(place_.id.toStdString())) {
            return tr("This source is switched off.");
        }
    }
    return {};
}

}  // namespace app
