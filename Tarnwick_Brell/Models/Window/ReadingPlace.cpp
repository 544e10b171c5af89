#include "Tarnwick_Brell/Models/Window/ReadingPlace.h"

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

ReadingPlace::ReadingPlace(NewsDesk& desk, StoryListController& stories, SelectedStory& selected,
                           WindowState& state, QObject* parent)
    : QObject(parent),
      desk_(desk),
      stories_(stories),
      selected_(selected),
      state_(state),
      place_(state.place()),
      story_(state.story()),
      topStory_(state.topStory()),
      isRestoring_(!story_.isEmpty() || !topStory_.isEmpty()) {
    connect(stories.list(), &StoryListModel::countChanged, this, &ReadingPlace::restore);
    connect(&selected, &SelectedStory::rowChanged, this, [this] {
        // What the user selects meanwhile wins.
        if (selected_.hasStory()) endRestoring();
        if (!isRestoring_) state_.setStory(selected_.reader()->storyID());
    });
}

/// The list is filled between frames, so the story may come into it later.
void ReadingPlace::restore() {
    if (!isRestoring_) return;
    const auto& list = *stories_.list();
    const auto* story = desk_.stories().find(story_.toStdString());
    const auto* top = desk_.stories().find(topStory_.toStdString());
    const bool isThere = (!story || list.rowOf(story->number())) &&
                         (!top || list.rowOf(top->number())) && (story || top);
    if (!isThere && !list.isComplete()) return;
    endRestoring();
    if (stories_.destination().key() != place_) return;
    if (story) selected_.open(story_);
    const auto row = top ? list.rowOf(top->number()) : std::nullopt;
    if (row) emit topRowWanted(*row);
}

void ReadingPlace::setTopRow(int row) {
    if (isRestoring_) return;
    const auto number = row > 0 ? stories_.list()->numberAt(row) : std::nullopt;
    const auto place = number ? desk_.stories().placeOf(*number) : std::nullopt;
    state_.setTopStory(place ? plainText(desk_.stories()[*place].id()) : QString());
}

}  // namespace app
