#include "Tarnwick_Brell/Models/Sheets/SettingsSheetModel.h"

#include <algorithm>
#include <array>
#include <iterator>

#include <QLocale>
#include <QPointer>

#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Alerts/QuietSettings.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Actions/PaletteMatch.h"
#include "Tarnwick_Brell/Models/Alerts/RuleChanges.h"
#include "Tarnwick_Brell/Models/Beats/BeatChanges.h"
#include "Tarnwick_Brell/Models/Settings/DeskHealth.h"
#include "Tarnwick_Brell/Models/Settings/SettingChange.h"
#include "Tarnwick_Brell/Models/Settings/SettingFacts.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace {

using Section = SettingKey::Section;
using Type = SettingKey::Type;

constexpr int kLongestValue = 2000;

struct SettingSection {
    Section section;
    const char* title;
    const char* symbol;
};

// clang-format off
constexpr std::array<SettingSection, 8> kSections{{
    {Section::general, QT_TRANSLATE_NOOP("app::SettingsSheetModel", "General"), "slider.horizontal.3"},
    {Section::appearance, QT_TRANSLATE_NOOP("app::SettingsSheetModel", "Appearance"), "sun.max"},
    {Section::sources, QT_TRANSLATE_NOOP("app::SettingsSheetModel", "Sources"), "globe"},
    {Section::alerts, QT_TRANSLATE_NOOP("app::SettingsSheetModel", "Alerts"), "bell"},
    {Section::trackers, QT_TRANSLATE_NOOP("app::SettingsSheetModel", "Trackers"), "waveform.path.ecg"},
    {Section::library, QT_TRANSLATE_NOOP("app::SettingsSheetModel", "Library"), "archivebox"},
    {Section::privacy, QT_TRANSLATE_NOOP("app::SettingsSheetModel", "Privacy"), "shield.lefthalf.filled"},
    {Section::about, QT_TRANSLATE_NOOP("app::SettingsSheetModel", "About"), "info.circle"},
}};
// clang-format on

QString titleOf(Section section) {
    const auto found = std::ranges::find(kSections, section, &SettingSection::section);
    return SettingsSheetModel::tr(found->title);
}

QString capitalised(QString text) {
    if (!text.isEmpty()) text[0] = text[0].toUpper();
    return text;
}

/// "minutes between two refreshes" as a sentence.
QString sentenceOf(std::string_view meaning) {
    return capitalised(labelText(meaning, kExcerptCharacters)) + u'.';
}

bool isChanged(const Defaults& defaults, const SettingKey& key) {
    return defaults.text(key.name).value_or(std::string(key.absent)) != key.absent;
}

QString valueText(const SettingKey& key, const std::string& value) {
    if (key.type == Type::truthValue)
        return value == "true" ? SettingsSheetModel::tr("on") : SettingsSheetModel::tr("off");
    if (key.type == Type::choice) return capitalised(labelText(value));
    return titleText(key.shown(value), kLongestValue);
}

}  // namespace

std::unique_ptr<SheetModel> SettingsSheetModel::make(const DeskStores& stores,
                                                     const QString& subject) {
    auto sheet = std::make_unique<SettingsSheetModel>(stores);
    if (subject == u"library") {
        const auto place = std::ranges::find(kSections, Section::library, &SettingSection::section);
        sheet->setSection(static_cast<int>(place - kSections.begin()));
        sheet->checkLibrary();
    }
    return sheet;
}

SettingsSheetModel::SettingsSheetModel(const DeskStores& stores)
    : stores_(stores), library_(stores.library, stores.clock) {
    std::vector<SettingSectionRow> rows;
    for (const auto& section : kSections)
        rows.push_back({.title = tr(section.title), .symbol = QString::fromLatin1(section.symbol)});
    sections_.setRows(std::move(rows));
    connect(&stores.defaults, &Defaults::changed, this, &SettingsSheetModel::update);
    connect(&stores.newsrooms, &NewsroomStore::beatsChanged, this, &SettingsSheetModel::update);
    connect(&stores.alerts, &AlertStore::rulesChanged, this, &SettingsSheetModel::update);
    connect(&stores.alerts, &AlertStore::logChanged, this, &SettingsSheetModel::update);
    connect(&library_, &LibraryStatus::changed, this, &SettingsSheetModel::update);
    connect(&stores.news, &NewsDesk::sourcesChanged, this, &SettingsSheetModel::update);
    update();
}

void SettingsSheetModel::update() {
    std::vector<SettingRow> rows;
    for (const auto& key : Defaults::keys()) {
        if (isWanted(key)) rows.push_back(rowOf(key));
    }
    std::ranges::move(rowsOfSection(), std::back_inserter(rows));
    settings_.setRows(std::move(rows));
    emit changed();
}

bool SettingsSheetModel::isWanted(const SettingKey& key) const {
    if (showsChanged_) return isChanged(stores_.defaults, key);
    if (!isMixed()) return key.section == kSections[static_cast<std::size_t>(section_)].section;
    const auto text = QStringList{labelText(key.title), sentenceOf(key.meaning),
                                  titleOf(key.section), plainText(key.name)};
    return PaletteQuery(searched_).match(text.join(u' ')).has_value();
}

SettingRow SettingsSheetModel::rowOf(const SettingKey& key) const {
    const auto stored = stores_.defaults.text(key.name);
    const std::string standard(key.absent);
    const auto value = stored.value_or(standard);
    SettingRow row{.title = labelText(key.title),
                   .meaning = sentenceOf(key.meaning),
                   .value = titleText(key.shown(value), kLongestValue),
                   .isNumber = key.type == Type::wholeNumber,
                   .isOn = value == "true",
                   .isChanged = value != standard,
                   .key = std::string(key.name)};
    if (key.type == Type::truthValue) row.control = SettingControl::Switch;
    if (key.type == Type::choice) {
        row.control = SettingControl::Choice;
        for (const auto choice : key.choices) row.choices << capitalised(labelText(choice));
        const auto place = std::ranges::find(key.choices, value);
        if (place != key.choices.end()) row.choice = static_cast<int>(place - key.choices.begin());
    }
    if (key.type == Type::weekdays) {
        row.control = SettingControl::Days;
        for (int day = 1; day <= 7; ++day)
            row.choices << QLocale().standaloneDayName(day, QLocale::ShortFormat);
        for (const auto day : weekdaysNamed(value)) row.days << day;
    }
    if (key.name == SettingKey::kQuietHours && row.isOn)
        row.band = quietBand(stores_.defaults, stores_.clock());
    if (key.effect == SettingKey::Effect::atNextStart)
        row.meaning += u' ' + tr("It takes effect when the program starts again.");
    row.standard =
        standard.empty() ? tr("Default: none") : tr("Default: %1").arg(valueText(key, standard));
    if (isMixed()) row.section = titleOf(key.section);
    if (const auto problem = problems_.find(row.key); problem != problems_.end())
        row.problem = problem->second;
    return row;
}

std::vector<SettingRow> SettingsSheetModel::rowsOfSection() const {
    if (isMixed()) return {};
    switch (kSections[static_cast<std::size_t>(section_)].section) {
        case Section::alerts: return alertRows(stores_);
        case Section::library: return libraryRows(library_, asked_, stores_.clock());
        case Section::privacy: return privacyFacts(stores_, fetches_);
        case Section::about: {
            auto rows = aboutFacts();
            rows.insert(rows.end(), health_.begin(), health_.end());
            return rows;
        }
        default: return {};
    }
}

void SettingsSheetModel::setSection(int section) {
    if (section < 0 || section >= std::ssize(kSections)) return;
    section_ = section;
    searched_.clear();
    showsChanged_ = false;
    asked_.reset();
    if (kSections[static_cast<std::size_t>(section)].section == Section::about)
        health_ = healthFacts(stores_);
    if (kSections[static_cast<std::size_t>(section)].section == Section::privacy) countFetches();
    update();
}

void SettingsSheetModel::countFetches() {
    const QPointer<SettingsSheetModel> self(this);
    stores_.news.countTries([self](const auto& fetches) {
        if (!self) return;
        self->fetches_ = fetches;
        self->update();
    });
}

void SettingsSheetModel::setShowsChanged(bool shows) {
    searched_.clear();
    showsChanged_ = shows;
    update();
}

void SettingsSheetModel::setSearched(const QString& text) {
    if (text == searched_) return;
    searched_ = text;
    showsChanged_ = false;
    update();
}

QString SettingsSheetModel::title() const {
    if (showsChanged_) return tr("Changed from the default");
    return isMixed() ? tr("Settings found: %1").arg(settings_.rowCount())
                     : tr(kSections[static_cast<std::size_t>(section_)].title);
}

bool SettingsSheetModel::isLibrary() const {
    return !isMixed() && kSections[static_cast<std::size_t>(section_)].section == Section::library;
}

QString SettingsSheetModel::changedCount() const {
    const auto count = std::ranges::count_if(
        Defaults::keys(), [&](const SettingKey& key) { return isChanged(stores_.defaults, key); });
    return tr("Every setting works at once. Changed from the default: %1")
        .arg(static_cast<int>(count));
}

void SettingsSheetModel::setValue(int row, const QString& value) {
    const auto* setting = settings_.row(row);
    if (!setting || setting->key.empty()) return;
    const auto name = setting->key;
    const auto problem =
        changeSetting(stores_, *Defaults::key(name), value.trimmed().toStdString());
    if (problem.isEmpty()) {
        problems_.erase(name);
    } else {
        problems_[name] = problem;
    }
    update();
}

void SettingsSheetModel::setOn(int row, bool on) {
    const auto* setting = settings_.row(row);
    if (setting && !setting->beatID.empty())
        setAlerts(std::string(setting->beatID), on);
    else if (setting && !setting->ruleID.empty())
        switchRule(std::string(setting->ruleID), on);
    else
        setValue(row, on ? QStringLiteral("true") : QStringLiteral("false"));
}

void SettingsSheetModel::choose(int row, int choice) {
    const auto* setting = settings_.row(row);
    if (!setting || setting->key.empty()) return;
    const auto choices = Defaults::key(setting->key)->choices;
    if (choice >= 0 && choice < std::ssize(choices))
        setValue(row, plainText(choices[static_cast<std::size_t>(choice)]));
}

void SettingsSheetModel::toggleDay(int row, int day) {
    const auto* setting = settings_.row(row);
    if (!setting || setting->control != SettingControl::Days) return;
    auto days = weekdaysNamed(stores_.defaults.value(setting->key));
    if (day < 0 || day >= std::ssize(days)) return;
    auto& isChosen = days[static_cast<std::size_t>(day)];
    isChosen = !isChosen;
    setValue(row, plainText(weekdaysText(days)));
}

void SettingsSheetModel::setAlerts(const std::string& beatID, bool on) {
    const auto* entry = stores_.newsrooms.beats().find(beatID);
    if (!entry || !entry->value) return;
    auto beat = *entry->value;
    beat.alerts = on;
    putBeat(stores_, beat);
}

void SettingsSheetModel::switchRule(const std::string& ruleID, bool on) {
    const auto* entry = stores_.alerts.rules().find(ruleID);
    if (!entry || !entry->value) return;
    auto rule = *entry->value;
    rule.on = on;
    putRule(stores_, rule);
}

void SettingsSheetModel::act(int row) {
    const auto* setting = settings_.row(row);
    if (setting && !setting->sheet.isEmpty()) {
        emit sheetWanted(setting->sheet);
        return;
    }
    if (!setting || !setting->work || isLibraryBusy()) return;
    const auto work = *setting->work;
    if (work == asked_) {
        emit libraryWorkWanted(work);
        return;
    }
    asked_ = work;
    update();
}

void SettingsSheetModel::reset(int row) { setValue(row, QString()); }

}  // namespace app
