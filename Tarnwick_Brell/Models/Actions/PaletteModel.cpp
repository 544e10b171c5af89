#include "Tarnwick_Brell/Models/Actions/PaletteModel.h"

#include <algorithm>

#include <QPointer>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

void append(std::vector<PaletteRow>& rows, std::vector<std::pair<int, PaletteRow>> ranked) {
    std::ranges::stable_sort(ranked, {}, &std::pair<int, PaletteRow>::first);
    for (auto& [rank, row] : ranked) rows.push_back(std::move(row));
}

QString spoken(const QString& title, const QString& more) {
    return more.isEmpty() ? title : title + QStringLiteral(", ") + more;
}

}  // namespace

QVariantList PaletteRow::partList() const {
    QVariantList list;
    for (const auto& part : parts) list << QVariant::fromValue(part);
    return list;
}

PaletteModel::PaletteModel(ActionModel& actions, Places places, NewsDesk& desk, kit::Clock clock,
                           QObject* parent)
    : QObject(parent),
      actions_(actions),
      findPlaces_(std::move(places)),
      desk_(desk),
      clock_(std::move(clock)) {
    connect(&actions_, &ActionModel::contextChanged, this, &PaletteModel::refresh);
}

void PaletteModel::open() {
    places_ = findPlaces_();
    text_.clear();
    query_ = {};
    stories_.clear();
    storiesAreOfText_ = true;
    selected_ = -1;
    refresh();
    select(0);
    emit textChanged();
}

void PaletteModel::setText(const QString& text) {
    if (text == text_) return;
    text_ = text;
    query_ = PaletteQuery(text);
    storiesAreOfText_ = false;
    refresh();
    select(0);
    searchStories();
    emit textChanged();
}

void PaletteModel::searchStories() {
    if (query_.isEmpty()) {
        stories_.clear();
        return;
    }
    desk_.search(text_.toStdString(), kMostStories,
                 [self = QPointer(this), asked = text_](const auto& numbers) {
                     if (!self || self->text_ != asked) return;
                     self->stories_ = numbers;
                     self->storiesAreOfText_ = true;
                     self->refresh();
                 });
}

void PaletteModel::refresh() {
    std::vector<PaletteRow> rows;
    append(rows, actionsOf(ActionGroup::thisStory));
    auto places = placesFound();
    std::ranges::move(actionsOf(ActionGroup::goTo), std::back_inserter(places));
    append(rows, std::move(places));
    auto work = actionsOf(ActionGroup::work);
    std::ranges::move(actionsOf(ActionGroup::view), std::back_inserter(work));
    append(rows, std::move(work));
    if (!query_.isEmpty()) addStories(rows);
    takeRows(std::move(rows));
}

/// What is selected stays so when it is still there.
void PaletteModel::takeRows(std::vector<PaletteRow> rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i == 0 || rows[i].groupTitle != rows[i - 1].groupTitle)
            rows[i].heading = rows[i].groupTitle;
    }
    auto target = selected_;
    if (const auto* former = rows_.row(selected_)) {
        const auto same =
            std::ranges::find_if(rows, [&](const auto& row) { return row.isSameThing(*former); });
        if (same != rows.end()) target = static_cast<int>(same - rows.begin());
    }
    rows_.setRows(std::move(rows));
    selected_ = std::min(target, static_cast<int>(list().size()) - 1);
    emit selectedChanged();
    emit rowsChanged();
}

std::vector<PaletteModel::Ranked> PaletteModel::actionsOf(ActionGroup group) const {
    std::vector<Ranked> found;
    for (const auto& entry : actionTable()) {
        if (entry.group != group || !entry.isInPalette) continue;
        if (auto ranked = rankedAction(actions_.row(entry.action)))
            found.push_back(std::move(*ranked));
    }
    return found;
}

std::optional<PaletteModel::Ranked> PaletteModel::rankedAction(const ActionRow& action) const {
    auto match = query_.match(action.title);
    if (!action.isEnabled || !match) return std::nullopt;
    // The palette has no group for how the window looks.
    const bool isView = entryOf(action.action).group == ActionGroup::view;
    return Ranked{match->rank,
                  {.groupTitle = isView ? titleOf(ActionGroup::work) : action.groupTitle,
                   .symbol = action.symbol,
                   .parts = std::move(match->parts),
                   .keyCaps = action.keyCaps,
                   .spokenText = spoken(action.title, action.spokenKeys),
                   .kind = PaletteRow::Kind::action,
                   .action = action.action}};
}

std::vector<PaletteModel::Ranked> PaletteModel::placesFound() const {
    std::vector<Ranked> found;
    for (const auto& place : places_) {
        if (auto ranked = rankedPlace(place)) found.push_back(std::move(*ranked));
    }
    std::ranges::stable_sort(found, {}, &Ranked::first);
    if (found.size() > kMostPlaces) found.resize(kMostPlaces);
    return found;
}

std::optional<PaletteModel::Ranked> PaletteModel::rankedPlace(const PalettePlace& place) const {
    auto match = query_.match(place.title);
    if (!match) return std::nullopt;
    return Ranked{match->rank,
                  {.groupTitle = titleOf(ActionGroup::goTo),
                   .symbol = place.symbol,
                   .parts = std::move(match->parts),
                   .note = place.kindLabel,
                   .spokenText = spoken(place.title, place.kindLabel),
                   .kind = PaletteRow::Kind::place,
                   .key = place.key}};
}

/// While a search is under way, those of the one before stay as far as they still fit, so
/// that the list does not jump at every letter.
void PaletteModel::addStories(std::vector<PaletteRow>& rows) const {
    for (const auto number : stories_) {
        const auto place = desk_.stories().placeOf(number);
        if (!place) continue;
        const auto& story = desk_.stories()[*place];
        const auto title = titleText(story.title(), kTitleCharacters);
        if (storiesAreOfText_ || query_.match(title)) rows.push_back(storyRow(story));
    }
    rows.push_back(searchRow());
}

PaletteRow PaletteModel::storyRow(const PackedStory& story) const {
    const auto title = titleText(story.title(), kTitleCharacters);
    const auto note =
        tr("%1, %2").arg(titleText(story.sourceName()), ageText(story.publishedAt(), clock_()));
    auto match = query_.match(title);
    return {.groupTitle = tr("Stories"),
            .symbol = QStringLiteral("doc.text"),
            .parts = match ? std::move(match->parts) : unmatched(title),
            .note = note,
            .spokenText = spoken(title, note),
            .kind = PaletteRow::Kind::story,
            .key = plainText(story.id())};
}

PaletteRow PaletteModel::searchRow() const {
    const auto& search = actions_.row(DeskAction::Search);
    const auto title = tr("Search every story for “%1”").arg(text_.simplified());
    auto match = query_.match(title);
    return {.groupTitle = tr("Stories"),
            .symbol = search.symbol,
            .parts = match ? std::move(match->parts) : unmatched(title),
            .keyCaps = search.keyCaps,
            .spokenText = title,
            .kind = PaletteRow::Kind::search};
}

void PaletteModel::select(int row) {
    const auto last = static_cast<int>(list().size()) - 1;
    const auto place = last < 0 ? -1 : std::clamp(row, 0, last);
    if (place == selected_) return;
    selected_ = place;
    emit selectedChanged();
}

QString PaletteModel::selectedSpokenText() const {
    const auto* row = rows_.row(selected_);
    return row ? row->spokenText : QString();
}

QString PaletteModel::countText() const {
    const auto count = list().size();
    return count == 1 ? tr("1 match") : tr("%1 matches").arg(count);
}

void PaletteModel::runSelected() {
    const auto* selected = rows_.row(selected_);
    if (!selected) return;
    // What is asked for may change the rows.
    const auto row = *selected;
    switch (row.kind) {
        case PaletteRow::Kind::action: emit actionWanted(row.action); break;
        case PaletteRow::Kind::place: emit placeWanted(row.key); break;
        case PaletteRow::Kind::story: emit storyWanted(row.key); break;
        case PaletteRow::Kind::search: emit searchWanted(text_.simplified()); break;
    }
}

}  // namespace app
