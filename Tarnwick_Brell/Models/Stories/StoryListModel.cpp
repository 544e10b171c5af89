#include "Tarnwick_Brell/Models/Stories/StoryListModel.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Pictures/PictureID.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using namespace std::chrono_literals;

/// Between two frames, with room for the frame itself.
constexpr auto kFillBudget = 6ms;
/// Beyond that many separate insertions a view is quicker with a new list.
constexpr std::size_t kMostRuns = 60;
/// Beyond that many marks one walk through all rows is quicker.
constexpr std::size_t kManyMarks = 500;

std::size_t runsOf(const std::vector<std::size_t>& places) {
    std::size_t runs = places.empty() ? 0 : 1;
    for (std::size_t i = 1; i < places.size(); ++i) runs += places[i] != places[i - 1] + 1;
    return runs;
}

}  // namespace

StoryListModel::StoryListModel(NewsDesk& desk, kit::Clock clock, QObject* parent)
    : QAbstractListModel(parent), desk_(desk), clock_(std::move(clock)), live_(filter_.test()) {
    filling_.setSingleShot(true);
    connect(&filling_, &QTimer::timeout, this, &StoryListModel::fill);
    minute_.setInterval(30s);
    connect(&minute_, &QTimer::timeout, this, &StoryListModel::agePasses);
    minute_.start();
    connect(&desk, &NewsDesk::wireChanged, this, &StoryListModel::follow);
    connect(&desk, &NewsDesk::marksChanged, this, &StoryListModel::followMarks);
    connect(&desk, &NewsDesk::loaded, this, &StoryListModel::countChanged);
}

// What is shown.

void StoryListModel::show(const StoryFilter& filter) {
    filter_ = filter;
    found_.reset();
    begin();
}

void StoryListModel::show(const StoryFilter& filter, std::vector<std::int64_t> found) {
    filter_ = filter;
    found_.emplace(found.begin(), found.end());
    begin();
}

void StoryListModel::begin() {
    auto test = filter_.test();
    if (found_) {
        // A story that comes later is only in the list when the search finds it too.
        live_ = LiveQuery([this, test](const PackedStory& story) {
            return found_->contains(story.number()) && test(story);
        });
        std::vector<std::int64_t> wanted;
        for (auto number = found_->rbegin(); number != found_->rend(); ++number) {
            const auto place = desk_.stories().placeOf(*number);
            if (place && test(desk_.stories()[*place])) wanted.push_back(*number);
        }
        live_.begin(std::move(wanted));
    } else {
        live_ = LiveQuery(std::move(test));
        live_.continueFor(desk_.stories(), kFillBudget);
    }
    held_.clear();
    reset();
    emit arrivalsChanged();
    if (!live_.isComplete()) filling_.start(0);
}

void StoryListModel::foundAgain(std::vector<std::int64_t> found) {
    if (!found_) return;
    std::set<std::int64_t> coming;
    for (const auto number : found) {
        if (found_->insert(number).second) coming.insert(number);
    }
    follow(placesOf(coming));
}

void StoryListModel::fill() {
    apply(live_.continueFor(desk_.stories(), kFillBudget));
    if (!live_.isComplete()) filling_.start(0);
}

// What changes.

void StoryListModel::follow(const WireChange& change) {
    if (change.isReset) {
        beginAgain();
        return;
    }
    apply(live_.follow(desk_.stories(), holdsArrivals_ ? withoutArrivals(change) : change));
}

/// The wire was read anew, as after the first view at the start. What stands on the screen is
/// usually still there and must not be drawn again.
void StoryListModel::beginAgain() {
    if (found_) {
        show(filter_, {found_->begin(), found_->end()});
        return;
    }
    live_.begin();
    live_.continueFor(desk_.stories(), kFillBudget);
    held_.clear();
    const auto& numbers = live_.numbers();
    const bool isKept =
        rows_.size() <= numbers.size() &&
        std::equal(rows_.begin(), rows_.end(), numbers.begin(),
                   [](const Row& row, std::int64_t number) { return row.number == number; });
    if (isKept) {
        WireChange more;
        for (auto place = rows_.size(); place < numbers.size(); ++place)
            more.inserted.push_back(place);
        takeMarks();
        // Another program may have marked or revised some in between.
        if (!rows_.empty()) emit dataChanged(index(0), index(count() - 1));
        apply(more);
    } else {
        reset();
    }
    emit arrivalsChanged();
    if (!live_.isComplete()) filling_.start(0);
}

/// Keeps back what came, so that the list does not hear of it yet.
WireChange StoryListModel::withoutArrivals(const WireChange& change) {
    const auto& wire = desk_.stories();
    auto known = change;
    known.inserted.clear();
    const auto before = held_.size();
    for (const auto place : change.inserted) {
        const auto& story = wire[place];
        if (live_.isTested(story.number()) && live_.wants(story)) held_.insert(story.number());
    }
    for (const auto number : change.removedNumbers) held_.erase(number);
    std::erase_if(known.revised, [&](auto place) { return held_.contains(wire[place].number()); });
    if (held_.size() != before || !change.removedNumbers.empty()) emit arrivalsChanged();
    return known;
}

void StoryListModel::setHoldsArrivals(bool holds) {
    if (holds == holdsArrivals_) return;
    holdsArrivals_ = holds;
    if (!holds) showArrivals();
    emit arrivalsChanged();
}

void StoryListModel::showArrivals() {
    if (held_.empty()) return;
    const auto coming = placesOf(std::exchange(held_, {}));
    apply(live_.follow(desk_.stories(), coming));
    emit arrivalsChanged();
}

WireChange StoryListModel::placesOf(const std::set<std::int64_t>& numbers) const {
    WireChange change;
    for (auto number = numbers.rbegin(); number != numbers.rend(); ++number) {
        if (const auto place = desk_.stories().placeOf(*number)) change.inserted.push_back(*place);
    }
    return change;
}

void StoryListModel::apply(const WireChange& change) {
    if (change.isEmpty()) {
        emit countChanged();
        return;
    }
    if (change.isReset || runsOf(change.inserted) > kMostRuns) {
        reset();
        return;
    }
    removeRows(change.removed);
    insertRows(change.inserted);
    for (const auto place : change.revised) {
        unread_ += rows_[place].isRead;
        rows_[place] = rowFor(rows_[place].number);
        unread_ -= rows_[place].isRead;
        const auto row = index(static_cast<int>(place));
        emit dataChanged(row, row);
    }
    emit countChanged();
}

void StoryListModel::removeRows(const std::vector<std::size_t>& falling) {
    for (std::size_t i = 0; i < falling.size();) {
        const auto last = falling[i];
        auto first = last;
        while (++i < falling.size() && falling[i] == first - 1) first = falling[i];
        const auto from = rows_.begin() + static_cast<std::ptrdiff_t>(first);
        const auto to = rows_.begin() + static_cast<std::ptrdiff_t>(last) + 1;
        unread_ -= static_cast<int>(std::count_if(from, to, [](auto& row) { return !row.isRead; }));
        beginRemoveRows({}, static_cast<int>(first), static_cast<int>(last));
        rows_.erase(from, to);
        endRemoveRows();
    }
}

void StoryListModel::insertRows(const std::vector<std::size_t>& rising) {
    for (std::size_t i = 0; i < rising.size();) {
        const auto first = rising[i];
        std::vector<Row> coming;
        auto last = first;
        coming.push_back(rowFor(live_.numbers()[first]));
        while (++i < rising.size() && rising[i] == last + 1) {
            last = rising[i];
            coming.push_back(rowFor(live_.numbers()[last]));
        }
        for (const auto& row : coming) unread_ += !row.isRead;
        beginInsertRows({}, static_cast<int>(first), static_cast<int>(last));
        rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(first), coming.begin(),
                     coming.end());
        endInsertRows();
    }
}

void StoryListModel::reset() {
    beginResetModel();
    rows_.clear();
    rows_.reserve(live_.size());
    for (const auto number : live_.numbers()) rows_.push_back({number, true});
    takeMarks();
    endResetModel();
    emit countChanged();
}

// Marks.

/// Reads all rows' marks in one walk beside the wire: both are in falling order of number.
void StoryListModel::takeMarks() {
    const auto& wire = desk_.stories();
    unread_ = 0;
    std::size_t place = 0;
    const bool isSparse = rows_.size() * 16 < wire.size();
    for (auto& row : rows_) {
        if (isSparse) {
            row = rowFor(row.number);
        } else {
            while (place < wire.size() && wire[place].number() > row.number) ++place;
            row.isRead = place < wire.size() && wire[place].isRead();
        }
        unread_ += !row.isRead;
    }
}

StoryListModel::Row StoryListModel::rowFor(std::int64_t number) const {
    const auto place = desk_.stories().placeOf(number);
    return {number, place && desk_.stories()[*place].isRead()};
}

void StoryListModel::followMarks(const std::vector<std::int64_t>& numbers) {
    const QList<int> roles{IsRead, IsSaved, SpokenText};
    if (numbers.size() > kManyMarks) {
        takeMarks();
        if (!rows_.empty()) emit dataChanged(index(0), index(count() - 1), roles);
    } else {
        for (const auto number : numbers) {
            const auto row = rowOf(number);
            if (!row) continue;
            auto& known = rows_[static_cast<std::size_t>(*row)];
            unread_ += known.isRead;
            known = rowFor(number);
            unread_ -= known.isRead;
            emit dataChanged(index(*row), index(*row), roles);
        }
    }
    apply(live_.follow(desk_.stories(), nowWanted(numbers)));
}

/// Those that a list of marks takes in with their new mark; none leaves.
WireChange StoryListModel::nowWanted(const std::vector<std::int64_t>& numbers) const {
    WireChange coming;
    if (filter_.marks == StoryFilter::Marks::any) return coming;
    for (const auto number : numbers) {
        if (rowOf(number) || held_.contains(number)) continue;
        if (const auto place = desk_.stories().placeOf(number)) coming.revised.push_back(*place);
    }
    return coming;
}

// Rows.

std::optional<int> StoryListModel::rowOf(std::int64_t number) const {
    const auto found =
        std::lower_bound(rows_.begin(), rows_.end(), number,
                         [](const Row& row, std::int64_t wanted) { return row.number > wanted; });
    if (found == rows_.end() || found->number != number) return std::nullopt;
    return static_cast<int>(found - rows_.begin());
}

std::optional<std::int64_t> StoryListModel::numberAt(int row) const {
    if (row < 0 || row >= count()) return std::nullopt;
    return rows_[static_cast<std::size_t>(row)].number;
}

std::optional<int> StoryListModel::unreadFrom(int row, int step) const {
    for (int next = row + step; next >= 0 && next < count(); next += step) {
        if (!rows_[static_cast<std::size_t>(next)].isRead) return next;
    }
    return std::nullopt;
}

std::vector<std::int64_t> StoryListModel::numbers() const {
    std::vector<std::int64_t> numbers;
    numbers.reserve(rows_.size());
    for (const auto& row : rows_) numbers.push_back(row.number);
    return numbers;
}

const PackedStory* StoryListModel::story(int row) const {
    const auto number = numberAt(row);
    const auto place = number ? desk_.stories().placeOf(*number) : std::nullopt;
    return place ? &desk_.stories()[*place] : nullptr;
}

void StoryListModel::agePasses() {
    if (!rows_.empty()) emit dataChanged(index(0), index(count() - 1), {Age, SpokenText});
}

int StoryListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant StoryListModel::data(const QModelIndex& index, int role) const {
    const auto* it = story(index.row());
    if (!it) return {};
    switch (role) {
        case StoryID: return plainText(it->id());
        case Source: return titleText(it->sourceName());
        case Destination: return destinationText(*it);
        case Age: return ageText(it->publishedAt(), clock_());
        case KindLabel: return kindText(it->kind());
        case Sourcing: return StorySourcing::of(it->sourcing());
        case SourcingLabel: return sourcingText(it->sourcing());
        case Title: return titleText(it->title(), kTitleCharacters);
        case Excerpt: return titleText(it->summary(), kExcerptCharacters);
        case Picture: return pictureID(it->imageURL());
        case IsRead: return it->isRead();
        case IsSaved: return it->isSaved();
        case SpokenText: return spokenText(*it, clock_());
        default: return {};
    }
}

QHash<int, QByteArray> StoryListModel::roleNames() const {
    return {{StoryID, "storyID"},
            {Source, "source"},
            {Destination, "destination"},
            {Age, "age"},
            {KindLabel, "kindLabel"},
            {Sourcing, "sourcing"},
            {SourcingLabel, "sourcingLabel"},
            {Title, "title"},
            {Excerpt, "excerpt"},
            {Picture, "picture"},
            {IsRead, "isRead"},
            {IsSaved, "isSaved"},
            {SpokenText, "spokenText"}};
}

}  // namespace app
