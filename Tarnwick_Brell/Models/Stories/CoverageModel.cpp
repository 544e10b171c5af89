#include "Tarnwick_Brell/Models/Stories/CoverageModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "NewsroomKit/Archive/StoryArchiveAPI.h"
#include "NewsroomKit/Records/RecordError.h"
#include "NewsroomKit/Records/UnreadableAnswer.h"
#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using Archived = std::vector<kit::ArchivedStory>;
using SharedOverlay = std::shared_ptr<const kit::CorrectionOverlay>;

/// The archive is asked in pages, and for no more than this.
constexpr std::int64_t kArchivePage = 500;
constexpr std::size_t kMostArchived = 5'000;

kit::ArchivePeriod periodAround(const std::vector<kit::Story>& stories) {
    const auto [first, last] = std::ranges::minmax_element(stories, {}, &kit::Story::publishedAt);
    return {kit::secondsSince1970(first->publishedAt - kit::kCoverageMargin),
            kit::secondsSince1970(last->publishedAt + kit::kCoverageMargin)};
}

kit::CoverageFinder findCoverage(const std::vector<kit::Story>& stories, const Archived& archive,
                                 const SharedOverlay& corrections) {
    std::vector<const kit::Story*> pointers;
    for (const auto& story : stories) pointers.push_back(&story);
    return kit::coverageFinder(pointers, archive, corrections.get());
}

}  // namespace

CoverageModel::CoverageModel(NewsDesk& desk, const Defaults& defaults, kit::Clock clock,
                             QObject* parent)
    : QObject(parent),
      desk_(desk),
      defaults_(defaults),
      clock_(std::move(clock)),
      queue_(std::make_shared<MainThreadQueue>()) {}

// A job in flight continues; its result is dropped.
CoverageModel::~CoverageModel() { queue_->close(); }

void CoverageModel::ask(const std::string& storyID, std::vector<kit::Story> stories) {
    if (stories.empty() || (state_ == Running && storyID == storyID_)) return;
    storyID_ = storyID;
    stories_ = std::move(stories);
    start();
}

void CoverageModel::retry() {
    if (state_ == WireOnly) start();
}

void CoverageModel::clear() {
    if (state_ == Idle) return;
    cancel();
    stories_.clear();
    rows_.setRows({});
    state_ = Idle;
    emit stateChanged();
}

void CoverageModel::cancel() {
    ++turn_;
    if (job_) desk_.worker().cancel(*std::exchange(job_, std::nullopt));
}

/// What the wire has is shown at once.
void CoverageModel::start() {
    cancel();
    const auto overlay = desk_.corrections().overlay();
    show(findCoverage(stories_, {}, overlay), {});
    state_ = Running;
    emit stateChanged();
    const auto send = [this, turn = turn_, queue = queue_](kit::CoverageFinder found,
                                                           std::string failure) {
        queue->send([this, turn, found = std::move(found), failure = std::move(failure)] {
            if (turn == turn_) show(found, failure);
        });
    };
    auto job = [base = kit::archiveBaseAt(defaults_.serviceAddress()), stories = stories_, overlay,
                send](DeskWorker::WorkerContext& context) -> boost::asio::awaitable<void> {
        const kit::StoryArchiveAPI api{.base = base, .http = context.stack.http()};
        Archived archive;
        std::string failure;
        while (archive.size() < kMostArchived && failure.empty()) {
            auto page = co_await api.stories(
                periodAround(stories), static_cast<std::int64_t>(archive.size()), kArchivePage);
            if (!page) {
                failure = page.error().description();
                break;
            }
            auto items = page.value().items;
            const auto known = archive.size() + items.size();
            const bool isLast =
                items.empty() || std::cmp_greater_equal(known, page.value().total.value);
            std::ranges::move(items, std::back_inserter(archive));
            if (isLast) break;
        }
        send(findCoverage(stories, archive, overlay), failure);
    };
    const auto failed = [send, stories = stories_, overlay](const std::exception& error) {
        const auto* answer = dynamic_cast<const kit::RecordError*>(&error);
        send(findCoverage(stories, {}, overlay),
             answer ? kit::unreadableAnswer(*answer) : std::string(error.what()));
    };
    job_ = desk_.worker().spawn(std::move(job), failed);
}

void CoverageModel::show(const kit::CoverageFinder& found, const std::string& failure) {
    job_.reset();
    failure_ = bodyText(failure);
    title_ = tr("%1, %n of them here", nullptr, static_cast<int>(found.outletsHere))
                 .arg(tr("Covered by %n outlets", nullptr, static_cast<int>(found.outlets)));
    fact_ = found.outlets > 1 ? plainText(found.attribution.sentence) : QString();
    std::vector<CoverageFinderRow> rows;
    for (const auto& item : found.items) rows.push_back(rowOf(item, found));
    rows_.setRows(std::move(rows));
    state_ = failure.empty() ? Ready : WireOnly;
    emit stateChanged();
}

CoverageFinderRow CoverageModel::rowOf(const kit::CoverageItem& item,
                                       const kit::CoverageFinder& found) const {
    using Confidence = kit::Attribution::Confidence;
    const auto& attribution = found.attribution;
    CoverageFinderRow row{
        .time = item.isDayOnly ? namedDayText(item.at, clock_()) : momentText(item.at, clock_()),
        .outlet = titleText(item.outlet, 60),
        .title = titleText(item.title, kTitleCharacters),
        .isFirst = found.outlets > 1 && attribution.confidence != Confidence::unclear &&
                   attribution.first == item.outlet && attribution.at == item.at,
        .isThis = item.storyID == storyID_,
        .link = openableLink(item.url)};
    if (item.storyID) {
        row.storyID = plainText(*item.storyID);
    } else {
        row.why = tr("The archive has it, the wire has not.");
    }
    QStringList facts;
    if (!item.credits.empty()) facts << tr("credits %1").arg(titleText(item.credits.front(), 40));
    if (!item.storyID) facts << tr("archive");
    if (row.isFirst) facts << tr("First");
    row.lead = facts.join(QStringLiteral(" · "));
    return row;
}

QString CoverageModel::message() const {
    if (state_ == Running) return tr("Asking the archive…");
    return state_ == WireOnly ? failure_ : QString();
}

}  // namespace app
