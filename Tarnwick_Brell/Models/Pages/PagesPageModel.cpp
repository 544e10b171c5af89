#include "Tarnwick_Brell/Models/Pages/PagesPageModel.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Newsrooms/UUID.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"

namespace app {

namespace {

constexpr int kLongestPageName = 120;
constexpr int kLongestChange = 2'000;
constexpr std::size_t kMostRevisions = 200;
// A redesign can change everything; the list is for reading.
constexpr std::size_t kMostShownChanges = 300;

QString stateText(const kit::PageRow& row) {
    if (!row.problem.empty()) return titleText(row.problem, kLongestPageName);
    if (row.state == kit::PageRow::State::changed && !row.change.empty())
        return titleText(row.change, kLongestPageName);
    return labelText(label(row.state));
}

FollowedPageLine pageLine(const kit::PageRow& row, kit::Instant now) {
    FollowedPageLine line{.name = titleText(row.name, kLongestPageName),
                          .address = titleText(row.address, kLongestPageName),
                          .when = row.changedAt ? ageText(*row.changedAt, now) : QString(),
                          .fact = stateText(row),
                          .isFailing = !row.problem.empty(),
                          .isNew = row.isNew};
    line.spokenText = spokenRow({line.isNew ? PagesPageModel::tr("New") : QString(), line.name,
                                 line.fact, line.when, line.address});
    return line;
}

void addChanges(std::vector<PageChangeLine>& lines, const std::vector<kit::PageChangeRow>& changes,
                const QString& group) {
    bool isFirst = true;
    for (const auto& change : changes) {
        if (lines.size() == kMostShownChanges) return;
        QStringList headings;
        for (const auto& heading : change.headings) headings << titleText(heading);
        PageChangeLine line{.group = isFirst ? group : QString(),
                            .headings = headings.join(QStringLiteral(" › ")),
                            .text = titleText(change.sentence, kLongestChange)};
        line.spokenText = spokenRow({line.group, line.text});
        lines.push_back(std::move(line));
        isFirst = false;
    }
}

/// The worker changes the library; then the desk reads it again and looks at what is due. Without a
/// page, as when a step is undone later, the timer does.
void changePages(NewsDesk& news, TrackerStore& trackers,
                 const std::shared_ptr<MainThreadQueue>& queue,
                 std::function<void(LocalStore&)> change) {
    news.worker().post(
        [&trackers, queue, change = std::move(change)](DeskWorker::WorkerContext& context) {
            auto transaction = context.store.transaction();
            change(context.store);
            transaction.commit();
            queue->send([&trackers] {
                trackers.load();
                trackers.refresh(Tracker::pages);
            });
        },
        [&trackers, queue](const std::exception& error) {
            queue->send([&trackers, sentence = titleText(error.what(), kExcerptCharacters)] {
                emit trackers.failed(sentence);
            });
        });
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
    followed_ = kit::pageRows(trackers().pages(), now());
    suggested_.assign(kit::kSuggestedPages.begin(), kit::kSuggestedPages.end());
    std::erase_if(suggested_, [&](const kit::SuggestedPage& page) {
        return std::ranges::find(followed_, page.address, &kit::PageRow::address) !=
               followed_.end();
    });
    std::vector<FollowedPageLine> lines;
    for (const auto& row : followed_) lines.push_back(pageLine(row, now()));
    for (const auto& page : suggested_) {
        FollowedPageLine line{.heading = &page == &suggested_.front() ? tr("Suggested") : QString(),
                              .name = titleText(page.name, kLongestPageName),
                              .address = titleText(page.address, kLongestPageName),
                              .isSuggested = true};
        line.spokenText = spokenRow({tr("Suggested"), line.name, line.address});
        lines.push_back(std::move(line));
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
    if (!page->leftOut.empty())
        facts << tr("%n parts that differ at each look are left out.", nullptr,
                    static_cast<int>(page->leftOut.size()));
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
        addChanges(lines, comparison.changes, {});
        addChanges(lines, comparison.small, tr("Small edits"));
        addChanges(lines, comparison.links, tr("Links that lead elsewhere"));
    } else {
        summary_ = compared.revisions.empty() ? tr("The page has not been read yet.")
                                              : tr("It has not changed since the first look.");
    }
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

void PagesPageModel::retry() { trackers().refresh(Tracker::pages); }

void PagesPageModel::openRow(int row) {
    setRow(row);
    const auto* line = rows_.row(row);
    if (line) openLink(line->address);
}

/// Follows a page or no longer does, as a step that can be undone.
void PagesPageModel::pushStep(const kit::FollowedPage& page, bool follows, const QString& step,
                              const QString& notice) {
    const auto set = [&news = news(), &trackers = trackers(), queue = queue_, page,
                      clock = stores().clock](bool isFollowed) {
        return [&news, &trackers, queue, page, clock, isFollowed] {
            changePages(news, trackers, queue, [page, isFollowed, now = clock()](auto& store) {
                if (isFollowed) {
                    followPage(store, page);
                } else {
                    unfollowPage(store, page.id, now);
                }
            });
        };
    };
    set(follows)();
    stores().undo.push(
        {.text = step, .undo = set(!follows), .redo = set(follows), .notice = notice});
}

void PagesPageModel::follow(const kit::FollowedPage& page) {
    chosenKey_ = page.address;
    pushStep(page, true, tr("Follow a page"),
             tr("%1 is followed.").arg(titleText(page.name, kLongestPageName)));
}

void PagesPageModel::addPage(const QString& text) {
    const auto address = pageAddressIn(text.trimmed().toStdString());
    if (!address) {
        emit noticed(tr("That is no address of a page: it begins with https://"));
        return;
    }
    if (std::ranges::find(followed_, *address, &kit::PageRow::address) != followed_.end()) {
        emit noticed(tr("The page is followed already."));
        return;
    }
    follow({.id = kit::UUID::random().text(),
            .address = *address,
            .name = pageNameFor(*address),
            .added = now()});
}

void PagesPageModel::followSuggested() {
    if (!isSuggested()) return;
    const auto& page = suggested_[suggestedPlace()];
    follow({.id = kit::UUID::random().text(),
            .address = std::string(page.address),
            .name = std::string(page.name),
            .added = now()});
}

void PagesPageModel::removePage() {
    if (!isFollowed()) return;
    const auto& statuses = trackers().pages();
    const auto found = std::ranges::find_if(
        statuses, [&](const kit::PageStatus& status) { return status.page.id == chosen()->id; });
    if (found == statuses.end()) return;
    pushStep(found->page, false, tr("Unfollow a page"),
             tr("%1 is no longer followed. What was seen of it stays.")
                 .arg(titleText(found->page.name, kLongestPageName)));
}

}  // namespace app
