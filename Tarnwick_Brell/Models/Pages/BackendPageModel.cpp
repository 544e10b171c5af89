#include "Tarnwick_Brell/Models/Pages/BackendPageModel.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>

#include "Tarnwick_Brell/Models/Pages/ActivityLines.h"
#include "Tarnwick_Brell/Models/Pages/BackendPageRows.h"
#include "Tarnwick_Brell/Presentation/FindingText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Trackers/TrackedBackend.h"

namespace app {

namespace {

constexpr std::string_view kFindingLookKey = "backendLookedAt";
constexpr const char* kFindingNumber = "finding";
/// More than are read beside a finding.
constexpr std::size_t kMostWireLines = 8;

}  // namespace

BackendPageModel::BackendPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Back end")), loader_(stores.library) {
    if (const auto memory = stores.defaults.memory(kFindingLookKey)) {
        const auto found = memory->find(kFindingNumber);
        if (found != memory->end()) lookedAt_ = remembered_ = std::atoll(found->second.c_str());
    }
    connect(&loader_, &FindingStatesLoader::loaded, this,
            [this](std::int64_t, const FindingStates& states) {
                if (!showsSent_ || !hasFinding()) return;
                const auto& finding = found_[static_cast<std::size_t>(row_)].finding;
                showLines(kit::fileLines(finding, states.before, states.after));
                emit changed();
            });
    connect(&loader_, &FindingStatesLoader::failed, this, [this](const QString& sentence) {
        noLines_ = sentence;
        emit changed();
    });
    connect(&trackers(), &TrackerStore::backendChanged, this, &BackendPageModel::update);
    connect(&trackers(), &TrackerStore::refreshChanged, this, &BackendPageModel::update);
    update();
}

void BackendPageModel::update() {
    const auto number =
        hasFinding() ? std::optional(found_[static_cast<std::size_t>(row_)].number) : std::nullopt;
    if (showsFiles_) {
        showFiles();
    } else {
        showFindings();
        choose(number);
    }
    showCondition();
}

void BackendPageModel::showCondition() {
    std::optional<kit::Instant> latest;
    std::optional<std::string> error;
    for (const auto& file : backendFiles()) {
        const auto& answer = trackers().valueOf(file);
        if (answer.fetchedAt)
            latest = std::max(latest.value_or(*answer.fetchedAt), *answer.fetchedAt);
        if (answer.error && !error) error = answer.error;
    }
    const bool hasRows = latest || !trackers().backendFindings().empty();
    auto condition = conditionOf(hasRows, latest, latest ? std::nullopt : error);
    if (latest) condition.fact = tr("Polled %1, one request a file").arg(clockText(*latest));
    setCondition(condition);
}

void BackendPageModel::showFindings() {
    kit::FindingFilter filter{.subject = {}, .words = words_.toStdString()};
    if (subject_ > 0)
        filter.subject =
            kit::enumTable<kit::FileSubject>[static_cast<std::size_t>(subject_ - 1)].value;
    found_.clear();
    for (const auto& stored : trackers().backendFindings()) {
        if (kit::matches(stored.finding, filter)) found_.push_back(stored);
    }
    newRows_ = static_cast<int>(std::ranges::count_if(
        found_, [this](const auto& stored) { return stored.number > lookedAt_; }));
    rows_.setRows(findingLines(found_, lookedAt_, now()));
    look();
    nothingShown_.clear();
    if (!found_.empty()) return;
    nothingShown_ = trackers().backendFindings().empty()
                        ? tr("Nothing has changed since the first look at these files.")
                        : tr("No finding matches.");
}

void BackendPageModel::showFiles() {
    std::vector<FindingLine> lines;
    for (const auto& file : kit::watchedFiles())
        lines.push_back(watchedFileLine(file, trackers().valueOf(backendFile(file)), now()));
    found_.clear();
    nothingShown_.clear();
    rows_.setRows(std::move(lines));
    row_ = std::clamp(row_, 0, rows_.rowCount() - 1);
    showFile();
}

QString BackendPageModel::countText() const {
    if (showsFiles_) return tr("%n files", nullptr, static_cast<int>(rows_.rowCount()));
    const auto count = tr("%n findings", nullptr, static_cast<int>(found_.size()));
    if (newRows_ == 0) return count;
    return tr("%1 new, %2").arg(QLocale().toString(newRows_), count);
}

/// What was new when the page was opened stays marked until it is left.
void BackendPageModel::look() {
    std::int64_t last = remembered_;
    for (const auto& stored : trackers().backendFindings()) last = std::max(last, stored.number);
    if (last == remembered_) return;
    remembered_ = last;
    stores().defaults.remember(kFindingLookKey, {{kFindingNumber, std::to_string(last)}});
}

/// The stories around the finding, as beside a line of the log.
void BackendPageModel::showWire() {
    wire_.setRows({});
    wireSentence_.clear();
    if (!hasFinding()) return;
    const auto& finding = found_[static_cast<std::size_t>(row_)].finding;
    kit::Signal signal;
    signal.kind = kit::SignalKind::backend;
    signal.title = finding.title;
    signal.seenAt = finding.seenAt;
    const auto around = wireOf(news(), signal);
    wireSentence_ = wireLeadText(around);
    auto lines = activityWireLines({.shared = around.shared},
                                   {.logged = {.signal = signal}, .title = signal.title});
    std::erase_if(lines, &ActivityWireLine::isSignal);
    if (lines.size() > kMostWireLines) lines.resize(kMostWireLines);
    wire_.setRows(std::move(lines));
}

void BackendPageModel::openWireRow(int row) {
    const auto* line = wire_.row(row);
    if (line && !line->storyID.isEmpty()) openStory(line->storyID);
}

void BackendPageModel::choose(std::optional<std::int64_t> number) {
    const auto found =
        std::ranges::find_if(found_, [&](const auto& stored) { return number == stored.number; });
    const auto first = found_.empty() ? -1 : 0;
    row_ = found == found_.end() ? first : static_cast<int>(found - found_.begin());
    showChosen();
}

void BackendPageModel::setRow(int row) {
    if (row == row_ || row < -1 || row >= rows_.rowCount()) return;
    row_ = row;
    if (showsFiles_) {
        showFile();
    } else {
        showChosen();
    }
    emit changed();
}

void BackendPageModel::showFile() {
    const auto& file = kit::watchedFiles()[static_cast<std::size_t>(row_)];
    chosen_ = {.title = plainText(file.name)};
    chosen_.sight = watchedFileText(file, trackers().valueOf(backendFile(file)), now());
    sides_ = {};
    showLines(sides_);
}

void BackendPageModel::showChosen() {
    chosen_ = {};
    sides_ = {};
    showWire();
    if (!hasFinding()) return showLines(sides_);
    const auto& stored = found_[static_cast<std::size_t>(row_)];
    const auto& finding = stored.finding;
    chosen_ = {.title = titleText(finding.title, kTitleCharacters),
               .when = momentText(finding.seenAt, now()),
               .sight = findingSightText(finding, now()),
               .polls = findingPollsText(finding, now()),
               .before = tr("Before · %1").arg(momentText(finding.notSeenAt, now())),
               .after = tr("After · %1").arg(momentText(finding.seenAt, now()))};
    if (const auto* file = kit::watchedFile(finding.file)) {
        const auto meaning = kit::meaningOf(file->source, finding.kind);
        chosen_.can = plainText(meaning.can);
        chosen_.cannot = plainText(meaning.cannot);
        chosen_.sight = tr("%1. %2").arg(plainText(file->name), chosen_.sight);
    }
    if (!showsSent_) return showLines(kit::entryLines(finding));
    if (!stored.before && !stored.after) {
        noLines_ = tr("The file as it was sent is no longer kept.");
        return lines_.setRows({});
    }
    loader_.load(stored);
}

void BackendPageModel::showLines(const kit::FindingSides& sides) {
    sides_ = sides;
    lines_.setRows(stateRows(sides));
    noLines_ = hasFinding() && lines_.rowCount() == 0
                   ? tr("Neither of the two states names it in so many words.")
                   : QString();
}

void BackendPageModel::setWords(const QString& words) {
    if (words == words_) return;
    words_ = words;
    update();
}

void BackendPageModel::setSubject(int subject) {
    if (subject == subject_ || subject < 0 || subject >= subjects().size()) return;
    subject_ = subject;
    update();
}

void BackendPageModel::setShowsFiles(bool shows) {
    if (shows == showsFiles_) return;
    showsFiles_ = shows;
    row_ = -1;
    update();
}

void BackendPageModel::setShowsSent(bool shows) {
    if (shows == showsSent_) return;
    showsSent_ = shows;
    if (!showsFiles_) showChosen();
    emit changed();
}

void BackendPageModel::showAll() {
    words_.clear();
    subject_ = 0;
    update();
}

QStringList BackendPageModel::subjects() const {
    QStringList names{tr("All")};
    for (const auto& row : kit::enumTable<kit::FileSubject>) names << labelText(row.label);
    return names;
}

void BackendPageModel::openRow(int row) {
    setRow(row);
    const auto* line = rows_.row(row);
    if (line && !line->link.isEmpty()) openLink(line->link);
}

void BackendPageModel::copyChosen() {
    if (!hasFinding()) return;
    const auto& finding = found_[static_cast<std::size_t>(row_)].finding;
    QGuiApplication::clipboard()->setText(findingEvidence(finding, sides_));
    emit noticed(tr("Lines, address and times copied."));
}

bool BackendPageModel::offers(Action action) const {
    return action == DeskAction::CopyRow && hasFinding();
}

void BackendPageModel::perform(Action action) {
    if (action == DeskAction::CopyRow) copyChosen();
}

}  // namespace app
