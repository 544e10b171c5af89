#include "Tarnwick_Brell/Models/Sidebar/SidebarModel.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <QCoreApplication>
#include <QLocale>
#include <QPointer>

#include "NewsroomKit/Newsrooms/NewsroomSymbols.h"
#include "NewsroomKit/Panels/PagesContent.h"
#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Desk/SourceOverview.h"
#include "Tarnwick_Brell/Models/Library/KeptLine.h"
#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Models/Sidebar/TrackerPages.h"
#include "Tarnwick_Brell/Models/Stories/StoryCitation.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using namespace std::chrono_literals;
using Category = kit::NewsSource::Category;
using Kind = Destination::Kind;

constexpr auto kRebuildPause = 60ms;

QString countText(int count) { return count > 0 ? QLocale().toString(count) : QString(); }

QString groupKey(Category category) {
    return QStringLiteral("category:") + plainText(rawValue(category));
}

int problemsIn(const kit::CachedValue<TrackerStore::Services>& reading) {
    if (!reading.value) return 0;
    return static_cast<int>(kit::AppleServiceStatus::ongoingReports(*reading.value).size());
}

SidebarRow section(const QString& title) {
    return {.kind = SidebarKind::Section, .title = title, .spokenText = title};
}

SidebarRow itemRow(const Destination& place, const QString& title, QString symbol, int count = 0,
                   const QString& spokenCount = {}) {
    return {.key = place.key(),
            .title = title,
            .symbol = std::move(symbol),
            .count = countText(count),
            .spokenText = count > 0 ? title + QStringLiteral(", ") + spokenCount : title};
}

void addArchive(std::vector<SidebarRow>& rows) {
    rows.push_back(section(SidebarModel::tr("Archive")));
    rows.push_back(itemRow({Kind::page, QStringLiteral("archive")},
                           SidebarModel::tr("Stories by period"), QStringLiteral("clock")));
    rows.push_back(itemRow({Kind::page, QStringLiteral("timeline")}, SidebarModel::tr("Timelines"),
                           QStringLiteral("chart.bar.xaxis")));
    rows.push_back(itemRow({Kind::page, QStringLiteral("races")}, SidebarModel::tr("Races"),
                           QStringLiteral("flag.pattern.checkered")));
    rows.push_back(itemRow({Kind::page, QStringLiteral("ledger")}, SidebarModel::tr("Rumor ledger"),
                           QStringLiteral("checklist")));
    rows.push_back(itemRow({Kind::page, QStringLiteral("corrections")},
                           SidebarModel::tr("Corrections"), QStringLiteral("checkmark.seal")));
}

QString markName(SourceMark::Value mark) {
    switch (mark) {
        case SourceMark::None: return {};
        case SourceMark::Fresh: return SidebarModel::tr("fresh");
        case SourceMark::Unchanged: return SidebarModel::tr("unchanged");
        case SourceMark::Failing: return SidebarModel::tr("failing");
        case SourceMark::Never: return SidebarModel::tr("never fetched");
        case SourceMark::Off: return SidebarModel::tr("switched off");
    }
    return {};
}

}  // namespace

SidebarModel::SidebarModel(const DeskStores& stores, QObject* parent)
    : QObject(parent),
      desk_(stores.news),
      newsrooms_(stores.newsrooms),
      trackers_(stores.trackers),
      alerts_(stores.alerts),
      library_(stores.kept),
      clock_(stores.clock),
      tally_(stores.news, stores.newsrooms) {
    soon_.setSingleShot(true);
    soon_.setInterval(kRebuildPause);
    connect(&soon_, &QTimer::timeout, this, &SidebarModel::rebuild);
    const auto later = [this] { rebuildSoon(); };
    connect(&desk_, &NewsDesk::sourcesChanged, this, later);
    connect(&desk_, &NewsDesk::marksChanged, this, later);
    connect(&desk_, &NewsDesk::passEnded, this, later);
    connect(&newsrooms_, &NewsroomStore::newsroomsChanged, this, later);
    connect(&newsrooms_, &NewsroomStore::beatsChanged, this, later);
    connect(&trackers_, &TrackerStore::statusChanged, this, later);
    connect(&trackers_, &TrackerStore::logChanged, this, later);
    connect(&trackers_, &TrackerStore::pagesChanged, this, later);
    connect(&alerts_, &AlertStore::logChanged, this, later);
    connect(&tally_, &UnreadCounts::changed, this, later);
    connect(&library_, &LibraryStore::changed, this, &SidebarModel::countKept);
    countKept();
    rebuild();
}

void SidebarModel::rebuildSoon() {
    if (!soon_.isActive()) soon_.start();
}

void SidebarModel::rebuild() {
    std::vector<SidebarRow> rows;
    addNewsrooms(rows);
    addWire(rows);
    addLibrary(rows);
    addBeats(rows);
    addSources(rows);
    addTrackers(rows);
    addArchive(rows);
    for (auto& row : rows) row.isCurrent = !row.key.isEmpty() && row.key == current_;
    rows_.setRows(std::move(rows));
    foot_ = footText();
    emit changed();
}

void SidebarModel::addNewsrooms(std::vector<SidebarRow>& rows) const {
    rows.push_back(section(tr("Newsrooms")));
    for (const auto& entry : newsrooms_.newsrooms().entries()) {
        const auto symbol = entry.value ? plainText(entry.value->symbol)
                                        : QStringLiteral("exclamationmark.triangle");
        rows.push_back(
            itemRow({Kind::newsroom, plainText(entry.id)}, titleText(entry.name), symbol));
        rows.back().isNewsroom = true;
    }
}

void SidebarModel::addWire(std::vector<SidebarRow>& rows) const {
    rows.push_back(section(tr("Wire")));
    const auto add = [&rows](Kind kind, const QString& title, const QString& symbol, int stories) {
        rows.push_back(
            itemRow({kind, {}}, title, symbol, stories, tr("%n stories", nullptr, stories)));
    };
    add(Kind::all, tr("All"), QStringLiteral("tray"), tally_.stories());
    add(Kind::unread, tr("Unread"), QStringLiteral("circle.inset.filled"), tally_.unread());
    rows.push_back(itemRow({Kind::topStories, {}}, tr("Top stories"), QStringLiteral("flame")));
    const auto unseen = static_cast<int>(trackers_.log().unseen + alerts_.log().untold);
    rows.push_back(itemRow({Kind::page, QStringLiteral("activity")}, tr("Activity"),
                           QStringLiteral("list.bullet"), unseen, tr("%n new", nullptr, unseen)));
}

void SidebarModel::addLibrary(std::vector<SidebarRow>& rows) const {
    rows.push_back(section(tr("Library")));
    const int saved = tally_.saved();
    rows.push_back(itemRow({Kind::saved, {}}, tr("Saved"), QStringLiteral("bookmark"), saved,
                           tr("%n stories", nullptr, saved)));
    const auto add = [&rows](LibraryPlace::Page page, const QString& title, SearchScope scope,
                             std::size_t count, const QString& spoken) {
        rows.push_back(itemRow(LibraryPlace{page, {}}.destination(), title, symbolOf(scope),
                               static_cast<int>(count), spoken));
        rows.back().takesStories = page != LibraryPlace::Page::notes;
    };
    rows.back().takesStories = true;
    using Page = LibraryPlace::Page;
    const auto spoken = [](std::size_t count) { return QLocale().toString(count); };
    add(Page::clips, tr("Clips"), SearchScope::clips, kept_.clips, spoken(kept_.clips));
    add(Page::notes, tr("Notes"), SearchScope::notes, kept_.notes, spoken(kept_.notes));
    add(Page::projects, tr("Projects"), SearchScope::projects, kept_.projects,
        spoken(kept_.projects));
    rows.push_back(itemRow(LibraryPlace{Page::removed, {}}.destination(), tr("Removed"),
                           QStringLiteral("trash")));
}

void SidebarModel::countKept() {
    const QPointer<SidebarModel> self(this);
    library_.count([self](LibraryStore::Counts counts) {
        if (!self || self->kept_ == counts) return;
        self->kept_ = counts;
        self->rebuildSoon();
    });
}

void SidebarModel::addBeats(std::vector<SidebarRow>& rows) const {
    if (newsrooms_.beats().entries().empty()) return;
    rows.push_back(section(tr("Beats")));
    for (const auto& entry : newsrooms_.beats().entries()) {
        const bool isPlain = entry.value && entry.value->symbol == kit::NewsroomSymbols::fallback;
        const auto symbol = !entry.value ? QStringLiteral("exclamationmark.triangle")
                            : isPlain    ? QStringLiteral("number")
                                         : plainText(entry.value->symbol);
        const auto unread = tally_.ofBeat(entry.id);
        rows.push_back(itemRow({Kind::beat, plainText(entry.id)}, titleText(entry.name), symbol,
                               unread, tr("%n unread", nullptr, unread)));
        rows.back().isBeat = true;
    }
}

void SidebarModel::addSources(std::vector<SidebarRow>& rows) const {
    auto sources = section(tr("Sources"));
    sources.key = Destination{Kind::page, QStringLiteral("sources")}.key();
    rows.push_back(std::move(sources));
    for (const auto& category : kit::enumTable<Category>) {
        std::vector<SidebarRow> members;
        int unread = 0;
        for (const auto& source : desk_.sources()) {
            const bool isOn = desk_.enabledSourceIDs().contains(source.id);
            if (source.category != category.value || !isOn) continue;
            unread += tally_.ofSource(source.id);
            members.push_back(sourceRow(source));
        }
        if (members.empty()) continue;
        const auto key = groupKey(category.value);
        const bool isOpen = !closed_.contains(key);
        const auto title = QCoreApplication::translate("SidebarModel", category.label.data());
        rows.push_back({.kind = SidebarKind::Group,
                        .key = key,
                        .title = title,
                        .count = countText(unread),
                        .isExpanded = isOpen,
                        .spokenText = tr("%1, %n unread", nullptr, unread).arg(title)});
        if (isOpen) std::move(members.begin(), members.end(), std::back_inserter(rows));
    }
}

SidebarRow SidebarModel::sourceRow(const kit::NewsSource& source) const {
    const auto unread = tally_.ofSource(source.id);
    const auto mark = markOf(source.id);
    const auto name = titleText(source.name);
    auto spoken = tr("%1, %2").arg(name, markName(mark));
    if (unread > 0) spoken = tr("%1, %n unread", nullptr, unread).arg(spoken);
    return {.kind = SidebarKind::Source,
            .key = Destination{Kind::source, plainText(source.id)}.key(),
            .title = name,
            .count = countText(unread),
            .mark = mark,
            .spokenText = spoken,
            .hint = hintOf(source.id)};
}

/// Why the source fails, or why it has fewer stories than its feed.
QString SidebarModel::hintOf(const std::string& id) const {
    const auto& status = desk_.sourceStatus(id);
    if (status.lastError) return bodyText(*status.lastError, 200);
    const auto more = static_cast<int>(desk_.sourceHealth(id).collapsed);
    if (more == 0) return {};
    if (status.storyCount == 1) return tr("1 story, %n more share its link", nullptr, more);
    return tr("%1, %n more share a link with one of them", nullptr, more)
        .arg(tr("%n stories", nullptr, static_cast<int>(status.storyCount)));
}

SourceMark::Value SidebarModel::markOf(const std::string& id) const {
    switch (stateOf(desk_.sourceStatus(id), desk_.sourceHealth(id))) {
        case SourceState::fresh: return SourceMark::Fresh;
        case SourceState::unchanged: return SourceMark::Unchanged;
        case SourceState::failing: return SourceMark::Failing;
        case SourceState::never: return SourceMark::Never;
    }
    return SourceMark::Never;
}

void SidebarModel::addTrackers(std::vector<SidebarRow>& rows) const {
    rows.push_back(section(tr("Trackers")));
    for (const auto& tracker : trackerPages()) {
        int count = 0;
        QString spoken;
        if (tracker.id == "status") {
            count =
                problemsIn(trackers_.consumerStatus()) + problemsIn(trackers_.developerStatus());
            spoken = tr("%n problems", nullptr, count);
        } else if (tracker.id == "pages") {
            count = changedPages();
            spoken = tr("%n new", nullptr, count);
        }
        rows.push_back(itemRow({Kind::tracker, plainText(tracker.id)}, titleOf(tracker),
                               plainText(tracker.symbol), count, spoken));
    }
}

int SidebarModel::changedPages() const {
    const auto pages = kit::pageRows(trackers_.pages(), clock_());
    return static_cast<int>(std::ranges::count_if(pages, &kit::PageRow::isNew));
}

QString SidebarModel::footText() const {
    int on = 0, failing = 0;
    for (const auto& id : desk_.enabledSourceIDs()) {
        ++on;
        if (desk_.sourceStatus(id).lastError) ++failing;
    }
    if (desk_.clockSeemsWrong()) return tr("The clock seems wrong");
    const auto sources = tr("%n sources", nullptr, on);
    return failing > 0 ? tr("%1, %n failing", nullptr, failing).arg(sources) : sources;
}

std::vector<SidebarModel::NamedDestination> SidebarModel::destinations() const {
    std::vector<SidebarRow> rows;
    addNewsrooms(rows);
    addWire(rows);
    addLibrary(rows);
    addBeats(rows);
    for (const auto& source : desk_.sources()) {
        if (desk_.enabledSourceIDs().contains(source.id)) rows.push_back(sourceRow(source));
    }
    addTrackers(rows);
    addArchive(rows);
    std::vector<NamedDestination> destinations;
    for (const auto& row : rows) {
        if (const auto place = Destination::fromKey(row.key)) {
            const auto symbol = row.kind == SidebarKind::Source
                                    ? QStringLiteral("dot.radiowaves.left.and.right")
                                    : row.symbol;
            destinations.push_back({*place, row.title, symbol});
        }
    }
    return destinations;
}

QString SidebarModel::storyKind() const { return QString::fromLatin1(kStoryMimeType); }

int SidebarModel::currentRow() const {
    const auto& rows = rows_.rows();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [](auto& each) { return each.isCurrent; });
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
}

void SidebarModel::setCurrent(const QString& key) {
    current_ = key;
    rebuild();
}

std::optional<Destination> SidebarModel::neighbour(int step) const {
    const auto& rows = rows_.rows();
    for (int row = currentRow() + step; row >= 0 && row < std::ssize(rows); row += step) {
        if (const auto place = Destination::fromKey(rows[static_cast<std::size_t>(row)].key))
            return place;
    }
    return std::nullopt;
}

std::optional<Destination> SidebarModel::item(int n) const {
    for (const auto& row : rows_.rows()) {
        if (row.kind != SidebarKind::Item) continue;
        if (--n == 0) return Destination::fromKey(row.key);
    }
    return std::nullopt;
}

void SidebarModel::activate(const QString& key) {
    const auto& rows = rows_.rows();
    const auto row =
        std::find_if(rows.begin(), rows.end(), [&](auto& each) { return each.key == key; });
    if (row == rows.end()) return;
    if (row->kind == SidebarKind::Group) {
        setExpanded(key, !row->isExpanded);
    } else {
        emit placeWanted(key);
    }
}

void SidebarModel::setExpanded(const QString& key, bool expanded) {
    if (expanded != closed_.contains(key)) return;
    if (expanded) {
        closed_.removeAll(key);
    } else {
        closed_.push_back(key);
    }
    emit groupToggled(key, !expanded);
    rebuild();
}

QStringList SidebarModel::groupsClosedAtFirst() {
    QStringList keys;
    for (const auto& category : kit::enumTable<Category>) {
        const bool isOpen = category.value == Category::press || category.value == Category::custom;
        if (!isOpen) keys.push_back(groupKey(category.value));
    }
    return keys;
}

void SidebarModel::setClosedGroups(const QStringList& keys) {
    closed_ = keys;
    rebuild();
}

}  // namespace app
