#include "Tarnwick_Brell/Models/Sheets/AlertRuleSheetModel.h"

#include <algorithm>
#include <array>
#include <set>

#include <QLocale>

#include "NewsroomKit/Newsrooms/UUID.h"
#include "NewsroomKit/Panels/ProposedTerms.h"
#include "NewsroomKit/Queries/TermList.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Alerts/RuleChanges.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace {

constexpr std::array<std::int64_t, 5> kPauses{0, 5, 30, 60, 240};
constexpr int kMostOutlets = 9;
// From "any" to the firmest.
constexpr std::array kLeastSourcings{kit::Sourcing::unlabeled, kit::Sourcing::rumor,
                                     kit::Sourcing::report, kit::Sourcing::onRecord,
                                     kit::Sourcing::confirmed};

kit::AlertRule emptyRule() { return {.id = kit::UUID::random().text()}; }

void addTo(std::vector<std::string>& words, const std::string& list) {
    for (auto& word : kit::separatedTerms(list)) {
        const auto isThere = [&](const auto& other) { return kit::fold(other) == kit::fold(word); };
        if (std::ranges::none_of(words, isThere)) words.push_back(std::move(word));
    }
}

void removeFrom(std::vector<std::string>* words, int index) {
    if (words && index >= 0 && index < std::ssize(*words)) words->erase(words->begin() + index);
}

QStringList shownWords(const std::vector<std::string>& words) {
    QStringList list;
    for (const auto& word : words) list << titleText(word);
    return list;
}

}  // namespace

std::unique_ptr<SheetModel> AlertRuleSheetModel::make(const DeskStores& stores,
                                                      const QString& ruleID) {
    if (ruleID.isEmpty()) return std::make_unique<AlertRuleSheetModel>(stores, emptyRule(), true);
    const auto* entry = stores.alerts.rules().find(ruleID.toStdString());
    if (!entry || !entry->value) return nullptr;
    return std::make_unique<AlertRuleSheetModel>(stores, *entry->value, false);
}

std::unique_ptr<SheetModel> AlertRuleSheetModel::makeFromStory(const DeskStores& stores,
                                                               const QString& storyID) {
    const auto* story = stores.news.stories().find(storyID.toStdString());
    if (!story) return nullptr;
    auto rule = emptyRule();
    rule.trigger = kit::StoriesTrigger{.query = {.anyTerms = kit::proposedTerms(story->title())}};
    return std::make_unique<AlertRuleSheetModel>(stores, std::move(rule), true);
}

std::unique_ptr<SheetModel> AlertRuleSheetModel::makeFromWords(const DeskStores& stores,
                                                               const QString& words) {
    auto rule = emptyRule();
    // One term: names of companies and devices have commas of their own.
    rule.trigger = kit::SignalsTrigger{.words = {words.toStdString()}};
    return std::make_unique<AlertRuleSheetModel>(stores, std::move(rule), true);
}

std::unique_ptr<SheetModel> AlertRuleSheetModel::makeFromBeat(const DeskStores& stores,
                                                              const QString& beatID) {
    const auto* entry = stores.newsrooms.beats().find(beatID.toStdString());
    if (!entry || !entry->value) return nullptr;
    auto rule = emptyRule();
    rule.name = entry->name;
    rule.trigger = kit::StoriesTrigger{.beat = entry->id};
    return std::make_unique<AlertRuleSheetModel>(stores, std::move(rule), true);
}

std::unique_ptr<SheetModel> AlertRuleSheetModel::makeFromQuote(const DeskStores& stores,
                                                               const QString& symbol) {
    auto rule = emptyRule();
    rule.trigger = kit::PriceTrigger{.symbol = symbol.toStdString()};
    return std::make_unique<AlertRuleSheetModel>(stores, std::move(rule), true);
}

AlertRuleSheetModel::AlertRuleSheetModel(const DeskStores& stores, kit::AlertRule rule, bool isNew)
    : stores_(stores),
      rule_(std::move(rule)),
      isNew_(isNew),
      kinds_(tr("Any kind")),
      rehearsal_(stores) {
    std::vector<FilterOptions::Choice> choices;
    for (const auto& row : kit::enumTable<kit::SignalKind>)
        choices.push_back({std::string(row.raw), labelText(row.label)});
    kinds_.offer(choices);
    if (const auto* wanted = std::get_if<kit::SignalsTrigger>(&rule_.trigger)) {
        std::set<std::string, std::less<>> chosen;
        for (const auto kind : wanted->kinds) chosen.emplace(rawValue(kind));
        kinds_.choose(chosen);
    }
    if (const auto* price = std::get_if<kit::PriceTrigger>(&rule_.trigger)) {
        const auto& condition = price->condition;
        if (const auto number = condition.price ? condition.price : condition.percent)
            figure_ = QLocale().toString(*number);
        if (condition.minutes) within_ = QString::number(*condition.minutes);
    }
    connect(&kinds_, &FilterOptions::changed, this, &AlertRuleSheetModel::readKinds);
    connect(&stores.alerts, &AlertStore::rulesChanged, this, &AlertRuleSheetModel::update);
    update();
}

void AlertRuleSheetModel::update() {
    const auto rule = finished();
    rehearsal_.setRule(rule);
    problem_ = ruleProblem(stores_, rule);
    if (problem_.isEmpty() && trigger() == Price) problem_ = symbolProblem_;
    emit changed();
}

/// As it would be stored: a word that has been typed but not ended counts.
kit::AlertRule AlertRuleSheetModel::finished() const {
    auto rule = rule_;
    rule.name = kit::trimWhitespaceAndNewlines(rule_.name);
    if (auto* stories = std::get_if<kit::StoriesTrigger>(&rule.trigger))
        addTo(stories->query.anyTerms, typed_);
    if (auto* wanted = std::get_if<kit::SignalsTrigger>(&rule.trigger))
        addTo(wanted->words, typed_);
    return rule;
}

QString AlertRuleSheetModel::name() const { return plainText(rule_.name); }

void AlertRuleSheetModel::setName(const QString& name) {
    if (name == this->name()) return;
    rule_.name = name.toStdString();
    update();
}

void AlertRuleSheetModel::setIsOn(bool on) {
    rule_.on = on;
    update();
}

QStringList AlertRuleSheetModel::triggers() const {
    return {tr("Stories"), tr("Signals"), tr("A price")};
}

void AlertRuleSheetModel::setTrigger(int trigger) {
    if (trigger == this->trigger()) return;
    const auto words = listOf(false), excluded = listOf(true);
    switch (trigger) {
        case Stories:
            rule_.trigger =
                kit::StoriesTrigger{.query = {.anyTerms = words, .excludedTerms = excluded}};
            break;
        case Signals:
            rule_.trigger = kit::SignalsTrigger{.words = words, .excludedWords = excluded};
            readKinds();
            break;
        case Price:
            rule_.trigger = kit::PriceTrigger{.symbol = stores_.defaults.focusSymbol()};
            readFigures();
            break;
        default: return;
    }
    update();
}

QString AlertRuleSheetModel::beat() const {
    const auto* stories = std::get_if<kit::StoriesTrigger>(&rule_.trigger);
    if (!stories || !stories->beat) return {};
    const auto* entry = stores_.newsrooms.beats().find(*stories->beat);
    return entry ? titleText(entry->name) : tr("a beat that was removed");
}

std::vector<std::string>* AlertRuleSheetModel::wordList() {
    if (auto* stories = std::get_if<kit::StoriesTrigger>(&rule_.trigger))
        return &stories->query.anyTerms;
    if (auto* wanted = std::get_if<kit::SignalsTrigger>(&rule_.trigger)) return &wanted->words;
    return nullptr;
}

std::vector<std::string>* AlertRuleSheetModel::excludedList() {
    if (auto* stories = std::get_if<kit::StoriesTrigger>(&rule_.trigger))
        return &stories->query.excludedTerms;
    if (auto* wanted = std::get_if<kit::SignalsTrigger>(&rule_.trigger))
        return &wanted->excludedWords;
    return nullptr;
}

const std::vector<std::string>& AlertRuleSheetModel::listOf(bool excluded) const {
    static const std::vector<std::string> none;
    if (const auto* stories = std::get_if<kit::StoriesTrigger>(&rule_.trigger))
        return excluded ? stories->query.excludedTerms : stories->query.anyTerms;
    if (const auto* wanted = std::get_if<kit::SignalsTrigger>(&rule_.trigger))
        return excluded ? wanted->excludedWords : wanted->words;
    return none;
}

QStringList AlertRuleSheetModel::words() const { return shownWords(listOf(false)); }

QStringList AlertRuleSheetModel::excludedWords() const { return shownWords(listOf(true)); }

void AlertRuleSheetModel::readKinds() {
    auto* wanted = std::get_if<kit::SignalsTrigger>(&rule_.trigger);
    if (!wanted) return;
    wanted->kinds.clear();
    for (const auto& key : kinds_.chosen()) {
        if (const auto kind = kit::enumFromRaw<kit::SignalKind>(key))
            wanted->kinds.push_back(*kind);
    }
    update();
}

QStringList AlertRuleSheetModel::leasts() const {
    if (trigger() == Signals) return {tr("Any"), tr("Notable"), tr("Major")};
    QStringList labels{tr("Any")};
    for (const auto sourcing : kLeastSourcings) {
        if (sourcing != kit::Sourcing::unlabeled) labels << sourcingText(sourcing);
    }
    return labels;
}

int AlertRuleSheetModel::least() const {
    if (const auto* wanted = std::get_if<kit::SignalsTrigger>(&rule_.trigger))
        return static_cast<int>(wanted->leastWeight);
    if (const auto* stories = std::get_if<kit::StoriesTrigger>(&rule_.trigger)) {
        const auto least = stories->leastSourcing.value_or(kit::Sourcing::unlabeled);
        return static_cast<int>(std::ranges::find(kLeastSourcings, least) -
                                kLeastSourcings.begin());
    }
    return 0;
}

void AlertRuleSheetModel::setLeast(int least) {
    if (least < 0 || least >= leasts().size()) return;
    if (auto* wanted = std::get_if<kit::SignalsTrigger>(&rule_.trigger))
        wanted->leastWeight = static_cast<kit::SignalWeight>(least);
    if (auto* stories = std::get_if<kit::StoriesTrigger>(&rule_.trigger)) {
        stories->leastSourcing.reset();
        if (least > 0) stories->leastSourcing = kLeastSourcings[static_cast<std::size_t>(least)];
    }
    update();
}

int AlertRuleSheetModel::outlets() const {
    const auto* stories = std::get_if<kit::StoriesTrigger>(&rule_.trigger);
    return stories ? static_cast<int>(stories->outlets.value_or(1)) : 1;
}

void AlertRuleSheetModel::setOutlets(int outlets) {
    auto* stories = std::get_if<kit::StoriesTrigger>(&rule_.trigger);
    if (!stories || outlets < 1 || outlets > kMostOutlets) return;
    stories->outlets.reset();
    if (outlets > 1) stories->outlets = outlets;
    update();
}

template <class Member, class Value>
void AlertRuleSheetModel::setDelivery(Member member, Value value) {
    if (rule_.delivery.*member == value) return;
    rule_.delivery.*member = value;
    update();
}

void AlertRuleSheetModel::setIsQuiet(bool quiet) {
    setDelivery(&kit::AlertDelivery::how,
                quiet ? kit::AlertDelivery::How::quiet : kit::AlertDelivery::How::notify);
}

void AlertRuleSheetModel::setRespectsQuietHours(bool respects) {
    setDelivery(&kit::AlertDelivery::respectsQuietHours, respects);
}

QStringList AlertRuleSheetModel::pauses() const {
    QStringList labels{tr("Any number")};
    for (const auto minutes : kPauses) {
        if (minutes > 0) labels << tr("%1 min").arg(minutes);
    }
    return labels;
}

/// The next shorter one where another program has chosen other minutes.
int AlertRuleSheetModel::pause() const {
    const auto minutes = rule_.delivery.minutes.value_or(0);
    return static_cast<int>(std::ranges::upper_bound(kPauses, minutes) - kPauses.begin()) - 1;
}

void AlertRuleSheetModel::setPause(int pause) {
    if (pause < 0 || pause >= std::ssize(kPauses)) return;
    std::optional<std::int64_t> minutes;
    if (pause > 0) minutes = kPauses[static_cast<std::size_t>(pause)];
    setDelivery(&kit::AlertDelivery::minutes, minutes);
}

void AlertRuleSheetModel::setSound(bool sound) { setDelivery(&kit::AlertDelivery::sound, sound); }

void AlertRuleSheetModel::setOnce(bool once) { setDelivery(&kit::AlertDelivery::once, once); }

void AlertRuleSheetModel::addWords(const QString& list) {
    typed_.clear();
    if (auto* words = wordList()) addTo(*words, list.toStdString());
    update();
}

void AlertRuleSheetModel::removeWord(int index) {
    removeFrom(wordList(), index);
    update();
}

void AlertRuleSheetModel::setTyped(const QString& text) {
    typed_ = text.toStdString();
    update();
}

void AlertRuleSheetModel::addExcludedWords(const QString& list) {
    if (auto* words = excludedList()) addTo(*words, list.toStdString());
    update();
}

void AlertRuleSheetModel::removeExcludedWord(int index) {
    removeFrom(excludedList(), index);
    update();
}

void AlertRuleSheetModel::save() {
    update();
    if (!problem_.isEmpty()) return;
    putRule(stores_, finished());
    emit closeWanted();
}

void AlertRuleSheetModel::remove() {
    removeRule(stores_, rule_.id);
    emit closeWanted();
}

}  // namespace app
