#include "Tarnwick_Brell/Models/Pages/PagesPageModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <QLocale>

#include "Tarnwick_Brell/Models/Pages/PagesPageRows.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"

namespace app {

namespace {

/// "Changed 2"
QString countedSubset(const std::vector<kit::PageRow>& pages,
                      const kit::EnumRow<kit::PageSubset>& subset) {
    const auto count = std::ranges::count_if(
        pages, [&](const kit::PageRow& page) { return kit::isIn(subset.value, page); });
    return QStringLiteral("%1 %2").arg(labelText(subset.label), QLocale().toString(count));
}

}  // namespace

PagesPageModel::PagesPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Pages")), queue_(std::make_shared<MainThreadQueue>()) {
    connect(&trackers(), &TrackerStore::pagesChanged, this, &PagesPageModel::update);
    connect(&trackers(), &TrackerStore::refreshChanged, this, &PagesPageModel::update);
    update();
}

PagesPageModel::~PagesPageModel() { queue_->close(); }

void PagesPageModel::update() {
    pages_ = kit::pageRows(trackers().pages(), now());
    subsetNames_.clear();
    for (const auto& row : kit::enumTable<kit::PageSubset>)
        subsetNames_ << countedSubset(pages_, row);
    followed_ = kit::filteredPages(pages_, subset_, words_.toStdString());
    suggested_.assign(kit::kSuggestedPages.begin(), kit::kSuggestedPages.end());
    const bool isFiltered = subset_ != kit::PageSubset::all || !words_.trimmed().isEmpty();
    std::erase_if(suggested_, [&](const kit::SuggestedPage& page) {
        return isFiltered ||
               std::ranges::find(pages_, page.address, &kit::PageRow::address) != pages_.end();
    });
    std::vector<FollowedPageLine> lines;
    for (const auto& row : followed_) lines.push_back(followedPageLine(row, now()));
    for (const auto& page : suggested_) {
        lines.push_back(suggestedPageLine(page));
        if (&page == &suggested_.front()) lines.back().heading = tr("Suggested");
    }
    rows_.setRows(std::move(lines));
    const auto keyOf = [&](std::size_t place) {
        return place < followed_.size() ? followed_[place].address
                                        : std::string(suggested_[place - followed_.size()].address);
    };
    row_ = rows_.rowCount() > 0 ? 0 : -1;
    for (std::size_t place = 0; place < rows_.rows().size(); ++place) {
        if (keyOf(place) == chosenKey_) row_ = static_cast<int>(place);
    }
    const auto key = row_ >= 0 ? keyOf(static_cast<std::size_t>(row_)) : std::string();
    if (key != chosenKey_) forgetComparison();
    chosenKey_ = key;
    showChosen();
    setCondition({.state = trackers().isLoaded() ? Ready : Loading});
}

void PagesPageModel::setRow(int row) {
    if (row == row_ || row < 0 || row >= rows_.rowCount()) return;
    row_ = row;
    const auto* page = chosen();
    chosenKey_ = page ? page->address : std::string(suggested_[suggestedPlace()].address);
    forgetComparison();
    showChosen();
    emit changed();
}

void PagesPageModel::forgetComparison() {
    earlier_ = later_ = -1;
    wanted_ = {-1, -1};
    revisionNames_.clear();
    summary_.clear();
    compared_ = {};
    points_.setRows({});
    changes_.setRows({});
}

void PagesPageModel::setSubset(int subset) {
    if (subset < 0 || subset >= std::ssize(kit::enumTable<kit::PageSubset>)) return;
    subset_ = static_cast<kit::PageSubset>(subset);
    update();
    emit changed();
}

void PagesPageModel::setWords(const QString& words) {
    if (words == words_) return;
    words_ = words;
    update();
    emit changed();
}

const kit::PageRow* PagesPageModel::chosen() const {
    const auto place = static_cast<std::size_t>(row_);
    return row_ >= 0 && place < followed_.size() ? &followed_[place] : nullptr;
}

std::size_t PagesPageModel::suggestedPlace() const {
    return static_cast<std::size_t>(row_) - followed_.size();
}

QString PagesPageModel::chosenName() const {
    const auto* line = rows_.row(row_);
    return line ? line->name : QString();
}

QString PagesPageModel::chosenAddress() const {
    const auto* line = rows_.row(row_);
    return line ? line->address : QString();
}

bool PagesPageModel::isFollowed() const {
    const auto* page = chosen();
    return page && !page->id.empty();
}

bool PagesPageModel::isSuggested() const { return row_ >= 0 && !chosen(); }

void PagesPageModel::showChosen() {
    chosenFact_.clear();
    problem_.clear();
    const auto* page = chosen();
    if (!page) return;
    QStringList facts;
    if (page->changedAt && page->unchangedAt) {
        facts << tr("Noticed %1, last seen unchanged %2.")
                     .arg(momentText(*page->changedAt, now()),
                          momentText(*page->unchangedAt, now()));
    }
    if (page->lookedAt) facts << tr("Looked at %1.").arg(momentText(*page->lookedAt, now()));
    if (page->nextLook && *page->nextLook > now())
        facts << tr("Next look %1.").arg(agoText(*page->nextLook, now()));
    chosenFact_ = facts.join(u' ');
    problem_ = titleText(page->problem, kExcerptCharacters);
    compare(wanted_.first, wanted_.second);
}

std::pair<int, int> PagesPageModel::placesAfter(Action action) const {
    const bool areNeighbours = earlier_ == later_ + 1;
    switch (action) {
        // The two stay neighbours, so that each change can be read in turn.
        case DeskAction::ShowEarlierText:
            return {areNeighbours ? earlier_ + 1 : earlier_, later_ + 1};
        case DeskAction::ShowLaterText: return {areNeighbours ? later_ : earlier_, later_ - 1};
        case DeskAction::CompareWithEarlierText: return {earlier_ + 1, later_};
        case DeskAction::CompareWithLaterText: return {earlier_ - 1, later_};
        default: return {-1, -1};
    }
}

bool PagesPageModel::offers(Action action) const {
    const auto [earlier, later] = placesAfter(action);
    return chosen() && later_ >= 0 && later >= 0 && earlier > later &&
           earlier < revisionNames_.size();
}

void PagesPageModel::perform(Action action) {
    if (!offers(action)) return;
    const auto [earlier, later] = placesAfter(action);
    compare(earlier, later);
}

void PagesPageModel::retry() { trackers().refresh(Tracker::pages); }

void PagesPageModel::openRow(int row) {
    setRow(row);
    const auto* line = rows_.row(row);
    if (line) openLink(line->address);
}

}  // namespace app
