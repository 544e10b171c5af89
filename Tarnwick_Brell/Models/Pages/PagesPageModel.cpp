#include "Tarnwick_Brell/Models/Pages/PagesPageModel.h"

#include <algorithm>
#include <utility>

#include "Tarnwick_Brell/Models/Pages/PagesPageRows.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"

namespace app {

namespace {

constexpr std::size_t kMostRevisions = 200;

}  // namespace

PagesPageModel::PagesPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Pages")), queue_(std::make_shared<MainThreadQueue>()) {
    connect(&trackers(), &TrackerStore::pagesChanged, this, &PagesPageModel::update);
    connect(&trackers(), &TrackerStore::refreshChanged, this, &PagesPageModel::update);
    update();
}

PagesPageModel::~PagesPageModel() { queue_->close(); }

void PagesPageModel::update() {
    followed_ = kit::pageRows(trackers().pages(), now());
    suggested_.assign(kit::kSuggestedPages.begin(), kit::kSuggestedPages.end());
    std::erase_if(suggested_, [&](const kit::SuggestedPage& page) {
        return std::ranges::find(followed_, page.address, &kit::PageRow::address) !=
               followed_.end();
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
    if (row_ >= 0) chosenKey_ = keyOf(static_cast<std::size_t>(row_));
    showChosen();
    setCondition({.state = trackers().isLoaded() ? Ready : Loading});
}

void PagesPageModel::setRow(int row) {
    if (row == row_ || row < 0 || row >= rows_.rowCount()) return;
    row_ = row;
    const auto* page = chosen();
    chosenKey_ = page ? page->address : std::string(suggested_[suggestedPlace()].address);
    earlier_ = later_ = -1;
    revisionNames_.clear();
    summary_.clear();
    changes_.setRows({});
    showChosen();
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
    compare(earlier_, later_);
}

/// Reads the revisions again, and compares two of them: the last two unless the user chose others.
void PagesPageModel::compare(int earlier, int later) {
    const auto read = [library = stores().library, address = chosen()->address, earlier, later] {
        LocalStore store(library, Database::Access::readOnly);
        Compared compared{.revisions = store.pages().revisions(address, kMostRevisions)};
        const auto count = static_cast<int>(compared.revisions.size());
        if (count < 2) return compared;
        const bool isChosen = earlier >= 0 && later >= 0 && earlier < count && later < count;
        compared.earlier = isChosen ? earlier : 1;
        compared.later = isChosen ? later : 0;
        const auto numberAt = [&](int place) {
            return compared.revisions[static_cast<std::size_t>(place)].number;
        };
        compared.comparison =
            comparedRevisions(store, address, numberAt(compared.earlier), numberAt(compared.later));
        return compared;
    };
    reading_.start(
        read, [this](const Compared& compared) { show(compared); },
        [this](const QString& sentence) {
            summary_ = sentence;
            emit changed();
        });
}

void PagesPageModel::show(const Compared& compared) {
    earlier_ = compared.earlier;
    later_ = compared.later;
    revisionNames_.clear();
    for (const auto& revision : compared.revisions) {
        revisionNames_ << tr("%1, %2").arg(momentText(revision.seenAt, now()),
                                           labelText(label(revision.kind)));
    }
    std::vector<PageChangeLine> lines;
    if (compared.comparison) {
        const auto& comparison = *compared.comparison;
        summary_ = titleText(kit::changeCountText(comparison.summary), kLongestPageName);
        addChangeLines(lines, comparison.changes, {});
        addChangeLines(lines, comparison.small, tr("Small edits"));
        addChangeLines(lines, comparison.links, tr("Links that lead elsewhere"));
    } else {
        summary_ = compared.revisions.empty() ? tr("The page has not been read yet.")
                                              : tr("It has not changed since the first look.");
    }
    if (const auto* page = chosen()) addLeftOutLines(lines, page->leftOut);
    changes_.setRows(std::move(lines));
    emit changed();
}

void PagesPageModel::setEarlier(int place) {
    if (place == earlier_ || place < 0 || place >= revisionNames_.size() || !chosen()) return;
    compare(place, later_);
}

void PagesPageModel::setLater(int place) {
    if (place == later_ || place < 0 || place >= revisionNames_.size() || !chosen()) return;
    compare(earlier_, place);
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
