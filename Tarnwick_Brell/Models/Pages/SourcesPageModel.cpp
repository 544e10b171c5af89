#include "Tarnwick_Brell/Models/Pages/SourcesPageModel.h"

#include <algorithm>
#include <chrono>
#include <unordered_map>

#include <QClipboard>
#include <QGuiApplication>

#include "NewsroomKit/Outlines/Outlines.h"
#include "Tarnwick_Brell/Desk/SourceSchedule.h"
#include "Tarnwick_Brell/Models/Pages/SourceTableText.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using namespace std::chrono_literals;

/// A pass reports each source by itself.
constexpr auto kRereadPause = 200ms;
constexpr std::size_t kLastStories = 12;

}  // namespace

SourcesPageModel::SourcesPageModel(const DeskStores& stores) : PageModel(stores, tr("Sources")) {
    soon_.setSingleShot(true);
    soon_.setInterval(kRereadPause);
    connect(&soon_, &QTimer::timeout, this, &SourcesPageModel::update);
    const auto later = [this] {
        if (!soon_.isActive()) soon_.start();
    };
    connect(&news(), &NewsDesk::sourcesChanged, this, later);
    connect(&news(), &NewsDesk::wireChanged, this, later);
    connect(&news(), &NewsDesk::marksChanged, this, later);
    update();
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
                          .nextTry = nextTry(source, status, {}, now()),
                          .recentStories = count == recent.end() ? 0 : count->second});
    }
}

void SourcesPageModel::showRows() {
    std::vector<SourceTableRow> rows;
    for (const auto place : chosenSources(lines_, choice_))
        rows.push_back(sourceTableRow(lines_[place], now()));
    rows_.setRows(std::move(rows));
    if (currentRow() < 0 && rows_.row(0)) selectedID_ = rows_.row(0)->id.toStdString();
    showDetail();
}

void SourcesPageModel::showDetail() {
    const auto* line = selected();
    detail_ = line ? sourceDetail(*line, now()) : SourceDetail{};
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
        if (story.sourceID() != selectedID_) continue;
        rows.push_back({.id = plainText(story.id()),
                        .title = titleText(story.title(), kTitleCharacters),
                        .age = ageText(story.publishedAt(), now()),
                        .isRead = story.isRead()});
    }
    lastStories_.setRows(std::move(rows));
}

const SourceLine* SourcesPageModel::selected() const {
    const auto line = std::find_if(lines_.begin(), lines_.end(),
                                   [&](const auto& each) { return each.source.id == selectedID_; });
    return line == lines_.end() || currentRow() < 0 ? nullptr : &*line;
}

int SourcesPageModel::currentRow() const {
    const auto& rows = rows_.rows();
    const auto id = QString::fromStdString(selectedID_);
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](const auto& each) { return each.id == id; });
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
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

QString SourcesPageModel::foot() const {
    const auto on =
        std::count_if(lines_.begin(), lines_.end(), [](const auto& line) { return line.isOn; });
    const auto failing = std::count_if(lines_.begin(), lines_.end(),
                                       [](const auto& line) { return line.isFailing(); });
    return tr("%n sources", nullptr, static_cast<int>(lines_.size())) +
           tr(", %1 on, %2 failing").arg(on).arg(failing);
}

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
    showDetail();
}

void SourcesPageModel::setEnabled(const QString& id, bool enabled) {
    auto& desk = news();
    const auto source = id.toStdString();
    const auto line = std::find_if(lines_.begin(), lines_.end(),
                                   [&](const auto& each) { return each.source.id == source; });
    if (line == lines_.end() || line->isOn == enabled) return;
    desk.setEnabled(source, enabled);
    const auto name = titleText(line->source.name);
    stores().undo.push(
        {.text = enabled ? tr("Switch on %1").arg(name) : tr("Switch off %1").arg(name),
         .undo = [&desk, source, enabled] { desk.setEnabled(source, !enabled); },
         .redo = [&desk, source, enabled] { desk.setEnabled(source, enabled); }});
}

void SourcesPageModel::endRenaming() {
    isRenaming_ = false;
    emit changed();
}

void SourcesPageModel::rename(const QString& name) {
    const auto* line = selected();
    const auto after = name.trimmed().toStdString();
    if (line && line->isOwn() && !after.empty() && after != line->source.name) {
        auto& desk = news();
        const auto id = line->source.id;
        const auto before = line->source.name;
        desk.renameSource(id, after);
        stores().undo.push({.text = tr("Rename %1").arg(titleText(before)),
                            .undo = [&desk, id, before] { desk.renameSource(id, before); },
                            .redo = [&desk, id, after] { desk.renameSource(id, after); }});
    }
    endRenaming();
}

/// The feed comes back under its old id, which its stories have; fetching is not needed for that.
void SourcesPageModel::removeSelected() {
    const auto* line = selected();
    if (!line || !line->isOwn()) return;
    auto& desk = news();
    const auto source = line->source;
    const auto restore = [&desk, source] {
        kit::Outlines outlines;
        outlines.feeds.push_back(
            {.title = source.name, .feedURL = source.feedURL, .siteURL = source.siteURL});
        desk.importOutlines(std::move(outlines), {}, [](const auto&) {});
    };
    const auto remove = [&desk, source] { desk.removeSources({source.id}); };
    remove();
    stores().undo.push(
        {.text = tr("Remove %1").arg(titleText(source.name)), .undo = restore, .redo = remove});
    emit noticed(tr("%1 was removed. Ctrl+Z brings it back.").arg(titleText(source.name)));
}

bool SourcesPageModel::offers(Action action) const {
    const auto* line = selected();
    switch (action) {
        case DeskAction::CopyRow:
        case DeskAction::FetchSource:
        case DeskAction::SwitchSource: return line != nullptr;
        case DeskAction::RenameSource:
        case DeskAction::RemoveSource: return line && line->isOwn();
        case DeskAction::CopySourceReport: return !lines_.empty();
        default: return false;
    }
}

void SourcesPageModel::perform(Action action) {
    const auto* line = selected();
    if (!offers(action)) return;
    switch (action) {
        case DeskAction::CopyRow: copy(reportOf({line}), tr("The report was copied.")); break;
        case DeskAction::FetchSource:
            news().refreshSource(line->source.id);
            emit noticed(tr("Fetching %1.").arg(titleText(line->source.name)));
            break;
        case DeskAction::SwitchSource: setEnabled(plainText(line->source.id), !line->isOn); break;
        case DeskAction::RenameSource:
            isRenaming_ = true;
            emit changed();
            break;
        case DeskAction::RemoveSource: removeSelected(); break;
        case DeskAction::CopySourceReport: {
            std::vector<const SourceLine*> chosen;
            for (const auto place : chosenSources(lines_, choice_))
                chosen.push_back(&lines_[place]);
            copy(reportOf(chosen), tr("The report of these sources was copied."));
            break;
        }
        default: break;
    }
}

QString SourcesPageModel::reportOf(const std::vector<const SourceLine*>& lines) const {
    QStringList texts;
    for (const auto* line : lines) texts << sourceReportText(*line, now());
    return texts.join(u'\n');
}

void SourcesPageModel::copy(const QString& text, const QString& notice) {
    QGuiApplication::clipboard()->setText(text);
    emit noticed(notice);
}

}  // namespace app
