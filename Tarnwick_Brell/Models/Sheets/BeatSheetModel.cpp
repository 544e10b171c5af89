#include "Tarnwick_Brell/Models/Sheets/BeatSheetModel.h"

#include <algorithm>

#include "NewsroomKit/Newsrooms/NewsroomSymbols.h"
#include "NewsroomKit/Panels/ProposedTerms.h"
#include "NewsroomKit/Queries/TermList.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Beats/BeatChanges.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

kit::Beat emptyBeat() {
    return {.id = kit::UUID::random(), .symbol = std::string(kit::NewsroomSymbols::fallback)};
}

void addTerms(std::vector<std::string>& terms, const std::string& list) {
    for (auto& term : kit::separatedTerms(list)) {
        const auto isThere = [&](const auto& other) { return kit::fold(other) == kit::fold(term); };
        if (std::ranges::none_of(terms, isThere)) terms.push_back(std::move(term));
    }
}

void removeTerm(std::vector<std::string>& terms, int index) {
    if (index >= 0 && index < std::ssize(terms)) terms.erase(terms.begin() + index);
}

QStringList shown(const std::vector<std::string>& terms) {
    QStringList list;
    for (const auto& term : terms) list << titleText(term);
    return list;
}

}  // namespace

std::unique_ptr<SheetModel> BeatSheetModel::make(const DeskStores& stores, const QString& beatID) {
    if (beatID.isEmpty()) return std::make_unique<BeatSheetModel>(stores, emptyBeat(), true);
    const auto* entry = stores.newsrooms.beats().find(beatID.toStdString());
    if (!entry || !entry->value) return nullptr;
    return std::make_unique<BeatSheetModel>(stores, *entry->value, false);
}

std::unique_ptr<SheetModel> BeatSheetModel::makeFromStory(const DeskStores& stores,
                                                          const QString& storyID) {
    const auto* story = stores.news.stories().find(storyID.toStdString());
    if (!story) return nullptr;
    auto beat = emptyBeat();
    beat.query.anyTerms = kit::proposedTerms(story->title());
    return std::make_unique<BeatSheetModel>(stores, std::move(beat), true);
}

BeatSheetModel::BeatSheetModel(const DeskStores& stores, kit::Beat beat, bool isNew)
    : stores_(stores),
      beat_(std::move(beat)),
      isNew_(isNew),
      draft_{.query = beat_.query},
      sources_(tr("Any source")),
      sourcings_(tr("Any sourcing")),
      preview_(stores.news, stores.clock) {
    offerSources();
    std::vector<FilterOptions::Choice> choices;
    for (const auto& row : kit::enumTable<kit::Sourcing>) {
        const auto label = sourcingText(row.value);
        choices.push_back({std::string(row.raw), label.isEmpty() ? tr("Unlabeled") : label});
    }
    sourcings_.offer(choices);
    std::set<std::string, std::less<>> chosen;
    for (const auto sourcing : beat_.query.sourcings) chosen.emplace(rawValue(sourcing));
    sourcings_.choose(chosen);
    for (auto* options : {&sources_, &sourcings_})
        connect(options, &FilterOptions::changed, this, &BeatSheetModel::readFilters);
    connect(&stores.newsrooms, &NewsroomStore::beatsChanged, this, &BeatSheetModel::update);
    update();
}

/// Also sources of the beat that are gone, which would otherwise be lost.
void BeatSheetModel::offerSources() {
    std::vector<FilterOptions::Choice> choices;
    for (const auto& source : stores_.news.sources())
        choices.push_back({source.id, titleText(source.name)});
    const std::set<std::string, std::less<>> chosen(draft_.query.sourceIDs.begin(),
                                                    draft_.query.sourceIDs.end());
    for (const auto& id : chosen) {
        if (std::ranges::find(choices, id, &FilterOptions::Choice::key) == choices.end())
            choices.push_back({id, titleText(id)});
    }
    sources_.offer(choices);
    sources_.choose(chosen);
}

void BeatSheetModel::readFilters() {
    const auto sources = sources_.chosen();
    draft_.query.sourceIDs.assign(sources.begin(), sources.end());
    draft_.query.sourcings.clear();
    for (const auto& key : sourcings_.chosen()) {
        if (const auto sourcing = kit::enumFromRaw<kit::Sourcing>(key))
            draft_.query.sourcings.push_back(*sourcing);
    }
    update();
}

void BeatSheetModel::update() {
    preview_.setDraft(draft_);
    problem_ = beatProblem(stores_, finished());
    emit changed();
}

/// As it would be stored: a word that has been typed but not ended counts.
kit::Beat BeatSheetModel::finished() const {
    auto beat = beat_;
    beat.query = draft_.query;
    addTerms(beat.query.anyTerms, draft_.typed);
    beat.name = kit::trimWhitespaceAndNewlines(beat_.name);
    if (beat.name.empty() && !beat.query.anyTerms.empty()) {
        beat.name = isNew_ ? stores_.newsrooms.beats().freeName(beat.query.anyTerms.front())
                           : std::string();
    }
    return beat;
}

QString BeatSheetModel::name() const { return plainText(beat_.name); }

void BeatSheetModel::setName(const QString& name) {
    if (name == this->name()) return;
    beat_.name = name.toStdString();
    problem_ = beatProblem(stores_, finished());
    emit changed();
}

QString BeatSheetModel::symbol() const { return plainText(beat_.symbol); }

void BeatSheetModel::setSymbol(const QString& symbol) {
    if (!kit::NewsroomSymbols::contains(symbol.toStdString())) return;
    beat_.symbol = symbol.toStdString();
    emit changed();
}

QStringList BeatSheetModel::symbols() const {
    QStringList symbols;
    for (const auto symbol : kit::NewsroomSymbols::all) symbols << plainText(symbol);
    return symbols;
}

QString BeatSheetModel::proposedName() const { return titleText(finished().name); }

QStringList BeatSheetModel::words() const { return shown(draft_.query.anyTerms); }

QStringList BeatSheetModel::excludedWords() const { return shown(draft_.query.excludedTerms); }

void BeatSheetModel::setIncludesSetAside(bool includes) {
    if (includes == includesSetAside()) return;
    draft_.query.includesSetAside = includes;
    update();
}

void BeatSheetModel::setAlerts(bool alerts) {
    if (alerts == beat_.alerts) return;
    beat_.alerts = alerts;
    emit changed();
}

void BeatSheetModel::addWords(const QString& list) {
    draft_.typed.clear();
    addTerms(draft_.query.anyTerms, list.toStdString());
    update();
}

void BeatSheetModel::removeWord(int index) {
    removeTerm(draft_.query.anyTerms, index);
    update();
}

void BeatSheetModel::setTyped(const QString& text) {
    draft_.typed = text.toStdString();
    update();
}

void BeatSheetModel::addExcludedWords(const QString& list) {
    addTerms(draft_.query.excludedTerms, list.toStdString());
    update();
}

void BeatSheetModel::removeExcludedWord(int index) {
    removeTerm(draft_.query.excludedTerms, index);
    update();
}

void BeatSheetModel::addOtherForm() { addWords(plainText(preview_.otherFormWord())); }

void BeatSheetModel::removeTooMuch() {
    std::erase(draft_.query.anyTerms, preview_.tooMuchWord());
    update();
}

void BeatSheetModel::save() {
    update();
    if (!problem_.isEmpty()) return;
    const auto beat = finished();
    putBeat(stores_, beat);
    if (isNew_)
        emit placeWanted(Destination{Destination::Kind::beat, plainText(beat.id.text())}.key());
    emit closeWanted();
}

void BeatSheetModel::remove() {
    removeBeat(stores_, beat_.id.text());
    emit closeWanted();
}

}  // namespace app
