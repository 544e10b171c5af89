#include "Tarnwick_Brell/Models/Sheets/CorrectionSheetModel.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Panels/RowFilter.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Stories/CorrectedLabel.h"
#include "Tarnwick_Brell/Models/Stories/CorrectionSteps.h"
#include "Tarnwick_Brell/Models/Stories/StoryDetails.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using Kind = kit::Correction::Kind;

constexpr int kMostMatches = 20;
/// Of the wire, the newest stories that are searched for the other one.
constexpr std::size_t kMostSearched = 20'000;

std::string trimmedText(const QString& text) { return text.trimmed().toStdString(); }

}  // namespace

CorrectionSheetModel::CorrectionSheetModel(const DeskStores& stores, const QString& subject)
    : stores_(stores), others_(othersOfSameNews(stores, subject.toStdString())) {
    if (const auto* story = stores.news.stories().find(subject.toStdString()))
        story_ = story->unpacked().story;
    outlet_ = titleText(kit::tellingOutlet(story_));
    link_ = openableLink(story_.articleLink.value_or(story_.link));
}

QString CorrectionSheetModel::title() const {
    return titleText(story_.title, kWholeTitleCharacters);
}

QString CorrectionSheetModel::rulesText() const {
    const auto label = sourcingText(rulesSourcing(story_));
    return label.isEmpty() ? tr("The rules give it no label.") : tr("The rules say %1.").arg(label);
}

QStringList CorrectionSheetModel::sourcings() const {
    QStringList names;
    for (const auto& row : kit::enumTable<kit::Sourcing>) {
        const auto name = sourcingText(row.value);
        names << (name.isEmpty() ? tr("No label") : name);
    }
    return names;
}

int CorrectionSheetModel::sourcing() const { return static_cast<int>(story_.sourcing); }

QStringList CorrectionSheetModel::kinds() const {
    QStringList names;
    for (const auto& row : kit::enumTable<kit::StoryKind>) names << labelText(row.label);
    return names;
}

int CorrectionSheetModel::kind() const { return static_cast<int>(story_.kind); }

QString CorrectionSheetModel::othersText() const {
    return canSplit() ? tr("It stands with %n other stories that tell the same news.", nullptr,
                           static_cast<int>(others_.size()))
                      : tr("No other story tells the same news, as far as the desk knows.");
}

QStringList CorrectionSheetModel::credits() const {
    QStringList names;
    for (const auto& credit : story_.credits) names << titleText(credit.name, 60);
    return names;
}

void CorrectionSheetModel::setWords(const QString& words) {
    words_ = words;
    const kit::RowFilter filter(words.toStdString());
    std::vector<SameNewsRow> rows;
    const auto& wire = stores_.news.stories();
    const auto end = filter.isEmpty() ? 0 : std::min(kMostSearched, wire.size());
    for (std::size_t place = 0; place < end && std::ssize(rows) < kMostMatches; ++place) {
        const auto& story = wire[place];
        if (story.id() == story_.id || std::ranges::find(others_, story.id()) != others_.end() ||
            !filter.matches({story.title(), story.sourceName()}))
            continue;
        rows.push_back({.title = titleText(story.title(), kTitleCharacters),
                        .outlet = titleText(story.sourceName(), 60),
                        .time = momentText(story.publishedAt(), stores_.clock()),
                        .id = std::string(story.id())});
        auto& row = rows.back();
        row.spokenText = spokenRow({row.title, row.outlet, row.time});
    }
    matches_.setRows(std::move(rows));
    emit changed();
}

void CorrectionSheetModel::setOutlet(const QString& outlet) {
    outlet_ = outlet;
    emit changed();
}

void CorrectionSheetModel::setLink(const QString& link) {
    link_ = link;
    emit changed();
}

void CorrectionSheetModel::setCredit(int credit) {
    credit_ = credit;
    emit changed();
}

void CorrectionSheetModel::setBy(const QString& by) {
    by_ = by;
    emit changed();
}

void CorrectionSheetModel::setNote(const QString& note) {
    note_ = note;
    emit changed();
}

bool CorrectionSheetModel::canBeFirst() const {
    return !trimmedText(outlet_).empty() && kit::isOpenable(trimmedText(link_));
}

void CorrectionSheetModel::make(Kind kind, std::optional<kit::Correction::Instead> instead,
                                std::vector<std::string> more) {
    std::vector<std::string> stories{story_.id};
    std::ranges::move(more, std::back_inserter(stories));
    end(makeCorrection(stores_, {.kind = kind,
                                 .stories = std::move(stories),
                                 .instead = std::move(instead),
                                 .note = writtenNote()}));
}

std::optional<std::string> CorrectionSheetModel::writtenNote() const {
    auto note = trimmedText(note_);
    return note.empty() ? std::nullopt : std::optional(std::move(note));
}

void CorrectionSheetModel::end(const QString& problem) {
    failure_ = problem;
    emit changed();
    if (problem.isEmpty()) emit closeWanted();
}

void CorrectionSheetModel::chooseSourcing(int sourcing) {
    if (sourcing < 0 || sourcing >= std::ssize(kit::enumTable<kit::Sourcing>)) return;
    make(Kind::label, kit::Correction::Instead{.sourcing = static_cast<kit::Sourcing>(sourcing)});
}

void CorrectionSheetModel::chooseKind(int kind) {
    if (kind < 0 || kind >= std::ssize(kit::enumTable<kit::StoryKind>)) return;
    make(Kind::label, kit::Correction::Instead{.kind = static_cast<kit::StoryKind>(kind)});
}

void CorrectionSheetModel::split() { end(splitOff(stores_, story_.id, writtenNote())); }

void CorrectionSheetModel::join(int match) {
    if (const auto* row = matches_.row(match)) make(Kind::same, std::nullopt, {row->id});
}

void CorrectionSheetModel::setFirst() {
    if (!canBeFirst()) return;
    make(Kind::first,
         kit::Correction::Instead{.outlet = kit::shownOutletName(trimmedText(outlet_)),
                                  .link = trimmedText(link_)},
         others_);
}

void CorrectionSheetModel::correctCredit() {
    if (credit_ < 0 || credit_ >= std::ssize(story_.credits)) return;
    kit::Correction::Instead instead{.name =
                                         story_.credits[static_cast<std::size_t>(credit_)].name};
    if (const auto by = trimmedText(by_); !by.empty()) instead.by = by;
    make(Kind::credit, std::move(instead));
}

}  // namespace app
