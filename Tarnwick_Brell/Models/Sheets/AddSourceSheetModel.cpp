#include "Tarnwick_Brell/Models/Sheets/AddSourceSheetModel.h"

#include <algorithm>
#include <memory>
#include <variant>

#include <QLocale>
#include <QPointer>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Outlines/Outlines.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::FetchAttempt;

/// Adds the feed and fetches it at once.
void addFeed(NewsDesk& desk, const kit::OutlineFeed& feed, bool onlyApple,
             const std::shared_ptr<std::string>& id) {
    kit::Outlines outlines;
    outlines.feeds.push_back(feed);
    desk.importOutlines(std::move(outlines), {}, [&desk, onlyApple, id](const auto& added) {
        if (added.empty()) return;
        *id = added.front().id;
        if (onlyApple) desk.setSourceOptions(*id, {.onlyApple = true});
        desk.refreshSource(*id);
    });
}

AttemptOutcome::Value outcomeOf(FetchAttempt::Outcome outcome) {
    switch (outcome) {
        case FetchAttempt::Outcome::underWay: return AttemptOutcome::UnderWay;
        case FetchAttempt::Outcome::page: return AttemptOutcome::Page;
        case FetchAttempt::Outcome::feed: return AttemptOutcome::Feed;
        case FetchAttempt::Outcome::failed: return AttemptOutcome::Failed;
        case FetchAttempt::Outcome::untried: return AttemptOutcome::Untried;
    }
    return AttemptOutcome::UnderWay;
}

QString secondsText(std::chrono::milliseconds time) {
    return AddSourceSheetModel::tr("%1 s").arg(
        QLocale().toString(static_cast<double>(time.count()) / 1e3, 'f', 1));
}

QString resultText(const FetchAttempt& attempt) {
    const auto count = static_cast<int>(attempt.count);
    switch (attempt.outcome) {
        case FetchAttempt::Outcome::underWay: return AddSourceSheetModel::tr("Trying…");
        case FetchAttempt::Outcome::page:
            return AddSourceSheetModel::tr("A page, it names %n feeds", nullptr, count);
        case FetchAttempt::Outcome::feed:
            return count == 0 ? AddSourceSheetModel::tr("A feed without stories")
                              : AddSourceSheetModel::tr("A feed with %n stories", nullptr, count);
        case FetchAttempt::Outcome::failed: return titleText(attempt.reason);
        case FetchAttempt::Outcome::untried: return AddSourceSheetModel::tr("Not tried");
    }
    return {};
}

AttemptRow rowOf(const FetchAttempt& attempt, const std::optional<AddressCheck>& found) {
    const auto outcome = outcomeOf(attempt.outcome);
    const bool wasAsked = attempt.outcome != FetchAttempt::Outcome::underWay &&
                          attempt.outcome != FetchAttempt::Outcome::untried;
    return {.address = titleText(kit::maskedSecrets(attempt.address), kTitleCharacters),
            .outcome = outcome,
            .isUsed = found && outcome == AttemptOutcome::Feed && found->feedURL == attempt.address,
            .result = resultText(attempt),
            .duration = wasAsked ? secondsText(attempt.elapsed) : QString()};
}

PreviewStoryRow previewOf(const kit::Story& story, kit::Instant now) {
    PreviewStoryRow row{.title = titleText(story.title, kTitleCharacters),
                        .kindText = kindText(story.kind),
                        .sourcingText = sourcingText(story.sourcing),
                        .sourcing = StorySourcing::of(story.sourcing),
                        .age = ageText(story.publishedAt, now)};
    QStringList parts{row.title, row.kindText, row.sourcingText, row.age};
    parts.removeAll(QString());
    row.spokenText = parts.join(QStringLiteral(", "));
    return row;
}

}  // namespace

AddSourceSheetModel::AddSourceSheetModel(const DeskStores& stores, const QString& subject)
    : stores_(stores), typed_(subject) {
    if (canCheck()) check();
}

AddSourceSheetModel::~AddSourceSheetModel() {
    if (isChecking_) stores_.news.cancelCheck(worker_);
}

void AddSourceSheetModel::forget() {
    if (isChecking_) stores_.news.cancelCheck(worker_);
    ++check_;
    isChecking_ = false;
    found_.reset();
    error_.clear();
    knownSource_.clear();
    tried_.clear();
    attempts_.setRows({});
    previews_.setRows({});
}

void AddSourceSheetModel::setTyped(const QString& typed) {
    if (typed_ == typed) return;
    typed_ = typed;
    forget();
    emit changed();
}

void AddSourceSheetModel::setName(const QString& name) {
    name_ = name;
    emit changed();
}

QString AddSourceSheetModel::group() const {
    return labelText(label(kit::NewsSource::Category::custom));
}

QString AddSourceSheetModel::progressText() const {
    std::chrono::milliseconds time{0};
    for (const auto& attempt : tried_) time += attempt.elapsed;
    if (tried_.empty()) return {};
    return isChecking_ ? tr("%1 so far").arg(secondsText(time))
                       : tr("Done in %1").arg(secondsText(time));
}

QString AddSourceSheetModel::storiesText() const {
    if (!found_) return {};
    return tr("%1 of %2").arg(found_->first.size()).arg(found_->storyCount);
}

void AddSourceSheetModel::setOnlyApple(bool only) {
    onlyApple_ = only;
    emit changed();
}

QString AddSourceSheetModel::appleText() const {
    if (!found_) return {};
    return tr("%1 of %2").arg(found_->aboutApple).arg(found_->storyCount);
}

void AddSourceSheetModel::check() {
    forget();
    isChecking_ = true;
    const QPointer<AddSourceSheetModel> self(this);
    const auto mine = check_;
    const auto isMine = [self, mine] { return self && self->check_ == mine; };
    worker_ = stores_.news.checkAddress(
        typed_.trimmed().toStdString(),
        [self, isMine](const auto& attempt) {
            if (isMine()) self->follow(attempt);
        },
        [self, isMine](const auto& checked) {
            if (isMine()) self->show(checked);
        });
    emit changed();
}

void AddSourceSheetModel::stop() {
    if (!isChecking_) return;
    forget();
    error_ = tr("Stopped.");
    emit changed();
}

void AddSourceSheetModel::tryAddress(int row) {
    if (row < 0 || row >= std::ssize(tried_)) return;
    const auto& attempt = tried_[static_cast<std::size_t>(row)];
    if (attempt.outcome != FetchAttempt::Outcome::untried) return;
    setTyped(QString::fromStdString(attempt.address));
    check();
}

void AddSourceSheetModel::follow(const FetchAttempt& attempt) {
    const auto asked = std::ranges::find_if(tried_, [&](const auto& other) {
        return other.address == attempt.address && other.outcome == FetchAttempt::Outcome::underWay;
    });
    if (asked == tried_.end()) {
        tried_.push_back(attempt);
    } else {
        *asked = attempt;
    }
    showFound();
}

void AddSourceSheetModel::show(const SourceAdder::Checked& checked) {
    isChecking_ = false;
    if (const auto* failed = std::get_if<AddSourceError>(&checked)) {
        error_ = bodyText(failed->description());
        if (failed->kind == AddSourceError::Kind::alreadyAdded)
            knownSource_ = QString::fromStdString(failed->detail);
    } else {
        found_ = std::get<AddressCheck>(checked);
        name_ = titleText(found_->name);
    }
    showFound();
}

void AddSourceSheetModel::showFound() {
    std::vector<AttemptRow> rows;
    for (const auto& attempt : tried_) rows.push_back(rowOf(attempt, found_));
    attempts_.setRows(std::move(rows));
    std::vector<PreviewStoryRow> previews;
    const auto now = stores_.clock();
    for (const auto& story : found_ ? found_->first : std::vector<kit::Story>()) {
        previews.push_back(previewOf(story, now));
    }
    previews_.setRows(std::move(previews));
    emit changed();
}

void AddSourceSheetModel::add() {
    if (!found_) return;
    const auto name =
        name_.trimmed().isEmpty() ? titleText(found_->name) : titleText(name_.toStdString());
    const kit::OutlineFeed feed{
        .title = name.toStdString(), .feedURL = found_->feedURL, .siteURL = found_->siteURL};
    auto& desk = stores_.news;
    const auto id = std::make_shared<std::string>();
    addFeed(desk, feed, onlyApple_, id);
    stores_.undo.push(
        {.text = tr("Add %1").arg(name),
         .undo = [&desk, id] { desk.removeSources({*id}); },
         .redo = [&desk, feed, only = onlyApple_, id] { addFeed(desk, feed, only, id); },
         .notice = tr("%1 has been added.").arg(name)});
    emit closeWanted();
}

void AddSourceSheetModel::showKnown() {
    const auto name = knownSource_.toStdString();
    const auto& sources = stores_.news.sources();
    const auto source = std::ranges::find(sources, name, &kit::NewsSource::name);
    if (source == sources.end()) return;
    emit placeWanted(QStringLiteral("source:") + plainText(source->id));
    emit closeWanted();
}

}  // namespace app
