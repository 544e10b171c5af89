#include "Tarnwick_Brell/Models/Stories/ClusterListModel.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

/// Between two frames, with room for the frame itself.
constexpr auto kClusterSlice = 6ms;
constexpr auto kClusterPause = 80ms;
constexpr std::size_t kStoriesPerLook = 256;

}  // namespace

/// A list being made.
struct ClusterListModel::Build {
    kit::SharedClusters clusters{};
    std::unordered_map<std::int64_t, std::int32_t> clusterOf{};
    std::size_t indexed = 0;  ///< clusters
    std::vector<std::int64_t> numbers{};
    std::size_t walked = 0;  ///< stories
    std::vector<bool> isAdded{};
    std::vector<Row> rows{};

    std::size_t clusterCount() const { return clusters ? clusters->size() : 0; }
    bool isComplete() const { return indexed == clusterCount() && walked == numbers.size(); }
};

ClusterListModel::ClusterListModel(NewsDesk& desk, StoryListController& stories,
                                   SelectedStory& selected, kit::Clock clock, QObject* parent)
    : QAbstractListModel(parent),
      desk_(desk),
      stories_(stories),
      selected_(selected),
      clock_(std::move(clock)) {
    pause_.setSingleShot(true);
    pause_.setInterval(kClusterPause);
    connect(&pause_, &QTimer::timeout, this, [this] {
        build_ = std::make_unique<Build>();
        buildSlice();
    });
    slices_.setSingleShot(true);
    connect(&slices_, &QTimer::timeout, this, &ClusterListModel::buildSlice);
    minute_.setInterval(30s);
    connect(&minute_, &QTimer::timeout, this, &ClusterListModel::refresh);
    connect(stories.list(), &StoryListModel::countChanged, this, &ClusterListModel::buildSoon);
    connect(&stories, &StoryListController::searchChanged, this, &ClusterListModel::updateShown);
    connect(&desk, &NewsDesk::clustersChanged, this, &ClusterListModel::buildSoon);
    connect(&desk, &NewsDesk::marksChanged, this, &ClusterListModel::refresh);
    connect(&selected, &SelectedStory::rowChanged, this, &ClusterListModel::updateCurrent);
}

ClusterListModel::~ClusterListModel() = default;

void ClusterListModel::setWanted(bool wanted) {
    isWanted_ = wanted;
    updateShown();
}

void ClusterListModel::updateShown() {
    if (std::exchange(wasShown_, isShown()) == isShown()) return;
    if (isShown()) {
        minute_.start();
        build_ = std::make_unique<Build>();
        buildSlice();
    } else {
        minute_.stop();
        pause_.stop();
        slices_.stop();
        build_.reset();
        apply({});
        clusterOf_.clear();
        clusters_.reset();
    }
    emit shownChanged();
}

// How the list is made.

/// A build under way goes on: the list of stories may change for longer than the pause.
void ClusterListModel::buildSoon() {
    if (isShown() && !pause_.isActive()) pause_.start();
}

void ClusterListModel::buildSlice() {
    auto& build = *build_;
    if (build.indexed == 0 && build.walked == 0 && build.numbers.empty()) {
        build.clusters = desk_.clusters();
        build.isAdded.resize(build.clusterCount());
        build.numbers = stories_.list()->numbers();
    }
    const auto end = SteadyClock::now() + kClusterSlice;
    while (!build.isComplete() && SteadyClock::now() < end) {
        build.indexed < build.clusterCount() ? indexClusters(build) : walkStories(build);
    }
    if (!build.isComplete()) {
        slices_.start(0);
        return;
    }
    const auto done = std::exchange(build_, nullptr);
    clusters_ = done->clusters;
    clusterOf_ = std::move(done->clusterOf);
    apply(std::move(done->rows));
    refresh();
}

void ClusterListModel::indexClusters(Build& build) const {
    std::size_t looked = 0;
    while (build.indexed < build.clusterCount() && looked < kStoriesPerLook) {
        for (const auto& id : (*build.clusters)[build.indexed].storyIDs) {
            ++looked;
            if (const auto* story = desk_.stories().find(id))
                build.clusterOf.emplace(story->number(), static_cast<std::int32_t>(build.indexed));
        }
        ++build.indexed;
    }
}

void ClusterListModel::walkStories(Build& build) const {
    const auto end = std::min(build.walked + kStoriesPerLook, build.numbers.size());
    for (; build.walked < end; ++build.walked) {
        const auto number = build.numbers[build.walked];
        const auto cluster = build.clusterOf.find(number);
        if (cluster == build.clusterOf.end()) {
            build.rows.push_back({.number = number});
        } else if (!build.isAdded[static_cast<std::size_t>(cluster->second)]) {
            build.isAdded[static_cast<std::size_t>(cluster->second)] = true;
            addCluster(build, cluster->second, number);
        }
    }
}

/// `number` stands for the first story where that is gone from the wire.
void ClusterListModel::addCluster(Build& build, std::int32_t cluster, std::int64_t number) const {
    const auto& shown = (*build.clusters)[static_cast<std::size_t>(cluster)];
    const auto* first = desk_.stories().find(shown.id);
    build.rows.push_back({.number = first ? first->number() : number,
                          .cluster = cluster,
                          .isOpen = open_.contains(shown.id)});
    if (!build.rows.back().isOpen) return;
    for (const auto& storyID : shown.storyIDs) {
        if (const auto* story = desk_.stories().find(storyID))
            build.rows.push_back({.number = story->number(), .cluster = cluster, .isMember = true});
    }
}

/// Rows that stay where they are, at the beginning and at the end, keep their delegates.
void ClusterListModel::apply(std::vector<Row> rows) {
    const auto isSame = [](const Row& a, const Row& b) { return a.isSamePlace(b); };
    const auto head =
        std::mismatch(rows_.begin(), rows_.end(), rows.begin(), rows.end(), isSame).first -
        rows_.begin();
    const auto most = std::min(std::ssize(rows_), std::ssize(rows)) - head;
    std::ptrdiff_t tail = 0;
    while (tail < most && isSame(rows_[rows_.size() - 1 - static_cast<std::size_t>(tail)],
                                 rows[rows.size() - 1 - static_cast<std::size_t>(tail)]))
        ++tail;
    const auto leaving = std::ssize(rows_) - head - tail;
    const auto coming = std::ssize(rows) - head - tail;
    const auto first = static_cast<int>(head);
    summaries_.clear();
    if (leaving > 0) {
        beginRemoveRows({}, first, first + static_cast<int>(leaving) - 1);
        rows_.erase(rows_.begin() + head, rows_.begin() + head + leaving);
        endRemoveRows();
    }
    if (coming > 0) {
        beginInsertRows({}, first, first + static_cast<int>(coming) - 1);
        rows_ = std::move(rows);
        endInsertRows();
    } else {
        rows_ = std::move(rows);
    }
    emit countChanged();
    updateCurrent();
}

void ClusterListModel::refresh() {
    summaries_.clear();
    if (!rows_.empty()) emit dataChanged(index(0), index(count() - 1));
}

std::optional<std::int64_t> ClusterListModel::numberAt(int row) const {
    if (row < 0 || row >= count()) return std::nullopt;
    return rows_[static_cast<std::size_t>(row)].number;
}

// What the user does.

void ClusterListModel::choose(int row) {
    const auto number = numberAt(row);
    const auto place = number ? desk_.stories().placeOf(*number) : std::nullopt;
    if (!place) return;
    current_ = row;
    selected_.open(plainText(desk_.stories()[*place].id()));
    emit currentRowChanged();
}

void ClusterListModel::step(int by) {
    if (count() == 0) return;
    choose(current_ < 0 ? (by > 0 ? 0 : count() - 1) : std::clamp(current_ + by, 0, count() - 1));
}

void ClusterListModel::toggle(int row) {
    if (row < 0 || row >= count()) return;
    setOpen(row, !rows_[static_cast<std::size_t>(row)].isOpen);
}

void ClusterListModel::setOpen(int row, bool open) {
    if (row < 0 || row >= count()) return;
    const auto& wanted = rows_[static_cast<std::size_t>(row)];
    if (wanted.cluster == kAlone) return;
    const auto& cluster = (*clusters_)[static_cast<std::size_t>(wanted.cluster)];
    const bool isOpen = open_.contains(cluster.id);
    if (open == isOpen) return;
    auto header = static_cast<std::size_t>(row);
    while (rows_[header].isMember) --header;
    auto rows = rows_;
    const auto after = rows.begin() + static_cast<std::ptrdiff_t>(header) + 1;
    if (open) {
        open_.insert(cluster.id);
        Build members{.clusters = clusters_};
        addCluster(members, wanted.cluster, wanted.number);
        rows.insert(after, members.rows.begin() + 1, members.rows.end());
    } else {
        open_.erase(cluster.id);
        rows.erase(after,
                   std::find_if(after, rows.end(), [](auto& each) { return !each.isMember; }));
    }
    rows[header].isOpen = open;
    apply(std::move(rows));
    emit dataChanged(index(static_cast<int>(header)), index(static_cast<int>(header)));
}

int ClusterListModel::rowOfSelected() const {
    const auto number = selected_.reader() ? selected_.reader()->number() : std::nullopt;
    if (!number) return -1;
    if (current_ >= 0 && current_ < count() &&
        rows_[static_cast<std::size_t>(current_)].number == *number)
        return current_;
    const auto cluster = clusterOf_.find(*number);
    int header = -1;
    for (int row = 0; row < count(); ++row) {
        const auto& each = rows_[static_cast<std::size_t>(row)];
        if (each.number == *number) return row;
        if (cluster != clusterOf_.end() && each.cluster == cluster->second && !each.isMember)
            header = row;
        if (header >= 0 && each.cluster != cluster->second) break;
    }
    return header;
}

void ClusterListModel::updateCurrent() {
    const auto row = rowOfSelected();
    if (std::exchange(current_, row) != row) emit currentRowChanged();
}

}  // namespace app
