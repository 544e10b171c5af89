#include "Tarnwick_Brell/Models/Stories/SelectedStory.h"

#include <algorithm>

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr auto kReadingTime = 2s;

}  // namespace

SelectedStory::SelectedStory(NewsDesk& desk, StoryListController& stories, const Defaults& defaults,
                             kit::Clock clock, QObject* parent)
    : QObject(parent),
      desk_(desk),
      list_(*stories.list()),
      reader_(desk, defaults, std::move(clock)) {
    connect(&stories, &StoryListController::aboutToReplace, this, [this] { select(std::nullopt); });
    connect(&stories, &StoryListController::filterChanged, this, &SelectedStory::updateRow);
    connect(&list_, &StoryListModel::countChanged, this, &SelectedStory::updateRow);
    reading_.setSingleShot(true);
    reading_.setInterval(kReadingTime);
    connect(&reading_, &QTimer::timeout, this, &SelectedStory::markRead);
}

void SelectedStory::setRow(int row) { select(list_.numberAt(row)); }

void SelectedStory::select(std::optional<std::int64_t> number) {
    if (number == reader_.number() && (number || row_ < 0)) return;
    reading_.stop();
    reader_.show(number);
    updateRow();
    emit rowChanged();
    if (number) reading_.start();
}

void SelectedStory::updateRow() {
    const auto number = reader_.number();
    const auto row = number ? list_.rowOf(*number).value_or(-1) : -1;
    if (row == row_) return;
    row_ = row;
    emit rowChanged();
}

void SelectedStory::open(const QString& storyID) {
    if (const auto* story = desk_.stories().find(storyID.toStdString())) select(story->number());
}

void SelectedStory::step(int by) {
    if (list_.count() == 0) return;
    const auto last = list_.count() - 1;
    setRow(row_ < 0 ? (by > 0 ? 0 : last) : std::clamp(row_ + by, 0, last));
}

bool SelectedStory::stepUnread(int direction) {
    const auto next = list_.unreadFrom(row_, direction);
    if (!next) return false;
    markRead();
    setRow(*next);
    return true;
}

void SelectedStory::markRead() {
    if (hasStory() && !reader_.isRead()) desk_.setRead({id()}, true);
}

}  // namespace app
