#include "Tarnwick_Brell/Models/Sheets/ImportOutlinesSheetModel.h"

#include <algorithm>
#include <memory>

#include <QFileInfo>
#include <QPointer>
#include <QUrl>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

QString importedName(const std::string& name) { return titleText(kit::maskedSecrets(name)); }

QString importedAddress(const kit::OutlineFeed& feed) {
    return titleText(kit::maskedSecrets(feed.feedURL), kTitleCharacters);
}

std::vector<std::string> idsOf(const std::vector<kit::NewsSource>& sources) {
    std::vector<std::string> ids;
    for (const auto& source : sources) ids.push_back(source.id);
    return ids;
}

}  // namespace

ImportOutlinesSheetModel::ImportOutlinesSheetModel(const DeskStores& stores, const QString& path)
    : stores_(stores) {
    if (!path.isEmpty()) read(path);
}

/// Closing the sheet gives the import up.
ImportOutlinesSheetModel::~ImportOutlinesSheetModel() { stop_.request_stop(); }

QString ImportOutlinesSheetModel::listTitle() const {
    const auto title = titleText(preview_.title);
    return title.isEmpty() ? QFileInfo(path_).fileName() : title;
}

QList<QString> ImportOutlinesSheetModel::parts() const {
    return {tr("New %1").arg(preview_.fresh.size()), tr("Known %1").arg(preview_.known.size()),
            tr("Refused %1").arg(preview_.refused.size())};
}

void ImportOutlinesSheetModel::setPart(int part) {
    part_ = static_cast<Part>(part);
    showRows();
}

void ImportOutlinesSheetModel::setWords(const QString& words) {
    words_ = words;
    showRows();
}

std::size_t ImportOutlinesSheetModel::chosenCount() const {
    return static_cast<std::size_t>(std::count(isChosen_.begin(), isChosen_.end(), true));
}

QString ImportOutlinesSheetModel::summary() const {
    switch (state_) {
        case Choosing: return {};
        case Reading: return tr("Reading %1…").arg(QFileInfo(path_).fileName());
        case Importing: return tr("Adding sources…");
        case Looking: break;
    }
    if (preview_.fresh.empty()) return tr("Nothing in this list is new.");
    return tr("%1 of %2 chosen").arg(chosenCount()).arg(preview_.fresh.size());
}

void ImportOutlinesSheetModel::read(const QString& file) {
    if (state_ == Reading || state_ == Importing) return;
    const QUrl url(file);
    path_ = url.isLocalFile() ? url.toLocalFile() : file.trimmed();
    if (path_.isEmpty()) return;
    error_.clear();
    state_ = Reading;
    const QPointer<ImportOutlinesSheetModel> self(this);
    stores_.news.readOutlines(std::filesystem::path(path_.toStdString()),
                              [self](const auto& answer) {
                                  if (self) self->show(answer);
                              });
    emit changed();
}

void ImportOutlinesSheetModel::chooseFile() {
    emit fileWanted({.title = tr("Import a list of feeds"),
                     .filter = tr("Lists of feeds (*.opml *.xml);;All files (*)")});
}

void ImportOutlinesSheetModel::show(const std::variant<ImportPreview, std::string>& answer) {
    if (const auto* sentence = std::get_if<std::string>(&answer)) {
        state_ = Choosing;
        error_ = bodyText(*sentence);
        emit changed();
        return;
    }
    state_ = Looking;
    preview_ = std::get<ImportPreview>(answer);
    isChosen_.assign(preview_.fresh.size(), true);
    part_ = !preview_.fresh.empty() ? New : !preview_.known.empty() ? Known : Refused;
    showRows();
}

void ImportOutlinesSheetModel::addRow(OutlineRow row, std::size_t place) {
    if (!words_.isEmpty() && !row.name.contains(words_, Qt::CaseInsensitive) &&
        !row.detail.contains(words_, Qt::CaseInsensitive))
        return;
    shown_.push_back(place);
    filtered_.push_back(std::move(row));
}

void ImportOutlinesSheetModel::showRows() {
    shown_.clear();
    filtered_.clear();
    switch (part_) {
        case New:
            for (std::size_t i = 0; i < preview_.fresh.size(); ++i) {
                const auto& feed = preview_.fresh[i];
                addRow({importedName(feed.title), importedAddress(feed), isChosen_[i]}, i);
            }
            break;
        case Known:
            for (std::size_t i = 0; i < preview_.known.size(); ++i) {
                const auto& [feed, source] = preview_.known[i];
                const auto name = feed.title.empty() ? source.name : feed.title;
                addRow({importedName(name), tr("Known as %1").arg(titleText(source.name))}, i);
            }
            break;
        case Refused:
            for (std::size_t i = 0; i < preview_.refused.size(); ++i) {
                const auto& [text, reason] = preview_.refused[i];
                addRow({importedName(text), labelText(label(reason))}, i);
            }
            break;
    }
    rows_.setRows(std::move(filtered_));
    emit changed();
}

void ImportOutlinesSheetModel::toggle(int row) {
    if (part_ != New || !rows_.row(row)) return;
    const auto place = shown_[static_cast<std::size_t>(row)];
    isChosen_[place] = !isChosen_[place];
    auto rows = rows_.rows();
    rows[static_cast<std::size_t>(row)].isChosen = isChosen_[place];
    rows_.setRows(std::move(rows));
    emit changed();
}

void ImportOutlinesSheetModel::chooseShown(bool chosen) {
    if (part_ != New) return;
    for (const auto place : shown_) isChosen_[place] = chosen;
    showRows();
}

kit::Outlines ImportOutlinesSheetModel::picked() const {
    kit::Outlines outlines;
    for (std::size_t i = 0; i < preview_.fresh.size(); ++i) {
        if (isChosen_[i]) outlines.feeds.push_back(preview_.fresh[i]);
    }
    return outlines;
}

void ImportOutlinesSheetModel::import() {
    if (!canImport()) return;
    state_ = Importing;
    progress_ = 0;
    stop_ = {};
    const auto outlines = picked();
    const QPointer<ImportOutlinesSheetModel> self(this);
    const auto progressed = [self, all = static_cast<double>(outlines.feeds.size())](auto done) {
        if (!self) return;
        self->progress_ = static_cast<double>(done) / all;
        emit self->changed();
    };
    stores_.news.importOutlines(outlines, {.progress = progressed, .stop = stop_.get_token()},
                                [self, outlines](const auto& added) {
                                    if (self) self->finish(added, outlines);
                                });
    emit changed();
}

void ImportOutlinesSheetModel::giveUp() { stop_.request_stop(); }

void ImportOutlinesSheetModel::finish(const std::vector<kit::NewsSource>& added,
                                      const kit::Outlines& outlines) {
    if (added.empty()) {
        state_ = Looking;
        error_ = stop_.stop_requested() ? tr("The import was given up. No source was added.")
                                        : tr("No source was added.");
        emit changed();
        return;
    }
    auto& desk = stores_.news;
    const auto count = static_cast<int>(added.size());
    // Feeds that come back have their former ids.
    stores_.undo.push(
        {.text = tr("Import %n sources", nullptr, count),
         .undo = [&desk, ids = idsOf(added)] { desk.removeSources(ids); },
         .redo = [&desk, outlines] { desk.importOutlines(outlines, {}, [](auto&) {}); },
         .notice = tr("%n sources have been added.", nullptr, count)});
    desk.refreshAll();
    emit closeWanted();
}

}  // namespace app
