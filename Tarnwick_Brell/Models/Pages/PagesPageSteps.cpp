#include "Tarnwick_Brell/Models/Pages/PagesPageModel.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "NewsroomKit/Newsrooms/UUID.h"
#include "Tarnwick_Brell/Models/Pages/PagesPageRows.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"

namespace app {

namespace {

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
    if (std::ranges::find(pages_, *address, &kit::PageRow::address) != pages_.end()) {
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

void PagesPageModel::comparePart(int leftOutPlace) {
    const auto* page = chosen();
    const auto place = static_cast<std::size_t>(leftOutPlace);
    if (!page || leftOutPlace < 0 || place >= page->leftOut.size()) return;
    const auto set = [&news = news(), &trackers = trackers(), queue = queue_,
                      address = page->address, part = page->leftOut[place]](auto change) {
        return [&news, &trackers, queue, address, part, change] {
            changePages(news, trackers, queue,
                        [=](LocalStore& store) { change(store, address, part); });
        };
    };
    const auto compareIt = set(&app::comparePart);
    compareIt();
    stores().undo.push({.text = tr("Compare a part again"),
                        .undo = set(&app::leaveOutPart),
                        .redo = compareIt,
                        .notice = tr("The part counts again from the next look on.")});
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
