#include "Tarnwick_Brell/Models/Stories/TraceModel.h"

#include <algorithm>
#include <utility>

#include <QStringList>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Archive/ArchiveAddresses.h"
#include "NewsroomKit/Archive/TraceAPI.h"
#include "NewsroomKit/Records/RecordError.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Models/Stories/ReaderModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::TraceNode;

// Deeper ones are drawn as if they were no deeper, so that the texts keep their room.
constexpr std::size_t kDeepest = 8;
constexpr int kOutletCharacters = 60;
constexpr int kNoteCharacters = 160;

QString publisherText(const TraceNode& node) {
    auto text = titleText(node.publisher.value_or(""), kOutletCharacters);
    if (text.isEmpty()) text = TraceModel::tr("An unknown outlet");
    const auto platform = titleText(node.platform.value_or(""), 30);
    // Many a name says it already: "Harbour on Gull".
    const bool isSaid = text.contains(platform, Qt::CaseInsensitive);
    return isSaid ? text : TraceModel::tr("%1 on %2").arg(text, platform);
}

QString whenText(const TraceNode& node, kit::Instant now) {
    const bool isKnown = node.precision != TraceNode::Precision::unknown && node.publishedAt;
    if (!isKnown) return TraceModel::tr("Time unknown");
    return node.precision == TraceNode::Precision::day ? namedDayText(*node.publishedAt, now)
                                                       : momentText(*node.publishedAt, now);
}

/// "linked as “according to the Tide”". Without the words, the name of what is referred to.
QString referenceText(const TraceNode& node, const TraceNode* parent) {
    auto words = titleText(node.note.value_or(""), kNoteCharacters);
    const auto wording = node.relationWording();
    if (wording.empty()) return words.isEmpty() ? words : u'“' + words + u'”';
    if (words.isEmpty() && parent) words = publisherText(*parent);
    if (words.isEmpty()) return {};
    return wording == TraceNode::kLinkedAs ? TraceModel::tr("linked as “%1”").arg(words)
                                           : TraceModel::tr("named as “%1”").arg(words);
}

QString spokenOf(const TraceRow& row, const TraceNode* parent) {
    QStringList parts{row.publisher, row.title, row.when};
    parts << (parent ? TraceModel::tr("after %1").arg(publisherText(*parent))
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
      mailbox_(std::make_shared<MainThreadQueue>()) {
    connect(&desk, &NewsDesk::wireChanged, this, &TraceModel::readRows);
}

// The worker goes on with what has been asked for; nobody is told any more.
TraceModel::~TraceModel() { mailbox_->close(); }

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
    if (ticket_) desk_.worker().cancel(*std::exchange(ticket_, std::nullopt));
}

void TraceModel::start() {
    cancel();
    const auto tell = [this, turn = turn_, mailbox = mailbox_](Answer answer) {
        mailbox->send([this, turn, answer = std::move(answer)] {
            if (turn == turn_) take(answer);
        });
    };
    auto job = [base = kit::archiveBaseAt(defaults_.serviceAddress()),
                story = address_.toStdString(),
                tell](DeskWorker::WorkerContext& context) -> boost::asio::awaitable<void> {
        const kit::TraceAPI api{.base = base, .http = context.engine.http()};
        const auto trace = co_await api.trace(story);
        if (trace) {
            tell({.result = trace.value()});
        } else {
            tell({.failure = trace.error().description()});
        }
    };
    const auto failed = [tell](const std::exception& error) {
        const bool isAnswer = dynamic_cast<const kit::RecordError*>(&error) != nullptr;
        const std::string fault(error.what());
        tell({.failure = isAnswer ? "The answer does not read (" + fault + ")." : fault});
    };
    ticket_ = desk_.worker().spawn(std::move(job), failed);
    enter(Running);
}

void TraceModel::take(const Answer& answer) {
    ticket_.reset();
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

/// A node hangs below the last one before it that is less deep, however much less.
void TraceModel::readRows() {
    std::vector<TraceRow> rows;
    std::vector<const TraceNode*> path;
    for (const auto& node : nodes_) {
        while (!path.empty() && path.back()->depth.value >= node.depth.value) path.pop_back();
        auto shown = row(node, path.empty() ? nullptr : path.back());
        shown.depth = static_cast<int>(std::min(path.size(), kDeepest));
        rows.push_back(std::move(shown));
        path.push_back(&node);
    }
    rows_.setRows(std::move(rows));
}

TraceRow TraceModel::row(const TraceNode& node, const TraceNode* parent) const {
    const auto canonical = kit::canonicalLink(node.url);
    TraceRow row{.publisher = publisherText(node),
                 .title = titleText(node.title.value_or(""), kTitleCharacters),
                 .when = whenText(node, clock_()),
                 .reference = referenceText(node, parent),
                 .link = openableLink(node.url),
                 .isThis = canonical == kit::canonicalLink(address_.toStdString())};
    if (row.title.isEmpty()) row.title = titleText(kit::maskedLogins(node.url), kTitleCharacters);
    const auto* story = desk_.stories().find(kit::storyID(canonical));
    if (story) row.storyID = plainText(story->id());
    row.spokenText = spokenOf(row, parent);
    return row;
}

void TraceModel::enter(State state) {
    state_ = state;
    emit stateChanged();
}

}  // namespace app
