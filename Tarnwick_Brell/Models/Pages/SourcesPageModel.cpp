#include "Tarnwick_Brell/Models/Pages/SourcesPageModel.h"

#include <algorithm>
#include <chrono>
#include <unordered_map>

#include <QPointer>

#include "Tarnwick_Brell/Models/Pages/SourceTableText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using namespace std::chrono_literals;

/// A pass reports each source by itself.
constexpr auto kRereadPause = 200ms;
constexpr std::size_t kLastStories = 4;
constexpr std::size_t kFailuresShown = 3;

}  // namespace

SourcesPageModel::SourcesPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Sources")), steps_(stores) {
    soon_.setSingleShot(true);
    soon_.setInterval(kRereadPause);
    connect(&soon_, &QTimer::timeout, this, &SourcesPageModel::update);
    const auto later = [this] {
        if (!soon_.isActive()) soon_.start();
    };
    connect(&news(), &NewsDesk::sourcesChanged, this, later);
    connect(&news(), &NewsDesk::sourcesChanged, this, &SourcesPageModel::readHistory);
    connect(&news(), &NewsDesk::sourcesChanged, this, &SourcesPageModel::readPauses);
    connect(&news(), &NewsDesk::wireChanged, this, later);
    connect(&news(), &NewsDesk::marksChanged, this, later);
    update();
    readPauses();
}

void SourcesPageModel::update() {
    readLines();
    showRows();
}

void SourcesPageModel::readLines() {
    std::unordered_map<std::string_view, std::int64_t> recent;
    const auto from = now() - std::chrono::days(kRecentStoryDays);
    const auto& wire = news().stories();
    for (std::size_t place = 0; place < wire.size() && wire[place].publishedAt() >= from; ++place)
        ++recent[wire[place].sourceID()];
    lines_.clear();
    for (const auto& source : news().sources()) {
        const auto& status = news().sourceStatus(source.id);
        const auto count = recent.find(source.id);
        lines_.push_back({.source = source,
                          .isOn = news().enabledSourceIDs().contains(source.id),
                          .status = status,
                          .health = news().sourceHealth(source.id),
                          .options = steps_.optionsOf(source),
                          .nextTry = nextTry(source, status, pauses_, now()),
                          .recentStories = count == recent.end() ? 0 : count->second});
    }
}

void SourcesPageModel::showRows() {
    std::vector<SourceTableRow> rows;
    for (const auto place : chosenSources(lines_, choice_))
        rows.push_back(sourceTableRow(lines_[place], now()));
    for (auto& row : rows) row.isOpen = row.id == plainText(openID_);
    rows_.setRows(std::move(rows));
    if (currentRow() < 0 && rows_.row(0)) selectedID_ = rows_.row(0)->id.toStdString();
    showDetail();
}

void SourcesPageModel::showDetail() {
    const auto* line = lineOf(openID_);
    detail_ = line ? sourceDetail(*line, history_, now()) : SourceDetail{};
    failures_.setRows(sourceFailures(history_, kFailuresShown, now()));
    showStories();
    setCondition(
        {.state = lines_.empty() ? Loading : Ready,
         .fact = news().lastRefresh() ? momentText(*news().lastRefresh(), now()) : QString()});
}

void SourcesPageModel::showStories() {
    std::vector<SourceStoryRow> rows;
    const auto& wire = news().stories();
    for (std::size_t place = 0; place < wire.size() && rows.size() < kLastStories; ++place) {
        const auto& story = wire[place];
        if (story.sourceID() != openID_) continue;
        rows.push_back({.id = plainText(story.id()),
                        .title = titleText(story.title(), kTitleCharacters),
                        .age = ageText(story.publishedAt(), now()),
                        .isRead = story.isRead()});
    }
    lastStories_.setRows(std::move(rows));
}

const SourceLine* SourcesPageModel::lineOf(const std::string& id) const {
    const auto line = std::ranges::find(
        lines_, id, [](const auto& each) -> const std::string& { return each.source.id; });
    return line == lines_.end() ? nullptr : &*line;
}

int SourcesPageModel::rowOf(const std::string& id) const {
    const auto& rows = rows_.rows();
    const auto row = std::ranges::find(rows, plainText(id), &SourceTableRow::id);
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
}

const SourceLine* SourcesPageModel::selected() const {
    return currentRow() < 0 ? nullptr : lineOf(selectedID_);
}

int SourcesPageModel::currentRow() const { return rowOf(selectedID_); }

QList<QString> SourcesPageModel::groups() const {
    QList<QString> groups{tr("All groups")};
    for (const auto& row : kit::enumTable<kit::NewsSource::Category>)
        groups << labelText(row.label);
    return groups;
}

int SourcesPageModel::group() const {
    return choice_.group ? static_cast<int>(*choice_.group) + 1 : 0;
}

void SourcesPageModel::setGroup(int group) {
    choice_.group.reset();
    if (group > 0) choice_.group = static_cast<kit::NewsSource::Category>(group - 1);
    showRows();
}

void SourcesPageModel::open(int row) {
    const auto* wanted = rows_.row(row);
    openID_ = wanted ? wanted->id.toStdString() : std::string();
    if (wanted) selectedID_ = openID_;
    history_ = {};
    isRenaming_ = false;
    readHistory();
    showRows();
}

void SourcesPageModel::toggle(int row) {
    const auto* wanted = rows_.row(row);
    open(wanted && wanted->isOpen ? -1 : row);
}

void SourcesPageModel::readHistory() {
    if (openID_.empty()) return;
    const QPointer<SourcesPageModel> self(this);
    news().readTries(openID_, [self, mine = ++historyRead_](const auto& tries) {
        if (!self || self->historyRead_ != mine) return;
        self->history_ = tryHistory(tries, self->now());
        self->showDetail();
    });
}

void SourcesPageModel::readPauses() {
    const QPointer<SourcesPageModel> self(this);
    news().readPauses([self](const auto& pauses) {
        if (!self || self->pauses_ == pauses) return;
        self->pauses_ = pauses;
        self->update();
    });
}

QList<QString> SourcesPageModel::subsets() const {
    const auto count = [&](SourceSubset subset) {
        return std::count_if(lines_.begin(), lines_.end(),
                             [&](const auto& line) { return isIn(subset, line); });
    };
    return {tr("All %1").arg(count(SourceSubset::all)), tr("On %1").arg(count(SourceSubset::on)),
            tr("Failing %1").arg(count(SourceSubset::failing)),
            tr("Added %1").arg(count(SourceSubset::own))};
}

QString SourcesPageModel::foot() const { return sourcesFootText(lines_, now()); }

void SourcesPageModel::setSubset(int subset) {
    choice_.subset = static_cast<SourceSubset>(subset);
    showRows();
}

void SourcesPageModel::setWords(const QString& words) {
    choice_.words = words.toStdString();
    showRows();
}

void SourcesPageModel::sortBy(int order) {
    const auto wanted = static_cast<SourceOrder>(order);
    choice_.isReversed = choice_.order == wanted && !choice_.isReversed;
    choice_.order = wanted;
    showRows();
}

void SourcesPageModel::select(int row) {
    const auto* chosen = rows_.row(row);
    if (!chosen || chosen->id.toStdString() == selectedID_) return;
    selectedID_ = chosen->id.toStdString();
    isRenaming_ = false;
    emit changed();
}

}  // namespace app
