#include "Tarnwick_Brell/Models/Pages/ChartsPageModel.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>

#include <QLocale>

#include "NewsroomKit/Panels/RowFilter.h"
#include "Tarnwick_Brell/Pictures/PictureID.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using Chart = kit::AppStoreCharts::Kind;

constexpr int kLongestApp = 80;
constexpr std::size_t kRowDays = 30;
constexpr std::size_t kAppDays = 90;
constexpr std::int64_t kLowestRank = 100;

QString number(std::int64_t rank) { return QLocale().toString(static_cast<qlonglong>(rank)); }

/// Rank 1 is at the top, the `lowest` at the bottom.
QList<double> curveOf(const kit::RankDays& ranks, std::int64_t lowest) {
    QList<double> curve;
    for (const auto& rank : ranks) {
        curve << (rank ? std::clamp(static_cast<double>(*rank - 1) /
                                        static_cast<double>(std::max<std::int64_t>(lowest - 1, 1)),
                                    0.0, 1.0)
                       : -1);
    }
    return curve;
}

QString moveWords(const kit::ChartContent::Row& place) {
    const auto rise = place.rise();
    if (!rise) return place.isNew ? ChartsPageModel::tr("new") : QString();
    if (*rise == 0) return ChartsPageModel::tr("unchanged");
    const auto places = static_cast<int>(std::abs(*rise));
    return *rise > 0 ? ChartsPageModel::tr("up %n places", nullptr, places)
                     : ChartsPageModel::tr("down %n places", nullptr, places);
}

ChartAppRow appRow(const kit::ChartContent::Row& place, const std::vector<kit::ChartDay>& days,
                   kit::Instant last, std::int64_t lowest) {
    const auto& entry = place.entry;
    ChartAppRow row{.id = entry.id,
                    .rank = number(entry.rank),
                    .name = titleText(entry.name, kLongestApp),
                    .developer = titleText(entry.developer, kLongestApp),
                    .artwork = pictureID(entry.artwork.value_or(std::string())),
                    .isApples = place.isApples,
                    .curve = curveOf(kit::rankDays(days, entry.id, last, kRowDays), lowest),
                    .isNew = place.isNew};
    if (const auto rise = place.rise()) {
        row.move = *rise > 0 ? PriceMove::Up : *rise < 0 ? PriceMove::Down : PriceMove::Flat;
        row.change = *rise == 0 ? QStringLiteral("–") : number(std::abs(*rise));
    }
    row.spokenText = ChartsPageModel::tr("%1, %2, %3").arg(row.rank, row.name, row.developer);
    if (row.isApples) row.spokenText += QStringLiteral(", ") + ChartsPageModel::tr("Apple's own");
    if (const auto move = moveWords(place); !move.isEmpty())
        row.spokenText += QStringLiteral(", ") + move;
    return row;
}

QString moveLine(const kit::AppHistory::Move& move) {
    if (!move.after)
        return ChartsPageModel::tr("Left the chart, from rank %1").arg(number(*move.before));
    const auto after = number(*move.after);
    if (!move.before) {
        return move.entersTopTen
                   ? ChartsPageModel::tr("Came at rank %1, into the top 10").arg(after)
                   : ChartsPageModel::tr("Came at rank %1").arg(after);
    }
    const auto ranks = ChartsPageModel::tr("%1 → %2").arg(number(*move.before), after);
    return move.entersTopTen ? ChartsPageModel::tr("%1, enters the top 10").arg(ranks) : ranks;
}

QString chartNoun(Chart chart) {
    return chart == Chart::topFree ? ChartsPageModel::tr("Free") : ChartsPageModel::tr("Paid");
}

}  // namespace

ChartsPageModel::ChartsPageModel(const DeskStores& stores)
    : PageModel(stores, tr("App Store charts")) {
    connect(&trackers(), &TrackerStore::chartsChanged, this, &ChartsPageModel::update);
    update();
}

void ChartsPageModel::setWords(const QString& words) {
    words_ = words;
    update();
}

void ChartsPageModel::setOnlyApples(bool only) {
    onlyApples_ = only;
    update();
}

kit::Instant ChartsPageModel::lastDay() const {
    return trackers().chart(selectedChart_).fetchedAt.value_or(now());
}

void ChartsPageModel::updateChart(Kind kind) {
    auto& shown = charts_[static_cast<std::size_t>(kind)];
    const auto& chart = trackers().chart(kind);
    const auto content = kit::chartContent(chart, trackers().chartDayBefore(kind));
    const auto last = chart.fetchedAt.value_or(now());
    const kit::RowFilter filter(words_.toStdString());
    std::vector<ChartAppRow> rows;
    for (const auto& row : content.rows) {
        if (onlyApples_ && !row.isApples) continue;
        if (!filter.matches({row.entry.name, row.entry.developer})) continue;
        rows.push_back(appRow(row, trackers().chartDays(kind), last,
                              static_cast<std::int64_t>(content.rows.size())));
    }
    shown.rows.setRows(std::move(rows));
    shown.fact = chart.error       ? titleText(*chart.error)
                 : chart.fetchedAt ? momentText(*chart.fetchedAt, now())
                                   : tr("Loading…");
}

void ChartsPageModel::update() {
    updateChart(Kind::topFree);
    updateChart(Kind::topPaid);
    const auto& free = trackers().chart(Kind::topFree);
    const auto& paid = trackers().chart(Kind::topPaid);
    if (selectedID_.empty() && free.value && !free.value->empty())
        selectedID_ = free.value->front().id;
    showApp();
    // One of the two is enough to show the page.
    const auto& leading = free.value || !paid.value ? free : paid;
    setCondition(
        conditionOf(kit::PanelCondition::of(leading, leading.value && !leading.value->empty()),
                    tr("The charts are empty.")));
}

void ChartsPageModel::showApp() {
    const std::vector<kit::ChartPast> charts{
        {Kind::topFree, trackers().chart(Kind::topFree), trackers().chartDays(Kind::topFree)},
        {Kind::topPaid, trackers().chart(Kind::topPaid), trackers().chartDays(Kind::topPaid)}};
    app_ = kit::appHistory(charts, selectedChart_, selectedID_);
    ranks_ = kit::rankDays(trackers().chartDays(selectedChart_), selectedID_, lastDay(), kAppDays);
    curve_ = curveOf(ranks_, kLowestRank);
    std::vector<AppFactRow> moves, others;
    if (app_) {
        for (const auto& move : app_->moves)
            moves.push_back({.when = namedDayText(move.day, now()), .text = moveLine(move)});
        for (const auto& other : app_->others) {
            others.push_back({.when = number(other.entry.rank),
                              .text = titleText(other.entry.name, kLongestApp),
                              .note = chartNoun(other.chart),
                              .id = other.entry.id,
                              .chart = other.chart});
        }
    }
    moves_.setRows(std::move(moves));
    others_.setRows(std::move(others));
}

int ChartsPageModel::selectedRow() const {
    const auto& rows = charts_[static_cast<std::size_t>(selectedChart_)].rows.rows();
    const auto row = std::ranges::find(rows, selectedID_, &ChartAppRow::id);
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
}

QString ChartsPageModel::appName() const {
    return app_ ? titleText(app_->entry.name, kLongestApp) : QString();
}

QString ChartsPageModel::developer() const {
    return app_ ? titleText(app_->entry.developer, kLongestApp) : QString();
}

QString ChartsPageModel::summary() const {
    if (!app_) return {};
    const auto rank = number(app_->entry.rank);
    auto text = selectedChart_ == Kind::topFree ? tr("Rank %1 of the free apps.").arg(rank)
                                                : tr("Rank %1 of the paid apps.").arg(rank);
    if (app_->bestRank && app_->firstDay) {
        text += u' ' + tr("The best since %1 is rank %2, on %3.")
                           .arg(namedDayText(*app_->firstDay, now()), number(*app_->bestRank),
                                namedDayText(*app_->bestDay, now()));
    }
    return text;
}

QStringList ChartsPageModel::scale() const {
    QStringList ranks;
    for (const std::int64_t rank : {1, 25, 50, 75, 100}) ranks << number(rank);
    return ranks;
}

QString ChartsPageModel::firstDay() const {
    return namedDayText(lastDay() - std::chrono::days(kAppDays - 1), now());
}

QString ChartsPageModel::dayText(int day) const {
    if (day < 0 || day >= static_cast<int>(ranks_.size())) return {};
    const auto back = static_cast<int>(ranks_.size()) - 1 - day;
    const auto when = namedDayText(lastDay() - std::chrono::days(back), now());
    const auto& rank = ranks_[static_cast<std::size_t>(day)];
    return rank ? tr("Rank %1, %2").arg(number(*rank), when)
                : tr("Not in the chart or not seen, %1").arg(when);
}

void ChartsPageModel::select(int chart, int row) {
    if (chart < 0 || chart >= static_cast<int>(charts_.size())) return;
    const auto* app = charts_[static_cast<std::size_t>(chart)].rows.row(row);
    if (app) selectApp(static_cast<Kind>(chart), app->id);
}

void ChartsPageModel::selectOther(int row) {
    const auto* other = others_.row(row);
    if (other) selectApp(other->chart, std::string(other->id));
}

void ChartsPageModel::selectApp(Kind chart, const std::string& id) {
    selectedChart_ = chart;
    selectedID_ = id;
    showApp();
    emit changed();
}

void ChartsPageModel::openApp() {
    if (app_ && app_->entry.url) openLink(openableLink(*app_->entry.url));
}

}  // namespace app
