#include "Tarnwick_Brell/Models/Stories/TraceModel.h"

#include <utility>

#include <QStringList>

#include "NewsroomKit/Records/UnreadableAnswer.h"
#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Archive/ArchiveAddresses.h"
#include "NewsroomKit/Archive/TraceAPI.h"
#include "NewsroomKit/Records/RecordError.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TraceText.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"

namespace app {

namespace {

QString spokenOf(const TraceRow& row, const kit::TraceTreeRow* parent) {
    QStringList parts{row.publisher, row.title, row.when};
    parts << (parent ? TraceModel::tr("after %1").arg(outletText(*parent))
                     : TraceModel::tr("origin"));
    if (!row.reference.isEmpty()) parts << row.reference;
    if (row.isThis) parts << TraceModel::tr("the story in the reader");
    return parts.join(QStringLiteral(", "));
}

}  // namespace

TraceModel::TraceModel(NewsDesk& desk, const Defaults& defaults, kit::Clock clock, QObject* parent)
    : QObject(parent),
      desk_(desk),
      defaults_(defaults),
      clock_(std::move(clock)),
      queue_(std::make_shared<MainThreadQueue>()) {
    connect(&desk, &NewsDesk::wireChanged, this, &TraceModel::readRows);
}

// A job in flight continues; its result is dropped.
TraceModel::~TraceModel() { queue_->close(); }

void TraceModel::ask(const QString& address) {
    if (state_ == Running && address == address_) return;
    if (address != address_) clear();
    address_ = address;
    start();
}

void TraceModel::retry() {
    if (state_ == Failed) start();
}

void TraceModel::clear() {
    cancel();
    address_.clear();
    nodes_.clear();
    readRows();
    enter(Idle);
}

void TraceModel::cancel() {
    ++turn_;
    if (job_) desk_.worker().cancel(*std::exchange(job_, std::nullopt));
}

void TraceModel::start() {
    cancel();
    const auto tell = [this, turn = turn_, queue = queue_](Answer answer) {
        queue->send([this, turn, answer = std::move(answer)] {
            if (turn == turn_) take(answer);
        });
    };
    auto job = [base = kit::archiveBaseAt(defaults_.serviceAddress()),
                story = address_.toStdString(),
                tell](DeskWorker::WorkerContext& context) -> boost::asio::awaitable<void> {
        const kit::TraceAPI api{.base = base, .http = context.stack.http()};
        const auto trace = co_await api.trace(story);
        if (trace) {
            tell({.result = trace.value()});
        } else {
            tell({.failure = trace.error().description()});
        }
    };
    const auto failed = [tell](const std::exception& error) {
        const auto* answer = dynamic_cast<const kit::RecordError*>(&error);
        tell({.failure = answer ? kit::unreadableAnswer(*answer) : std::string(error.what())});
    };
    job_ = desk_.worker().spawn(std::move(job), failed);
    enter(Running);
}

void TraceModel::take(const Answer& answer) {
    job_.reset();
    if (!answer.result) {
        failure_ = bodyText(answer.failure);
        enter(Failed);
        return;
    }
    nodes_ = answer.result->nodes;
    readRows();
    enter(nodes_.empty() ? Empty : Ready);
}

QString TraceModel::message() const {
    switch (state_) {
        case Running: return tr("Looking for every outlet that ran it…");
        case Empty: return tr("No origin was found.");
        case Failed: return failure_;
        default: return {};
    }
}

void TraceModel::readRows() {
    const auto tree = kit::traceTree(nodes_, address_.toStdString());
    std::vector<TraceRow> rows;
    for (const auto& node : tree) rows.push_back(row(node, parentOf(tree, node)));
    rows_.setRows(std::move(rows));
}

TraceRow TraceModel::row(const kit::TraceTreeRow& node, const kit::TraceTreeRow* parent) const {
    TraceRow row{.depth = static_cast<int>(node.depth),
                 .publisher = outletText(node),
                 .title = titleText(node.title, kTitleCharacters),
                 .when = whenText(node, clock_()),
                 .reference = referenceText(node, parent),
                 .link = openableLink(node.url),
                 .isThis = node.isAsked};
    if (row.title.isEmpty()) row.title = titleText(kit::maskedLogins(node.url), kTitleCharacters);
    const auto* story = desk_.stories().find(kit::storyID(kit::canonicalLink(node.url)));
    if (story) row.storyID = plainText(story->id());
    row.spokenText = spokenOf(row, parent);
    return row;
}

void TraceModel::enter(State state) {
    state_ = state;
    emit stateChanged();
}

}  // namespace app
