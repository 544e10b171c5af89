// What can be done with the source that is selected in the table.
#include <QClipboard>
#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Pages/SourceTableText.h"
#include "Tarnwick_Brell/Models/Pages/SourcesPageModel.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

void SourcesPageModel::setEnabled(const QString& id, bool enabled) {
    if (const auto* line = lineOf(id.toStdString())) steps_.setEnabled(line->source, enabled);
}

void SourcesPageModel::setInterval(int choice) {
    select(rowOf(openID_));
    const auto* line = selected();
    if (!line) return;
    auto options = steps_.optionsOf(line->source);
    options.minimumInterval = sourceInterval(choice);
    steps_.setOptions(line->source, options, tr("Change how often %1 is fetched"));
}

void SourcesPageModel::setOnlyApple(bool only) {
    const auto* line = selected();
    if (!line) return;
    auto options = steps_.optionsOf(line->source);
    options.onlyApple = only;
    steps_.setOptions(
        line->source, options,
        only ? tr("Keep only stories about Apple of %1") : tr("Keep all stories of %1"));
}

void SourcesPageModel::setNotInAll(bool leftOut) {
    const auto* line = selected();
    if (!line) return;
    auto options = steps_.optionsOf(line->source);
    options.notInAll = leftOut;
    steps_.setOptions(
        line->source, options,
        leftOut ? tr("Leave %1 out of all stories") : tr("Show %1 among all stories"));
}

void SourcesPageModel::endRenaming() {
    isRenaming_ = false;
    emit changed();
}

void SourcesPageModel::rename(const QString& name) {
    if (const auto* line = selected()) steps_.rename(line->source, name.trimmed());
    endRenaming();
}

bool SourcesPageModel::offers(Action action) const {
    const auto* line = selected();
    switch (action) {
        case DeskAction::CopyRow:
        case DeskAction::FetchSource:
        case DeskAction::ShowSourceStories:
        case DeskAction::ToggleOnlyApple:
        case DeskAction::ToggleNotInAll:
        case DeskAction::SetSourceInterval:
        case DeskAction::SwitchSource: return line != nullptr;
        case DeskAction::RenameSource:
        case DeskAction::RemoveSource: return line && line->isOwn();
        case DeskAction::CopySourceReport: return !lines_.empty();
        default: return false;
    }
}

void SourcesPageModel::performOnOpen(Action action) {
    select(rowOf(openID_));
    perform(action);
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
        case DeskAction::ShowSourceStories:
            emit placeWanted(QStringLiteral("source:") + plainText(line->source.id));
            break;
        case DeskAction::ToggleOnlyApple: setOnlyApple(!line->source.onlyApple); break;
        case DeskAction::ToggleNotInAll:
            setNotInAll(!steps_.optionsOf(line->source).notInAll);
            break;
        case DeskAction::SetSourceInterval:
            open(currentRow());
            emit intervalsWanted();
            break;
        case DeskAction::RenameSource:
            open(currentRow());
            isRenaming_ = true;
            emit changed();
            break;
        case DeskAction::RemoveSource: steps_.remove(line->source, line->isOn); break;
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
