#include "Tarnwick_Brell/Models/Pages/ProjectPageModel.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include <QPointer>

#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Models/Library/KeptLine.h"
#include "Tarnwick_Brell/Models/Stories/StoryCitation.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

constexpr int kQuoteOnLine = 400;
constexpr int kShownText = 20'000;

bool belongsTo(MemberSubset subset, kit::MemberKind kind) {
    switch (subset) {
        case MemberSubset::all: return true;
        case MemberSubset::stories: return kind == kit::MemberKind::story;
        case MemberSubset::clips: return kind == kit::MemberKind::clip;
        case MemberSubset::notes: return kind == kit::MemberKind::note;
        case MemberSubset::happenings: return kind == kit::MemberKind::signal;
    }
    return false;
}

QString memberSymbol(kit::MemberKind kind) {
    switch (kind) {
        case kit::MemberKind::clip: return symbolOf(SearchScope::clips);
        case kit::MemberKind::note: return symbolOf(SearchScope::notes);
        case kit::MemberKind::story: return symbolOf(SearchScope::stories);
        case kit::MemberKind::signal: return symbolOf(SearchScope::loggedSignals);
    }
    return {};
}

ProjectLine memberLine(const kit::TimelineItem& item, const kit::TimelineItem* before,
                       kit::Instant now) {
    const bool isClip = item.kind == kit::MemberKind::clip;
    const bool isNote = item.kind == kit::MemberKind::note;
    ProjectLine line{.time = clockText(item.at),
                     .symbol = memberSymbol(item.kind),
                     .title = titleText(item.title, kTitleCharacters),
                     .detail = titleText(item.source),
                     .isDone = item.isDone};
    if (isClip) line.quote = titleText(item.text, kQuoteOnLine);
    if (isNote) line.detail = titleText(item.text, kExcerptCharacters);
    if (!before || daysBetween(before->at, item.at) != 0) line.day = dayHeadingText(item.at, now);
    line.spokenText = spokenRow(
        {labelText(kit::label(item.kind)), line.title, line.quote, line.detail,
         momentText(item.at, now),
         item.isDone ? ProjectPageModel::tr("checked") : ProjectPageModel::tr("to check")});
    return line;
}

}  // namespace

ProjectPageModel::ProjectPageModel(const DeskStores& stores, std::string id)
    : PageModel(stores, tr("Projects")), id_(std::move(id)), editor_(stores) {
    connect(&kept(), &LibraryStore::changed, this, &ProjectPageModel::read);
    // A story that loses its mark leaves the project.
    connect(&news(), &NewsDesk::marksChanged, this, &ProjectPageModel::read);
    connect(&editor_, &NoteEditor::kept, this, [this] {
        isDraft_ = false;
        chosenKey_ = kit::memberKey(kit::MemberKind::note, editor_.id());
        read();
    });
    setCondition({.state = Loading});
    read();
}

void ProjectPageModel::read() {
    const QPointer<ProjectPageModel> self(this);
    kept().readProject(id_, [self](std::optional<LibraryStore::ProjectPage> found) {
        if (self) self->show(std::move(found));
    });
}

void ProjectPageModel::show(std::optional<LibraryStore::ProjectPage> found) {
    if (!found) {
        setCondition({.state = Empty,
                      .message = tr("This project was removed."),
                      .hint = tr("Removed, in the sidebar, brings it back.")});
        return;
    }
    project_ = std::move(*found);
    showRows();
    setCondition({.state = Ready, .fact = counts()});
}

void ProjectPageModel::showRows() {
    const auto& timeline = project_.timeline;
    std::vector<ProjectLine> lines;
    shown_.clear();
    for (std::size_t place = 0; place < timeline.size(); ++place) {
        const auto& item = timeline[place];
        if (!belongsTo(subset_, item.kind) || (onlyToCheck_ && item.isDone)) continue;
        const auto* before = shown_.empty() ? nullptr : &timeline[shown_.back()];
        lines.push_back(memberLine(item, before, now()));
        shown_.push_back(place);
    }
    isShowing_ = true;
    rows_.setRows(std::move(lines));
    isShowing_ = false;
    const auto at = std::ranges::find(shown_, chosenKey_,
                                      [&](std::size_t place) { return timeline[place].key(); });
    const auto last = static_cast<int>(shown_.size()) - 1;
    row_ = at != shown_.end() ? static_cast<int>(at - shown_.begin())
                              : std::min(std::max(row_, 0), last);
    const auto* item = chosen();
    if (std::exchange(chosenKey_, item ? item->key() : std::string()) != chosenKey_ ||
        (item && item->kind == kit::MemberKind::note && editor_.id() != item->id))
        chosenChanged();
}

const kit::TimelineItem* ProjectPageModel::itemAt(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return row >= 0 && at < shown_.size() ? &project_.timeline[shown_[at]] : nullptr;
}

void ProjectPageModel::setRow(int row) {
    const auto* item = itemAt(row);
    if (isShowing_ || !item || (row == row_ && !isDraft_)) return;
    isDraft_ = false;
    row_ = row;
    chosenKey_ = item->key();
    chosenChanged();
    emit changed();
}

void ProjectPageModel::chosenChanged() {
    const auto* item = chosen();
    textFact_.clear();
    if (item && item->kind == kit::MemberKind::story) {
        const QPointer<ProjectPageModel> self(this);
        kept().readText(item->id, [self, key = chosenKey_](std::optional<kit::SavedText> text) {
            if (!self || self->chosenKey_ != key || !text) return;
            self->textFact_ =
                tr("Text kept %1, SHA-256 %2")
                    .arg(momentText(text->fetchedAt, self->now()), plainText(text->sha256));
            emit self->changed();
        });
    }
    if (isDraft_) return;
    item && item->kind == kit::MemberKind::note ? editor_.open(item->id) : editor_.close();
}

QString ProjectPageModel::name() const { return titleText(project_.project.name, 200); }

QString ProjectPageModel::description() const {
    return QString::fromStdString(project_.project.description);
}

int ProjectPageModel::countOf(kit::MemberKind kind) const {
    return static_cast<int>(std::ranges::count(project_.timeline, kind, &kit::TimelineItem::kind));
}

QString ProjectPageModel::counts() const {
    QStringList counts;
    using kit::MemberKind;
    if (const auto n = countOf(MemberKind::story)) counts << tr("%n stories", nullptr, n);
    if (const auto n = countOf(MemberKind::clip)) counts << tr("%n clips", nullptr, n);
    if (const auto n = countOf(MemberKind::note)) counts << tr("%n notes", nullptr, n);
    if (const auto n = countOf(MemberKind::signal)) counts << tr("%n happenings", nullptr, n);
    return counts.join(QStringLiteral(" · "));
}

QString ProjectPageModel::doneText() const {
    if (project_.timeline.empty()) return {};
    const auto done =
        static_cast<int>(std::ranges::count(project_.timeline, true, &kit::TimelineItem::isDone));
    return tr("%1 of %2 checked").arg(done).arg(project_.timeline.size());
}

double ProjectPageModel::doneShare() const {
    if (project_.timeline.empty()) return 0;
    return static_cast<double>(
               std::ranges::count(project_.timeline, true, &kit::TimelineItem::isDone)) /
           static_cast<double>(project_.timeline.size());
}

QStringList ProjectPageModel::subsets() const {
    return {tr("Timeline"), tr("Stories"), tr("Clips"), tr("Notes"), tr("Happenings")};
}

void ProjectPageModel::setSubset(int subset) {
    if (subset < 0 || subset >= subsets().size() || subset == this->subset()) return;
    subset_ = static_cast<MemberSubset>(subset);
    showRows();
    emit changed();
}

void ProjectPageModel::setOnlyToCheck(bool only) {
    if (std::exchange(onlyToCheck_, only) == only) return;
    showRows();
    emit changed();
}

QString ProjectPageModel::chosenTitle() const {
    return chosen() ? titleText(chosen()->title, kTitleCharacters) : QString();
}

QString ProjectPageModel::chosenText() const {
    if (!chosen() || chosen()->kind == kit::MemberKind::note) return {};
    const auto text = bodyText(chosen()->text, kShownText);
    return chosen()->kind == kit::MemberKind::clip ? tr("“%1”").arg(text) : text;
}

QString ProjectPageModel::chosenFact() const {
    const auto* item = chosen();
    if (!item) return {};
    const auto when = momentText(item->at, now());
    return item->source.empty() ? when : tr("%1 · %2").arg(titleText(item->source), when);
}

QString ProjectPageModel::storyKind() const { return QString::fromLatin1(kStoryMimeType); }

QStringList ProjectPageModel::outlets() const {
    std::map<QString, int> counts;
    for (const auto& item : project_.timeline) {
        if (!item.source.empty()) ++counts[titleText(item.source)];
    }
    std::vector<std::pair<QString, int>> sorted(counts.begin(), counts.end());
    std::ranges::stable_sort(sorted, std::ranges::greater(), &std::pair<QString, int>::second);
    QStringList names;
    for (const auto& [name, count] : sorted)
        names << (count > 1 ? tr("%1 %2").arg(name).arg(count) : name);
    return names;
}

}  // namespace app
