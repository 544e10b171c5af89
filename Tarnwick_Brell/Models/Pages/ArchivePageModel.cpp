#include "Tarnwick_Brell/Models/Pages/ArchivePageModel.h"

#include <algorithm>
#include <chrono>

#include <QDateTime>
#include <QLocale>

#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Models/Stories/StoryCitation.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace {

using namespace std::chrono_literals;

// Arrow keys pass many days.
constexpr auto kAskPause = 250ms;
constexpr int kMonths = 6;
constexpr int kLevels = 4;

QDate localDate(kit::Instant then) {
    const auto time = std::chrono::floor<std::chrono::milliseconds>(then.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(time.count()).date();
}

/// Of a story of which only the day is known, that day in every zone.
QDate dateOfStory(const kit::ArchivedStory& story) {
    if (!story.isDayOnly()) return localDate(story.publishedAt);
    const auto time =
        std::chrono::floor<std::chrono::milliseconds>(story.publishedAt.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(time.count(), Qt::UTC).date();
}

QString storiesText(std::int64_t count) {
    return ArchivePageModel::tr("%n stories", nullptr, static_cast<int>(count));
}

}  // namespace

ArchivePageModel::ArchivePageModel(const DeskStores& stores)
    : PageModel(stores, tr("Stories by period")),
      requests_(stores.news.worker(), stores.defaults.serviceAddress()),
      day_(today()) {
    soon_.setSingleShot(true);
    soon_.setInterval(kAskPause);
    connect(&soon_, &QTimer::timeout, this, [this] { ask(0); });
    connect(&news(), &NewsDesk::wireChanged, this, &ArchivePageModel::rebuild);
    retry();
}

QDate ArchivePageModel::today() const { return localDate(now()); }

CalendarPeriod ArchivePageModel::period() const {
    return CalendarPeriod::around(day_, static_cast<CalendarPeriod::Length>(length_));
}

void ArchivePageModel::retry() {
    requests_.status([this](const auto& result) { showStatus(result); });
    ask(0);
}

void ArchivePageModel::goTo(QDate day) {
    day = std::min(day, today());
    if (day == day_) return;
    const bool isOther =
        CalendarPeriod::around(day, static_cast<CalendarPeriod::Length>(length_)) != period();
    day_ = day;
    if (isOther) {
        stories_.clear();
        isAsking_ = true;
        soon_.start();
    }
    rebuild();
}

void ArchivePageModel::moveDays(int days) { goTo(day_.addDays(days)); }
void ArchivePageModel::moveMonths(int months) { goTo(day_.addMonths(months)); }
void ArchivePageModel::goToToday() { goTo(today()); }

void ArchivePageModel::movePeriods(int periods) {
    if (length_ == CalendarPeriod::Month) return moveMonths(periods);
    moveDays(length_ == CalendarPeriod::Week ? 7 * periods : periods);
}

QDate ArchivePageModel::dayAt(int month, int day) const {
    const QDate newest(day_.year(), day_.month(), 1);
    // The last month shown is that of today, or the chosen one where that is earlier by more.
    const QDate current(today().year(), today().month(), 1);
    const int behind = (current.year() - newest.year()) * 12 + current.month() - newest.month();
    const auto last = current.addMonths(-(behind / kMonths) * kMonths);
    return last.addMonths(month - kMonths + 1).addDays(day);
}

void ArchivePageModel::chooseDay(int month, int day) { goTo(dayAt(month, day)); }

QString ArchivePageModel::dayText(int month, int day) const {
    const auto date = dayAt(month, day);
    const auto name = QLocale().toString(date, QStringLiteral("d MMMM yyyy"));
    const auto count = counts_.find(date);
    return count == counts_.end() ? tr("%1, not asked yet").arg(name)
                                  : tr("%1, %2").arg(name, storiesText(count->second));
}

void ArchivePageModel::setLength(int length) {
    if (length_ == length) return;
    length_ = length;
    stories_.clear();
    ask(0);
}

void ArchivePageModel::ask(std::int64_t offset) {
    soon_.stop();
    isAsking_ = true;
    failure_.clear();
    rebuild();
    requests_.stories(period().instants(), offset,
                      [this, offset](const Result& result) { show(result, offset); });
}

void ArchivePageModel::loadMore() {
    const auto known = std::ssize(stories_);
    if (!isAsking_ && known > 0 && known < total_) ask(known);
}

void ArchivePageModel::show(const Result& result, std::int64_t offset) {
    isAsking_ = false;
    if (!result.value) {
        failure_ = bodyText(result.failure);
    } else {
        if (offset == 0) stories_.clear();
        const auto& items = result.value->items;
        stories_.insert(stories_.end(), items.begin(), items.end());
        // A service that gives nothing more has no more, whatever it counts.
        total_ = items.empty() ? std::ssize(stories_) : result.value->total.value;
        answeredAt_ = now();
        countDays();
    }
    rebuild();
}

void ArchivePageModel::countDays() {
    if (std::ssize(stories_) < total_ && length_ != CalendarPeriod::Day) return;
    const auto chosen = period();
    for (auto day = chosen.first; day <= std::min(chosen.last, today()); day = day.addDays(1))
        counts_[day] = 0;
    for (const auto& story : stories_) {
        if (const auto count = counts_.find(dateOfStory(story)); count != counts_.end())
            ++count->second;
    }
    if (length_ == CalendarPeriod::Day) counts_[day_] = total_;
}

void ArchivePageModel::showStatus(const ArchiveRequests::Result<kit::ArchiveStatus>& result) {
    if (!result.value) {
        coverageText_ = bodyText(result.failure);
        emit changed();
        return;
    }
    std::vector<ArchiveSourceRow> rows;
    for (const auto& source : kit::archiveCoverage(*result.value)) {
        // Rounded down: only a complete source has 100 %.
        const auto percent = static_cast<int>(source.share * 100);
        rows.push_back(
            {.name = titleText(source.name),
             .share = source.share,
             .shareText = tr("%1 %").arg(percent),
             .figures = tr("%1 of %2 stories known to exist")
                            .arg(QLocale().toString(static_cast<qlonglong>(source.stored)),
                                 QLocale().toString(static_cast<qlonglong>(source.listed)))});
    }
    coverageText_ = rows.empty() ? tr("The service does not say how complete it is.")
                                 : tr("Stories kept, of those that the service knows to exist.");
    sources_.setRows(std::move(rows));
    emit changed();
}

QString ArchivePageModel::countText() const {
    return isAsking_ && stories_.empty() ? QString() : storiesText(total_);
}

void ArchivePageModel::rebuild() {
    std::vector<ArchiveStoryRow> rows;
    for (const auto& story : stories_) {
        const auto date = dateOfStory(story);
        const auto day = QLocale().toString(date, QStringLiteral("d MMM"));
        ArchiveStoryRow row{.source = titleText(story.sourceName),
                            .title = titleText(story.title, kTitleCharacters),
                            .link = openableLink(story.url)};
        row.time = story.isDayOnly()                ? day
                   : length_ == CalendarPeriod::Day ? clockText(story.publishedAt)
                                                    : day + u' ' + clockText(story.publishedAt);
        const auto* known = news().stories().find(kit::storyID(kit::canonicalLink(story.url)));
        if (known) row.storyID = plainText(known->id());
        row.isInLibrary = known != nullptr;
        row.spokenText = QStringList{row.title, row.source, row.time}.join(QStringLiteral(", "));
        if (row.isInLibrary) row.spokenText = tr("%1, in the library").arg(row.spokenText);
        rows.push_back(std::move(row));
    }
    rows_.setRows(std::move(rows));
    std::vector<ArchiveMonthRow> months;
    std::int64_t most = 1;
    for (const auto& [day, count] : counts_) most = std::max(most, count);
    const auto chosen = period();
    for (int month = 0; month < kMonths; ++month) {
        const auto first = dayAt(month, 0);
        ArchiveMonthRow row{.title = QLocale().toString(first, QStringLiteral("MMM yyyy")),
                            .offset = (first.dayOfWeek() - QLocale().firstDayOfWeek() + 7) % 7};
        for (int day = 0; day < first.daysInMonth(); ++day) {
            const auto date = first.addDays(day);
            const auto count = counts_.find(date);
            const auto level = count == counts_.end() || count->second == 0
                                   ? 0
                                   : 1 + (count->second - 1) * kLevels / most;
            row.levels << (date > today() ? -1 : static_cast<int>(level));
            if (date < chosen.first || date > chosen.last) continue;
            if (row.firstChosen < 0) row.firstChosen = day;
            row.lastChosen = day;
        }
        months.push_back(std::move(row));
    }
    months_.setRows(std::move(months));
    // The page shows its own states beside the calendar, which always works.
    setCondition(
        {.state = Ready,
         .fact = answeredAt_ ? tr("Archive answered %1").arg(clockText(*answeredAt_)) : QString()});
}

void ArchivePageModel::openRow(int row) {
    const auto* found = rows_.row(row);
    if (!found) return;
    if (found->isInLibrary) {
        openStory(found->storyID);
    } else if (!found->link.isEmpty()) {
        openLink(found->link);
    }
}

QVariantMap ArchivePageModel::dragData(const QString& story) const {
    const auto found = std::ranges::find(stories_, story.toStdString(), &kit::ArchivedStory::url);
    if (found == stories_.end()) return PanelModel::dragData(story);
    return dragDataOf({.link = found->url,
                       .title = found->title,
                       .publishedAt = found->publishedAt,
                       .sourceName = found->sourceName});
}

}  // namespace app
