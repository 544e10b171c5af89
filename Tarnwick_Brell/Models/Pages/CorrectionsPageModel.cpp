#include "Tarnwick_Brell/Models/Pages/CorrectionsPageModel.h"

#include <algorithm>

#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Models/Files/SavedFile.h"
#include "Tarnwick_Brell/Models/Stories/CorrectionSteps.h"
#include "Tarnwick_Brell/Presentation/CorrectionText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

CorrectionRow rowOf(const kit::Correction& correction, NewsDesk& news, kit::Instant now) {
    CorrectionRow row{.made = momentText(correction.madeAt, now),
                      .what = correctionText(correction),
                      .note = titleText(correction.note.value_or(std::string())),
                      .id = correction.id};
    const auto* story = news.stories().find(correction.stories.front());
    const auto more = static_cast<int>(correction.stories.size()) - 1;
    row.stories = story ? titleText(story->title(), kTitleCharacters)
                        : CorrectionsPageModel::tr("A story that is no longer here");
    if (more > 0)
        row.stories = CorrectionsPageModel::tr("%1, and %n more", nullptr, more).arg(row.stories);
    if (story) row.storyID = plainText(story->id());
    if (news.corrections().overlay()->overruled().contains(correction.id))
        row.note = CorrectionsPageModel::tr("A later correction says otherwise");
    row.spokenText = spokenRow({row.what, row.stories, row.note, row.made});
    return row;
}

}  // namespace

CorrectionsPageModel::CorrectionsPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Corrections")) {
    connect(&news().corrections(), &Corrections::changed, this, &CorrectionsPageModel::update);
    connect(&news(), &NewsDesk::loaded, this, &CorrectionsPageModel::update);
    update();
}

void CorrectionsPageModel::update() {
    if (!news().isLoaded()) return setCondition({.state = Loading});
    std::vector<CorrectionRow> rows;
    for (const auto& correction : news().corrections().all())
        rows.push_back(rowOf(correction, news(), now()));
    std::ranges::reverse(rows);
    rows_.setRows(std::move(rows));
    if (row_ >= rows_.rowCount()) row_ = -1;
    if (rows_.rowCount() == 0) {
        setCondition({.state = Empty,
                      .message = tr("You have corrected nothing yet."),
                      .hint = tr("Shift+K on a story corrects its label, its news, its credits or "
                                 "who was first.")});
    } else {
        setCondition({.state = Ready, .fact = tr("%n corrections", nullptr, rows_.rowCount())});
    }
}

void CorrectionsPageModel::setRow(int row) {
    if (row_ == row) return;
    row_ = row;
    emit changed();
}

void CorrectionsPageModel::openRow(int row) {
    const auto* found = rows_.row(row);
    if (found && !found->storyID.isEmpty()) openStory(found->storyID);
}

void CorrectionsPageModel::removeRow(int row) {
    const auto* found = rows_.row(row);
    if (!found) return;
    const auto& all = news().corrections().all();
    const auto correction = std::ranges::find(all, found->id, &kit::Correction::id);
    if (correction != all.end()) removeCorrection(stores(), *correction);
}

void CorrectionsPageModel::saveJSON() {
    const auto file = SavedFile::write(tr("Corrections"), QStringLiteral("json"),
                                       exportedCorrections(news().corrections().all()));
    emit noticed(file.isSaved() ? tr("Saved as %1.").arg(file.path)
                                : tr("Can’t save %1: %2").arg(file.path, file.error));
}

bool CorrectionsPageModel::offers(Action action) const {
    return (action == DeskAction::RemoveCorrection && row_ >= 0) ||
           (action == DeskAction::ExportJSON && rows_.rowCount() > 0);
}

void CorrectionsPageModel::perform(Action action) {
    if (action == DeskAction::RemoveCorrection) removeRow(row_);
    if (action == DeskAction::ExportJSON) saveJSON();
}

}  // namespace app
