#include "Tarnwick_Brell/Models/Pages/PagesPageModel.h"

#include <algorithm>
#include <iterator>
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

/// Reads the revisions again, and compares two of them: the last two unless the user chose others.
void PagesPageModel::compare(int earlier, int later) {
    wanted_ = {earlier, later};
    const auto read = [library = stores().library, address = chosen()->address, earlier, later,
                       view = view_] {
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
        const auto before = numberAt(compared.earlier), after = numberAt(compared.later);
        compared.comparison = comparedRevisions(store, address, before, after);
        if (view == ChangesView::FullText)
            compared.whole = wholeRevision(store, address, before, after)
                                 .value_or(std::vector<kit::PageChangeRow>());
        return compared;
    };
    reading_.start(
        read, [this](const Compared& compared) { show(compared); },
        [this](const QString& sentence) {
            summary_ = sentence;
            emit changed();
        });
}

void PagesPageModel::show(Compared compared) {
    compared_ = std::move(compared);
    earlier_ = compared_.earlier;
    later_ = compared_.later;
    wanted_ = {earlier_, later_};
    showRevisions();
    showChanges();
    emit changed();
}

void PagesPageModel::showRevisions() {
    revisionNames_.clear();
    std::vector<RevisionPoint> points;
    const auto& revisions = compared_.revisions;
    for (const auto& revision : revisions) {
        revisionNames_ << tr("%1, %2").arg(momentText(revision.seenAt, now()),
                                           labelText(label(revision.kind)));
        const std::chrono::duration<double> since = revision.seenAt - revisions.back().seenAt;
        const std::chrono::duration<double> all =
            revisions.front().seenAt - revisions.back().seenAt;
        points.push_back({.at = all.count() > 0 ? since / all : 1,
                          .isReturn = revision.kind == kit::PageRevision::Kind::returned,
                          .name = revisionNames_.back()});
    }
    points_.setRows(std::move(points));
}

std::vector<PageChangeLine> PagesPageModel::changeLines() const {
    std::vector<PageChangeLine> lines;
    if (view_ == ChangesView::FullText) {
        addTextLines(lines, compared_.whole);
        return lines;
    }
    const auto add = [&](const std::vector<kit::PageChangeRow>& changes, const QString& group) {
        auto shown = kit::filteredChanges(changes, filter_);
        if (inPageOrder_) shown = kit::inPageOrder(std::move(shown));
        addChangeLines(lines, shown, group, view_);
    };
    const auto& comparison = *compared_.comparison;
    add(comparison.changes, {});
    add(comparison.small, tr("Small edits"));
    add(comparison.links, tr("Links that lead elsewhere"));
    return lines;
}

void PagesPageModel::showChanges() {
    std::vector<PageChangeLine> lines;
    if (compared_.comparison) {
        summary_ = titleText(kit::changeCountText(compared_.comparison->summary), kLongestPageName);
        lines = changeLines();
    } else {
        summary_ = compared_.revisions.empty() ? tr("The page has not been read yet.")
                                               : tr("It has not changed since the first look.");
    }
    const auto* page = chosen();
    if (page && view_ != ChangesView::FullText) addLeftOutLines(lines, page->leftOut);
    changes_.setRows(std::move(lines));
}

void PagesPageModel::setEarlier(int place) {
    if (place == earlier_ || place < 0 || place >= revisionNames_.size() || !chosen()) return;
    compare(place, later_);
}

void PagesPageModel::setLater(int place) {
    if (place == later_ || place < 0 || place >= revisionNames_.size() || !chosen()) return;
    compare(earlier_, place);
}

QStringList PagesPageModel::filters() const {
    QStringList names;
    for (const auto& row : kit::enumTable<kit::PageChangeFilter>) names << labelText(row.label);
    return names;
}

void PagesPageModel::setFilter(int filter) {
    if (filter < 0 || filter >= std::ssize(kit::enumTable<kit::PageChangeFilter>)) return;
    filter_ = static_cast<kit::PageChangeFilter>(filter);
    showChanges();
    emit changed();
}

void PagesPageModel::setInPageOrder(bool inPageOrder) {
    if (inPageOrder == inPageOrder_) return;
    inPageOrder_ = inPageOrder;
    showChanges();
    emit changed();
}

void PagesPageModel::setView(int view) {
    if (view == view_ || view < ChangesView::Changes || view > ChangesView::FullText) return;
    view_ = static_cast<ChangesView::Value>(view);
    if (view_ == ChangesView::FullText && chosen()) return compare(wanted_.first, wanted_.second);
    showChanges();
    emit changed();
}

}  // namespace app
