#include "Tarnwick_Brell/Models/Sheets/ExportOutlinesSheetModel.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Outlines/OutlineWriter.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

enum ExportChoice { kSubscribed, kOwn, kAll };

}  // namespace

ExportOutlinesSheetModel::ExportOutlinesSheetModel(const DeskStores& stores, const QString&)
    : stores_(stores), sources_(stores.news.sources()) {
    std::ranges::stable_sort(sources_, {}, &kit::NewsSource::category);
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    path_ = folder.filePath(tr("Sources of Tarnwick Brell.opml"));
    choose(kSubscribed);
}

QList<QString> ExportOutlinesSheetModel::choices() const {
    return {tr("On or added by you"), tr("Added by you"), tr("All")};
}

ExportOutlinesSheetModel::IDs ExportOutlinesSheetModel::idsOf(int choice) const {
    const auto& on = stores_.news.enabledSourceIDs();
    const auto scope = choice == kOwn ? ExportScope::own : ExportScope::subscribed;
    IDs ids;
    for (const auto& source : sources_) {
        if (choice == kAll || isInScope(scope, source, on.contains(source.id)))
            ids.insert(source.id);
    }
    return ids;
}

int ExportOutlinesSheetModel::choice() const {
    for (const int choice : {kSubscribed, kOwn, kAll}) {
        if (idsOf(choice) == chosen_) return choice;
    }
    return -1;
}

void ExportOutlinesSheetModel::choose(int choice) {
    chosen_ = idsOf(choice);
    showRows();
}

void ExportOutlinesSheetModel::setPath(const QString& path) {
    path_ = path;
    error_.clear();
    emit changed();
}

void ExportOutlinesSheetModel::setKeepsSecrets(bool kept) {
    keepsSecrets_ = kept;
    emit changed();
}

QString ExportOutlinesSheetModel::secretsText() const {
    const auto count = exportedSources(picked(), Secrets::withheld).withheld.size();
    return count == 0 ? QString()
                      : tr("Keep %n addresses that carry a password or key", nullptr,
                           static_cast<int>(count));
}

QString ExportOutlinesSheetModel::summary() const {
    return tr("%n sources", nullptr, static_cast<int>(chosen_.size()));
}

bool ExportOutlinesSheetModel::replaces() const { return QFileInfo::exists(path_.trimmed()); }

std::vector<kit::NewsSource> ExportOutlinesSheetModel::picked() const {
    auto picked = sources_;
    std::erase_if(picked, [&](const auto& source) { return !chosen_.contains(source.id); });
    return picked;
}

void ExportOutlinesSheetModel::showRows() {
    const auto isChosen = [&](const kit::NewsSource& source) {
        return chosen_.contains(source.id);
    };
    std::vector<ExportRow> rows;
    for (auto first = sources_.begin(); first != sources_.end();) {
        const auto category = first->category;
        const auto last = std::find_if(
            first, sources_.end(), [&](const auto& source) { return source.category != category; });
        rows.push_back(
            {.isGroup = true,
             .name = labelText(label(category)),
             .detail = tr("%1 of %2").arg(std::count_if(first, last, isChosen)).arg(last - first),
             .isChosen = std::all_of(first, last, isChosen),
             .category = category});
        for (; first != last; ++first) {
            rows.push_back(
                {.name = titleText(first->name),
                 .detail = titleText(kit::maskedSecrets(first->feedURL), kTitleCharacters),
                 .isChosen = isChosen(*first),
                 .category = category,
                 .id = first->id});
        }
    }
    rows_.setRows(std::move(rows));
    emit changed();
}

void ExportOutlinesSheetModel::toggle(int place) {
    const auto* row = rows_.row(place);
    if (!row) return;
    for (const auto& source : sources_) {
        if (row->isGroup ? source.category != row->category : source.id != row->id) continue;
        if (row->isChosen) {
            chosen_.erase(source.id);
        } else {
            chosen_.insert(source.id);
        }
    }
    showRows();
}

void ExportOutlinesSheetModel::chooseFile() {
    emit fileWanted({.title = tr("Export sources"),
                     .filter = tr("Lists of feeds (*.opml)"),
                     .path = path_,
                     .isForWriting = true});
}

void ExportOutlinesSheetModel::write() {
    if (!canExport()) return;
    const auto path = path_.trimmed();
    QDir().mkpath(QFileInfo(path).path());
    const auto list = exportedSources(picked(), keepsSecrets_ ? Secrets::kept : Secrets::withheld);
    const auto bytes = kit::writeOutlines(list.outlines);
    QSaveFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) &&
                           file.write(bytes.data(), std::ssize(bytes)) == std::ssize(bytes) &&
                           file.commit();
    if (!isWritten) {
        error_ = tr("%1 can't be written: %2.").arg(path, file.errorString());
        emit changed();
        return;
    }
    emit noticed(tr("%n sources have been exported to %1.", nullptr,
                    static_cast<int>(list.outlines.feeds.size()))
                     .arg(path));
    emit closeWanted();
}

}  // namespace app
