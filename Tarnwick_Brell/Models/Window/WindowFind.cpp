// What finding in the page searches in the list of stories.
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

void WindowModel::connectFind() {
    connect(&find_, &FindInPage::partsWanted, this, [this] {
        if (view() == Stories) find_.setParts({storyPart()});
    });
    connect(this, &WindowModel::placeChanged, &find_, &FindInPage::pageChanged);
    const std::initializer_list<const QAbstractItemModel*> lists{storyList_.list(), &clusters_};
    for (const auto* list : lists) {
        connect(list, &QAbstractItemModel::modelReset, &find_, &FindInPage::pageChanged);
        connect(list, &QAbstractItemModel::rowsInserted, &find_, &FindInPage::pageChanged);
        connect(list, &QAbstractItemModel::rowsRemoved, &find_, &FindInPage::pageChanged);
    }
}

/// A row counts once. With the reader beside the list the whole excerpt counts, since choosing the
/// row shows it.
bool WindowModel::mentions(const kit::TermFinder& finder, int row) {
    const auto number =
        clusters_.isShown() ? clusters_.numberAt(row) : storyList_.list()->numberAt(row);
    const auto place = number ? stores_.news.stories().placeOf(*number) : std::nullopt;
    if (!place) return false;
    const auto& story = stores_.news.stories()[*place];
    const auto shown = state_.reader() == WindowState::Hidden
                           ? kit::firstCharacters(story.summary(), kExcerptCharacters)
                           : story.summary();
    return finder.admits(story.title(), shown) ||
           finder.admits(story.sourceName(), story.destinationName());
}

FindPart WindowModel::storyPart() {
    const bool isClustered = clusters_.isShown();
    return {
        .rows =
            [this] { return clusters_.isShown() ? clusters_.count() : storyList_.list()->count(); },
        .mentions = [this](const kit::TermFinder& finder,
                           int row) { return mentions(finder, row); },
        .show =
            [this](int row) {
                clusters_.isShown() ? clusters_.choose(row) : selected_.setRow(row);
            },
        .chosen = isClustered ? clusters_.currentRow() : selected_.row()};
}

void WindowModel::findNext(int by) {
    if (find_.isOpen() && !find_.text().isEmpty()) return find_.step(by);
    find_.open();
    emit viewActionWanted(DeskAction::FindInPage);
}

}  // namespace app
