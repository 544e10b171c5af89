#include "Tarnwick_Brell/Models/Newsrooms/BoardModel.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Panels/TrackerChanges.h"
#include "Tarnwick_Brell/Models/Newsrooms/BoardNewsrooms.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr auto kSecond = 1s;
constexpr std::chrono::seconds kShiftEvery = 10min;
constexpr int kShiftPixels = 2;
constexpr std::chrono::days kNewsOf{3};
constexpr std::size_t kMostNews = 3;

PanelStores panelStores(const DeskStores& stores) {
    return {.news = stores.news,
            .trackers = stores.trackers,
            .kept = stores.kept,
            .clock = stores.clock};
}

}  // namespace

BoardModel::BoardModel(const DeskStores& stores, QObject* parent)
    : QObject(parent),
      stores_(stores),
      newsroom_(panelStores(stores)),
      status_(panelStores(stores), {.kind = kit::PanelKind::status}) {
    second_.setInterval(kSecond);
    connect(&second_, &QTimer::timeout, this, &BoardModel::tick);
    connect(&stores_.newsrooms, &NewsroomStore::newsroomsChanged, this, [this] {
        if (isShown_) reload();
    });
    connect(&status_, &PanelModel::changed, this, &BoardModel::ticked);
}

BoardModel::~BoardModel() = default;

void BoardModel::show(const std::string& id) {
    ids_ = boardNewsrooms(stores_.newsrooms, stores_.defaults);
    const auto found = std::ranges::find(ids_, id);
    current_ = static_cast<std::size_t>(found - ids_.begin());
    if (found == ids_.end()) {
        ids_.insert(ids_.begin(), id);
        current_ = 0;
    }
    isHeld_ = false;
    shownFor_ = {};
    isShown_ = true;
    second_.start();
    showCurrent();
    emit shownChanged();
}

void BoardModel::close() {
    if (!isShown_) return;
    isShown_ = false;
    second_.stop();
    newsroom_.clear();
    emit shownChanged();
}

void BoardModel::turn(int by) {
    const auto size = count();
    if (size == 0) return;
    current_ = static_cast<std::size_t>((current() + by % size + size) % size);
    showCurrent();
}

void BoardModel::toggleHold() {
    isHeld_ = !isHeld_;
    left_ = kStay;
    emit ticked();
}

/// Newsrooms were changed by this or another window, or by another program.
void BoardModel::reload() {
    std::erase_if(ids_, [&](const auto& id) { return !stores_.newsrooms.newsrooms().find(id); });
    if (ids_.empty()) return close();
    current_ = std::min(current_, ids_.size() - 1);
    showCurrent();
}

void BoardModel::showCurrent() {
    left_ = kStay;
    const auto* entry = stores_.newsrooms.newsrooms().find(ids_[current_]);
    if (entry && entry->value) {
        newsroom_.show(*entry->value);
        symbol_ = plainText(entry->value->symbol);
    } else {
        newsroom_.clear();
    }
    emit turned();
    emit ticked();
}

void BoardModel::tick() {
    shownFor_ += kSecond;
    if (!isHeld_ && count() > 1) left_ -= kSecond;
    if (left_ <= 0s) return turn(1);
    status_.tick();
    emit ticked();
}

QString BoardModel::time() const { return clockText(stores_.clock()); }

QString BoardModel::day() const { return dayText(stores_.clock(), stores_.clock()); }

QString BoardModel::refreshed() const {
    const auto last = stores_.news.lastRefresh();
    return last ? tr("Refreshed %1").arg(clockText(*last)) : tr("Not refreshed yet");
}

QString BoardModel::next() const {
    if (count() < 2) return {};
    if (isHeld_) return tr("Held");
    const auto& id = ids_[(current_ + 1) % ids_.size()];
    const auto* entry = stores_.newsrooms.newsrooms().find(id);
    return tr("Next: %1 in %2 s")
        .arg(entry ? titleText(entry->name) : QString())
        .arg(static_cast<int>(left_.count()));
}

QString BoardModel::news() const {
    const auto now = stores_.clock();
    const auto& trackers = stores_.trackers;
    auto changes = kit::trackerChanges(kit::TrackerAnswers::of({}, {}, trackers.releases()),
                                       kit::CompiledStoryQuery(kit::StoryQuery{}), now - kNewsOf);
    std::ranges::stable_sort(changes, std::greater(), &kit::TrackerChange::at);
    if (changes.size() > kMostNews) changes.resize(kMostNews);
    QStringList parts;
    for (const auto& change : changes) {
        const auto when = change.at ? momentText(*change.at, now) + u' ' : QString();
        parts << when + titleText(change.subject);
    }
    return parts.join(QStringLiteral("  ·  "));
}

QString BoardModel::moreProblems() const {
    const int more = status_.problemCount() - 1;
    return more > 0 ? tr("and %n more problems", nullptr, more) : QString();
}

QPoint BoardModel::shift() const {
    static constexpr std::array kCorners{QPoint(0, 0), QPoint(kShiftPixels, 0),
                                         QPoint(kShiftPixels, kShiftPixels),
                                         QPoint(0, kShiftPixels)};
    return kCorners[static_cast<std::size_t>(shownFor_ / kShiftEvery) % kCorners.size()];
}

}  // namespace app
