#include "Tarnwick_Brell/Models/Stories/ReaderModel.h"

#include <algorithm>
#include <utility>

#include <QTimer>

#include "NewsroomKit/Editorial/LabelReasons.h"
#include "NewsroomKit/Panels/StoryTimeline.h"
#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Models/Stories/CorrectedLabel.h"
#include "Tarnwick_Brell/Models/Stories/StoryCitation.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Pictures/PictureID.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr int kReaderTextCharacters = 4000;

/// "The headline says “reportedly”." out of "Report: the headline says “reportedly”.": the
/// label itself stands beside it as a badge.
QString withoutLabel(const std::string& sentence) {
    auto text = plainText(sentence);
    if (const auto colon = text.indexOf(QStringLiteral(": ")); colon >= 0)
        text.remove(0, colon + 2);
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

}  // namespace

ReaderModel::ReaderModel(NewsDesk& desk, const Defaults& defaults, kit::Clock clock,
                         QObject* parent)
    : QObject(parent),
      desk_(desk),
      clock_(std::move(clock)),
      trace_(desk, defaults, clock_),
      coverage_(desk, defaults, clock_),
      article_(desk, clock_),
      queue_(std::make_shared<MainThreadQueue>()) {
    connect(&desk, &NewsDesk::wireChanged, this, &ReaderModel::follow);
    connect(&desk, &NewsDesk::marksChanged, this, &ReaderModel::marksChanged);
    connect(&desk, &NewsDesk::clustersChanged, this, &ReaderModel::readTimeline);
    auto* minute = new QTimer(this);
    connect(minute, &QTimer::timeout, this, &ReaderModel::timeChanged);
    minute->start(30s);
}

ReaderModel::~ReaderModel() { queue_->close(); }

std::optional<std::int64_t> ReaderModel::number() const {
    return stored_ ? std::optional(stored_->number) : std::nullopt;
}

void ReaderModel::show(std::optional<std::int64_t> number) {
    if (number == this->number()) return;
    const auto place = number ? desk_.stories().placeOf(*number) : std::nullopt;
    trace_.clear();
    coverage_.clear();
    article_.clear();
    stored_.reset();
    if (place) stored_ = desk_.stories()[*place].unpacked();
    readStory();
}

void ReaderModel::readStory() {
    earlier_.clear();
    wordings_.setRows({});
    readCredits();
    readTimeline();
    if (stored_) askForWordings();
    emit storyChanged();
    emit timeChanged();
    emit marksChanged();
}

/// A story that is gone from the wire stays in the reader until another one is chosen.
void ReaderModel::follow(const WireChange& change) {
    if (!stored_) return;
    const auto place = desk_.stories().placeOf(stored_->number);
    if (!place) return;
    const auto& revised = change.revised;
    if (!change.isReset && !std::binary_search(revised.begin(), revised.end(), *place)) return;
    auto known = desk_.stories()[*place].unpacked();
    if (known.story == stored_->story) {
        // Another program may have marked it; a merge brings that with the story.
        emit marksChanged();
        return;
    }
    stored_ = std::move(known);
    readStory();
}

TimeWriter ReaderModel::shortTimes() const {
    return [now = clock_()](kit::Instant then) { return momentText(then, now); };
}

void ReaderModel::readCredits() {
    credits_.setRows(stored_ ? creditRows(story().credits, shortTimes())
                             : std::vector<CreditRow>());
}

void ReaderModel::askForWordings() {
    const auto number = stored_->number;
    const auto read = [this, number, queue = queue_](DeskWorker::WorkerContext& context) {
        auto wordings = context.store.stories().earlierWordings(number);
        if (wordings.empty()) return;
        queue->send([this, number, wordings = std::move(wordings)]() mutable {
            if (this->number() != number) return;
            earlier_ = std::move(wordings);
            wordings_.setRows(wordingRows(earlier_, shortTimes()));
        });
    };
    // Without them the story is still complete; that the library is in trouble is told elsewhere.
    desk_.worker().post(read, [](const std::exception&) {});
}

std::vector<kit::ClusterMember> ReaderModel::membersOfCluster() const {
    std::vector<kit::ClusterMember> members;
    if (!stored_ || !desk_.clusters()) return members;
    const auto& clusters = *desk_.clusters();
    const auto own = std::ranges::find_if(clusters, [&](const auto& cluster) {
        return std::ranges::find(cluster.storyIDs, story().id) != cluster.storyIDs.end();
    });
    if (own == clusters.end()) return members;
    for (std::size_t place = 0; place < own->storyIDs.size(); ++place) {
        if (const auto* packed = desk_.stories().find(own->storyIDs[place]))
            members.push_back({.story = packed->unpacked().story, .why = own->whys[place]});
    }
    return members;
}

void ReaderModel::readTimeline() {
    const auto timeline =
        kit::storyTimeline(membersOfCluster(), desk_.corrections().overlay().get());
    auto rows =
        stored_ ? timelineRows(timeline, story().id, shortTimes()) : std::vector<TimelineRow>();
    const auto others = static_cast<int>(rows.size()) - 1;
    timelineTitle_ =
        others > 0 ? tr("Also covered by %n other outlets", nullptr, others) : QString();
    const std::chrono::seconds lead(timeline.attribution.lead.value_or(0));
    timelineFact_ =
        lead >= 1min
            ? tr("%1 led by %2").arg(titleText(*timeline.attribution.first), spanText(lead))
            : QString();
    timeline_.setRows(std::move(rows));
    emit timelineChanged();
}

QString ReaderModel::storyID() const { return stored_ ? plainText(story().id) : QString(); }

QString ReaderModel::title() const {
    return stored_ ? titleText(story().title, kWholeTitleCharacters) : QString();
}

QString ReaderModel::source() const { return stored_ ? titleText(story().sourceName) : QString(); }

QString ReaderModel::destination() const {
    const auto name = stored_ ? story().shownDestinationName() : std::nullopt;
    return name ? titleText(*name) : QString();
}

QString ReaderModel::author() const {
    return stored_ && story().author ? tr("by %1").arg(titleText(*story().author)) : QString();
}

QString ReaderModel::published() const {
    if (!stored_) return {};
    const auto at = story().publishedAt;
    const auto now = clock_();
    if (daysBetween(now, at) == 0) return tr("Today %1, %2").arg(clockText(at), agoText(at, now));
    return momentText(at, now);
}

StorySourcing::Value ReaderModel::sourcing() const {
    return stored_ ? StorySourcing::of(story().sourcing) : StorySourcing::Unlabeled;
}

QString ReaderModel::sourcingLabel() const {
    return stored_ ? sourcingText(story().sourcing) : QString();
}

QString ReaderModel::sourcingReason() const {
    if (!stored_) return {};
    const auto sentence = kit::sourcingReason(story());
    return story().sourcing == kit::Sourcing::unlabeled ? plainText(sentence)
                                                        : withoutLabel(sentence);
}

QString ReaderModel::correctedText() const {
    const auto* label = stored_ ? desk_.corrections().overlay()->labelOf(story().id) : nullptr;
    return label ? correctedLabelText(story(), *label) : QString();
}

QString ReaderModel::kindLabel() const { return stored_ ? kindText(story().kind) : QString(); }

QString ReaderModel::kindReason() const {
    if (!stored_ || story().kind == kit::StoryKind::coverage) return {};
    return withoutLabel(kit::kindReason(story()));
}

QString ReaderModel::text() const {
    return stored_ ? bodyText(story().summary, kReaderTextCharacters) : QString();
}

QString ReaderModel::picture() const {
    return stored_ ? pictureID(story().imageURL.value_or(std::string())) : QString();
}

QString ReaderModel::link() const {
    if (!stored_) return {};
    return browserLink(story());
}

QString ReaderModel::shownLink() const { return stored_ ? app::shownLink(story()) : QString(); }

void ReaderModel::toggleArticle() {
    if (stored_) article_.toggle(story());
}

void ReaderModel::findCoverage() {
    if (!stored_) return;
    std::vector<kit::Story> stories;
    for (auto& member : membersOfCluster()) stories.push_back(std::move(member.story));
    if (stories.empty()) stories.push_back(story());
    coverage_.ask(story().id, std::move(stories));
}

bool ReaderModel::isRead() const { return stored_ && desk_.isRead(story().id); }
bool ReaderModel::isSaved() const { return stored_ && desk_.isSaved(story().id); }

QString ReaderModel::citation() const { return stored_ ? citationOf(story()) : QString(); }

StoryDocument ReaderModel::document() const {
    const TimeWriter write = [](kit::Instant then) { return wholeMomentText(then); };
    StoryDocument document{
        .title = title(),
        .source = source(),
        .destination = destination(),
        .author = author(),
        .published = wholeMomentText(story().publishedAt),
        .link = shownLink(),
        .labels = {plainText(kit::sourcingReason(story()))},
        .text = text(),
        .wordings = wordingRows(earlier_, write),
        .credits = creditRows(story().credits, write),
        .timelineTitle = timelineTitle_,
        .timelineFact = timelineFact_,
        .timeline = timelineRows(
            kit::storyTimeline(membersOfCluster(), desk_.corrections().overlay().get()), story().id,
            write),
        .made = tr("Tarnwick Brell, %1").arg(wholeMomentText(clock_()))};
    if (story().kind != kit::StoryKind::coverage)
        document.labels << plainText(kit::kindReason(story()));
    return document;
}

}  // namespace app
