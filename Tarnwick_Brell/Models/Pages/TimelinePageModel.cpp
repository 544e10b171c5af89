#include "Tarnwick_Brell/Models/Pages/TimelinePageModel.h"

#include <algorithm>
#include <chrono>

#include <QDate>
#include <QRegularExpression>

#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Models/Files/SavedFile.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimelineText.h"

namespace app {

namespace {

using namespace std::chrono_literals;
namespace json = boost::json;

constexpr auto kTypingPause = 350ms;
// More than anybody reads.
constexpr std::size_t kMostLogged = 500;

QString fileNameOf(const QString& subject) {
    static const QRegularExpression others(QStringLiteral("[^A-Za-z0-9]+"));
    const auto words =
        QString(subject).replace(others, QStringLiteral(" ")).simplified().left(60).trimmed();
    return words.isEmpty() ? QStringLiteral("Timeline") : QStringLiteral("Timeline ") + words;
}

json::object timelineRecord(const kit::TimelinePage& content, const QString& subject) {
    std::vector<kit::TimelineStage> stages;
    for (const auto& step : content.steps) stages.push_back(step.row.stage);
    std::vector<kit::LedgerClaim> claims;
    for (const auto& claim : content.claims) claims.push_back(claim.claim);
    return {{"subject", subject.toStdString()},
            {"stages", kit::encode(stages)},
            {"claims", kit::encode(claims)},
            {"signals", kit::encode(content.releases)}};
}

}  // namespace

TimelinePageModel::TimelinePageModel(const DeskStores& stores, const TimelineSubject& subject)
    : PageModel(stores, tr("Timeline")),
      collector_(std::make_shared<PanelStoryCollector>(news(), stores.clock)),
      log_(stores.library) {
    connect(&log_, &LogLoader::loaded, this, [this](const LogPage& page) {
        auto found = kit::loggedSignals(page.found, logQuery_);
        if (found == logged_) return;
        logged_ = std::move(found);
        read();
    });
    connect(&trackers(), &TrackerStore::logChanged, this, [this] {
        hasLogGrown_ = true;
        readLog();
    });
    typed_.setSingleShot(true);
    typed_.setInterval(kTypingPause);
    connect(&typed_, &QTimer::timeout, this,
            [this] { setSubject(TimelineSubject::ofWords(words_)); });
    connect(&news(), &NewsDesk::loadFailed, this, [this](const QString& sentence) {
        setCondition({.state = Failed, .message = sentence});
    });
    connect(&news(), &NewsDesk::loaded, this, &TimelinePageModel::follow);
    connect(&news(), &NewsDesk::clustersChanged, this, &TimelinePageModel::readNews);
    connect(&trackers(), &TrackerStore::releasesChanged, this, &TimelinePageModel::read);
    connect(&this->stores().newsrooms, &NewsroomStore::beatsChanged, this,
            &TimelinePageModel::follow);
    setSubject(subject);
}

TimelinePageModel::~TimelinePageModel() { unfollow(); }

void TimelinePageModel::setSubject(const TimelineSubject& subject) {
    typed_.stop();
    subject_ = subject;
    isWide_ = false;
    if (subject.kind == TimelineSubject::Kind::words) {
        // As it was typed, when it was.
        if (TimelineSubject::ofWords(words_) != subject) words_ = subject.name(stores());
    } else if (subject.kind != TimelineSubject::Kind::none) {
        words_.clear();
    }
    follow();
}

void TimelinePageModel::unfollow() {
    if (subscription_) collector_->remove(*subscription_);
    subscription_.reset();
}

/// One piece of news is read from the wire at once; all else takes a scan of it.
void TimelinePageModel::follow() {
    unfollow();
    content_.reset();
    query_ = subject_.query(stores());
    readLog();
    const bool needsScan =
        isWide_ || (!isNews() && subject_.kind != TimelineSubject::Kind::none && !query_.isEmpty());
    if (needsScan) {
        setCondition({.state = Loading});
        subscription_ =
            collector_->add({.query = query_,
                             .earliest = [] { return kit::Instant::min(); },
                             .build =
                                 [this, changes = changes()](const QueryResult& result) {
                                     return [this, content = kit::timelinePage(
                                                       result.news, changes)] { show(content); };
                                 }});
    } else if (isNews() && news().isLoaded()) {
        readNews();
    } else if (!news().isLoaded()) {
        setCondition({.state = Loading});
    } else {
        setCondition({.state = Empty,
                      .message = tr("Choose a subject."),
                      .hint = tr("Type its words above, choose a beat, or press Shift+T on a "
                                 "story.")});
    }
}

/// Off the main thread; what was read of another subject is dropped.
void TimelinePageModel::readLog() {
    if (query_ == logQuery_ && !hasLogGrown_) return;
    if (query_ != logQuery_) logged_.clear();
    logQuery_ = query_;
    hasLogGrown_ = false;
    const auto search = SearchText::anyOf(query_.anyTerms);
    if (!search.isEmpty()) log_.load({.search = search}, kMostLogged);
}

std::vector<kit::TimelineSignal> TimelinePageModel::changes() const {
    auto all = kit::buildSignals(trackers().builds(), query_);
    all.insert(all.end(), logged_.begin(), logged_.end());
    return all;
}

void TimelinePageModel::read() {
    if (subscription_) {
        follow();
    } else {
        readNews();
    }
}

void TimelinePageModel::readNews() {
    if (!isNews() || isWide_ || !news().isLoaded()) return;
    std::vector<std::string> ids{subject_.id};
    const auto clusters = news().clusters();
    for (const auto& cluster : clusters ? *clusters : std::vector<kit::StoryCluster>()) {
        if (std::ranges::find(cluster.storyIDs, subject_.id) != cluster.storyIDs.end())
            ids = cluster.storyIDs;
    }
    std::vector<StoredStory> stored;
    for (const auto& id : ids) {
        if (const auto* story = news().stories().find(id)) stored.push_back(story->unpacked());
    }
    std::vector<kit::PanelStory> stories;
    for (const auto& each : stored)
        stories.push_back({.story = &each.story, .firstSeen = each.firstSeen});
    const kit::StoryCluster own{.id = ids.front(), .storyIDs = ids};
    show(kit::timelinePage({.stories = stories,
                            .clusters = {&own, 1},
                            .now = now(),
                            .corrections = news().corrections().overlay().get()},
                           kit::releaseSignals(trackers().builds(), stories)));
}

void TimelinePageModel::show(const Content& content) {
    content_ = content;
    rows_.setRows(timelinePageRows(content));
    stages_.setRows(stageMarks(content));
    bars_.setRows(timelineBars(content));
    releases_.setRows(timelineReleases(content));
    ticks_.setRows(timelinePageTicks(content));
    barsName_ = content.barSpan == 1h                     ? tr("Stories an hour")
                : content.barSpan == std::chrono::days(1) ? tr("Stories a day")
                                                          : tr("Stories a week");
    const auto since = tr("Since %1").arg(stageDate(content, content.from));
    if (content.stories == 0) {
        setCondition({.state = Empty,
                      .message = tr("No story here mentions “%1”.").arg(subjectName()),
                      .hint = tr("The desk looks through all stories that it keeps.")});
    } else {
        setCondition({.state = Ready, .fact = since});
    }
}

QString TimelinePageModel::subjectName() const { return subject_.name(stores()); }

void TimelinePageModel::setWords(const QString& words) {
    words_ = words;
    typed_.start();
}

QStringList TimelinePageModel::beats() const {
    QStringList names{tr("Beat")};
    for (const auto& entry : stores().newsrooms.beats().entries()) names << titleText(entry.name);
    return names;
}

int TimelinePageModel::beat() const {
    const auto& entries = stores().newsrooms.beats().entries();
    const auto found = std::ranges::find_if(entries, [this](const auto& entry) {
        return subject_.kind == TimelineSubject::Kind::beat && entry.id == subject_.id;
    });
    return found == entries.end() ? 0 : static_cast<int>(found - entries.begin()) + 1;
}

void TimelinePageModel::setBeat(int beat) {
    const auto& entries = stores().newsrooms.beats().entries();
    if (beat < 0 || beat > std::ssize(entries)) return;
    setSubject(beat == 0 ? TimelineSubject()
                         : TimelineSubject::ofBeat(entries[static_cast<std::size_t>(beat - 1)].id));
}

void TimelinePageModel::setWide(bool wide) {
    if (isWide_ == wide || (wide && !canWiden())) return;
    isWide_ = wide;
    follow();
}

bool TimelinePageModel::canChoose(int row) const {
    const auto* found = rows_.row(row);
    return found && found->part != SubjectTimelineRow::Heading;
}

void TimelinePageModel::openRow(int row) {
    const auto* found = rows_.row(row);
    if (found && !found->storyID.isEmpty()) openStory(found->storyID);
}

/// The rows begin with a heading and the stages.
int TimelinePageModel::rowOfStage(int stage) const {
    return stage >= 0 && stage < stages_.rowCount() ? stage + 1 : -1;
}

int TimelinePageModel::stageOfRow(int row) const {
    return row >= 1 && row <= stages_.rowCount() ? row - 1 : -1;
}

void TimelinePageModel::save(const QString& suffix, const std::string& text) {
    const auto file = SavedFile::write(fileNameOf(subjectName()), suffix, text);
    emit noticed(file.isSaved() ? tr("Saved as %1.").arg(file.path)
                                : tr("Can’t save %1: %2").arg(file.path, file.error));
}

void TimelinePageModel::saveMarkdown() {
    if (canExport())
        save(QStringLiteral("md"), timelineMarkdown(*content_, subjectName()).toStdString());
}

void TimelinePageModel::saveJSON() {
    if (canExport())
        save(QStringLiteral("json"),
             json::serialize(timelineRecord(*content_, subjectName())) + '\n');
}

bool TimelinePageModel::offers(Action action) const {
    return (action == DeskAction::ExportMarkdown || action == DeskAction::ExportJSON) &&
           canExport();
}

void TimelinePageModel::perform(Action action) {
    if (action == DeskAction::ExportMarkdown) saveMarkdown();
    if (action == DeskAction::ExportJSON) saveJSON();
}

}  // namespace app
