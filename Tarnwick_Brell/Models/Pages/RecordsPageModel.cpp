#include "Tarnwick_Brell/Models/Pages/RecordsPageModel.h"

#include <algorithm>
#include <utility>

#include "Tarnwick_Brell/Models/Pages/RecordLines.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Trackers/TrackedFilings.h"

namespace app {

namespace {

constexpr std::string_view kLooksKey = "recordsLookedAt";
constexpr std::array<const char*, 4> kTabKeys{"filings", "insiders", "court", "press"};

}  // namespace

RecordsPageModel::RecordsPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Filings & court")) {
    readLooks();
    const auto reload = [this] { load(); };
    connect(&trackers(), &TrackerStore::filingsChanged, this, reload);
    connect(&trackers(), &TrackerStore::courtChanged, this, reload);
    connect(&trackers(), &TrackerStore::pressChanged, this, reload);
    connect(&stores.defaults, &Defaults::changed, this, reload);
    load();
}

void RecordsPageModel::readLooks() {
    const auto memory = stores().defaults.memory(kLooksKey);
    for (std::size_t i = 0; i < kTabKeys.size(); ++i) {
        const auto found = memory ? memory->find(kTabKeys[i]) : Defaults::Memory::const_iterator();
        if (memory && found != memory->end()) looks_[i] = kit::parseISO8601(found->second);
    }
}

/// What was new when the page was opened stays marked until it is left.
void RecordsPageModel::look() {
    lookedAt_.insert(tab_);
    auto memory = stores().defaults.memory(kLooksKey).value_or(Defaults::Memory());
    memory[kTabKeys[tab_]] = kit::iso8601Text(now());
    stores().defaults.remember(kLooksKey, memory);
}

void RecordsPageModel::load() {
    reading_.start([library = stores().library] { return recordsContent(readRecords(library)); },
                   [this](RecordsContent content) { show(std::move(content)); },
                   [this](const QString& sentence) {
                       setCondition({.state = isRead_ ? Stale : Failed, .message = sentence});
                   });
}

void RecordsPageModel::show(RecordsContent content) {
    content_ = std::move(content);
    isRead_ = true;
    look();
    update();
}

void RecordsPageModel::retry() {
    switch (tab_) {
        case Filings:
        case Insiders: trackers().refresh(Tracker::filings); break;
        case Court: trackers().refresh(Tracker::court); break;
        case Press: trackers().refresh(Tracker::press); break;
    }
    load();
}

QStringList RecordsPageModel::tabs() const {
    return {tr("Filings"), tr("Insiders"), tr("Court"), tr("Press")};
}

void RecordsPageModel::setTab(Tab tab) {
    if (tab == tab_) return;
    tab_ = tab;
    resetFilter();
    row_ = -1;
    look();
    update();
}

void RecordsPageModel::resetFilter() {
    words_.clear();
    name_ = kind_ = 0;
}

void RecordsPageModel::setWords(const QString& words) {
    if (words == words_) return;
    words_ = words;
    update();
}

QString RecordsPageModel::nameLabel() const {
    switch (tab_) {
        case Filings:
        case Press: return tr("Company");
        case Insiders: return tr("Person");
        case Court: break;
    }
    return {};
}

QString RecordsPageModel::kindLabel() const {
    return tab_ == Filings ? tr("Form") : tab_ == Insiders ? tr("Routine: left out") : QString();
}

void RecordsPageModel::setName(int place) {
    if (place == name_ || place < 0 || place >= names_.size()) return;
    name_ = place;
    update();
}

void RecordsPageModel::setKind(int place) {
    if (place == kind_ || place < 0 || place >= kinds_.size()) return;
    kind_ = place;
    update();
}

void RecordsPageModel::showFilter(std::vector<std::string> names, std::vector<std::string> kinds) {
    const auto fill = [](std::vector<std::string>& keys, QStringList& shown, const QString& all,
                         std::vector<std::string> found, int& place) {
        const auto chosen = place > 0 && place <= std::ssize(keys)
                                ? keys[static_cast<std::size_t>(place - 1)]
                                : std::string();
        keys = namesIn(std::move(found));
        shown = {all};
        for (const auto& key : keys) shown << titleText(key);
        const auto again = std::ranges::find(keys, chosen);
        place =
            chosen.empty() || again == keys.end() ? 0 : static_cast<int>(again - keys.begin()) + 1;
    };
    fill(nameKeys_, names_, tab_ == Insiders ? tr("All persons") : tr("All companies"),
         std::move(names), name_);
    if (tab_ == Insiders) {
        kinds_ = {tr("Leave routine out"), tr("Routine too")};
    } else {
        fill(kindKeys_, kinds_, tr("All forms"), std::move(kinds), kind_);
    }
}

void RecordsPageModel::update() {
    if (!isRead_) return;
    updateCounts();
    switch (tab_) {
        case Filings: updateFilings(); break;
        case Insiders: updateInsiders(); break;
        case Court: updateCourt(); break;
        case Press: updatePress(); break;
    }
    choose();
    updateFoot();
    setCondition({.state = Ready});
}

void RecordsPageModel::updateFilings() {
    std::vector<std::string> companies, forms;
    for (const auto& row : content_.filings) {
        companies.push_back(row.company);
        forms.push_back(row.filing.form);
    }
    showFilter(std::move(companies), std::move(forms));
    const auto words = filterOf(words_);
    filingRows_.clear();
    for (const auto& row : content_.filings) {
        if (name_ > 0 && row.company != nameKeys_[static_cast<std::size_t>(name_ - 1)]) continue;
        if (kind_ > 0 && row.filing.form != kindKeys_[static_cast<std::size_t>(kind_ - 1)])
            continue;
        if (words.matches({row.company, row.symbol, row.filing.form, row.words, row.headline}))
            filingRows_.push_back(row);
    }
    filings_.setRows(filingLines(filingRows_, looks_[Filings], now()));
    updateNothing(filingRows_.empty(), !content_.filings.empty());
}

void RecordsPageModel::updateInsiders() {
    std::vector<std::string> persons;
    for (const auto& row : content_.insiders) persons.push_back(row.person);
    showFilter(std::move(persons), {});
    const auto words = filterOf(words_);
    const bool showsAll = kind_ > 0;
    insiderRows_.clear();
    for (const auto& row : content_.insiders) {
        const bool isPlain = row.isDecision || (row.sums.empty() && row.notice);
        if (!showsAll && !isPlain) continue;
        if (name_ > 0 && row.person != nameKeys_[static_cast<std::size_t>(name_ - 1)]) continue;
        if (words.matches({row.person, row.title.value_or(""), row.company}))
            insiderRows_.push_back(row);
    }
    insiders_.setRows(insiderLines(insiderRows_, showsAll, now(), insiderPlaces_));
    updateNothing(insiderRows_.empty(), !content_.insiders.empty());
}

void RecordsPageModel::updatePress() {
    std::vector<std::string> companies;
    for (const auto& row : content_.press) companies.push_back(row.company);
    showFilter(std::move(companies), {});
    const auto words = filterOf(words_);
    pressRows_.clear();
    for (const auto& row : content_.press) {
        if (name_ > 0 && row.company != nameKeys_[static_cast<std::size_t>(name_ - 1)]) continue;
        if (words.matches({row.company, row.item.release.title, row.item.release.summary}))
            pressRows_.push_back(row);
    }
    press_.setRows(pressLines(pressRows_, looks_[Press], now()));
    updateNothing(pressRows_.empty(), !content_.press.empty());
}

void RecordsPageModel::updateCounts() {
    const auto isNew = [&](Tab tab, kit::Instant seen) {
        const auto& look = looks_[static_cast<std::size_t>(tab)];
        return !lookedAt_.contains(tab) && look && seen > *look;
    };
    counts_ = {};
    for (const auto& row : content_.filings) counts_[Filings] += isNew(Filings, row.seenAt);
    for (const auto& filing : content_.held.filings)
        counts_[Insiders] += (filing.trades || filing.notice) && isNew(Insiders, filing.seenAt);
    for (const auto& seen : content_.held.entries)
        counts_[Court] +=
            seen.entry.weight == kit::DocketWeight::matters && isNew(Court, seen.firstSeen);
    for (const auto& row : content_.press) counts_[Press] += isNew(Press, row.item.firstSeen);
}

void RecordsPageModel::updateNothing(bool isEmpty, bool hasAny) {
    nothingShown_.clear();
    nothingAction_.clear();
    if (!isEmpty) return;
    const bool isFilings = tab_ == Filings || tab_ == Insiders;
    if (hasAny) {
        nothingShown_ = tr("Nothing here matches the filters.");
        nothingAction_ = tr("Show all");
    } else if (isFilings && stores().defaults.contactAddress().empty()) {
        nothingShown_ = titleText(kNoContactAddress, kExcerptCharacters);
        nothingAction_ = tr("Settings…");
    } else if (tab_ == Filings) {
        nothingShown_ = tr("No filing has been seen yet.");
    } else if (tab_ == Insiders) {
        nothingShown_ = tr("No trade of an insider has been seen yet.");
    } else if (tab_ == Court) {
        nothingShown_ = tr("No case is followed yet.");
    } else {
        nothingShown_ =
            tr("No release of Apple or of a company that is followed has been seen yet.");
    }
}

void RecordsPageModel::actOnNothing() {
    if (stores().defaults.contactAddress().empty() && words_.isEmpty() && name_ == 0 &&
        kind_ == 0) {
        emit sheetWanted(QStringLiteral("settings"));
        return;
    }
    resetFilter();
    update();
}

void RecordsPageModel::updateFoot() {
    const auto tracker = tab_ == Court   ? Tracker::court
                         : tab_ == Press ? Tracker::press
                                         : Tracker::filings;
    QStringList parts;
    for (const auto& file : trackers().fileStates()) {
        if (file.tracker == tracker && file.error)
            parts << tr("%1: %2").arg(titleText(file.title),
                                      titleText(*file.error, kExcerptCharacters));
    }
    if (parts.size() > 1)
        parts = {parts.front(), tr("And %n more.", nullptr, int(parts.size()) - 1)};
    if (parts.isEmpty()) {
        switch (tab_) {
            case Filings:
                parts << tr("Times are New York’s unless said. Opening one shows both.");
                break;
            case Insiders:
                parts << tr(
                    "What a person did within three days is one row; a notice is joined "
                    "with the sale that it announced.");
                break;
            case Court:
                parts << (stores().defaults.courtListenerToken().empty()
                              ? tr("New cases are searched for once the settings have a token of "
                                   "CourtListener.")
                              : tr("New cases are those with Apple as a party."));
                break;
            case Press: parts << tr("Law firms’ notices to investors are left out."); break;
        }
    }
    footText_ = parts.join(u' ');
}

int RecordsPageModel::rowCount() const {
    switch (tab_) {
        case Filings: return static_cast<int>(filings_.rows().size());
        case Insiders: return static_cast<int>(insiders_.rows().size());
        case Court: return static_cast<int>(cases_.rows().size());
        case Press: return static_cast<int>(press_.rows().size());
    }
    return 0;
}

std::string RecordsPageModel::keyOf(int row) const {
    if (row < 0 || row >= rowCount()) return {};
    const auto place = static_cast<std::size_t>(row);
    switch (tab_) {
        case Filings: return filingRows_[place].filing.accession;
        case Insiders: {
            const auto& insider = insiderRows_[insiderPlaces_[place]];
            return insider.person + insider.lastDay + insiders_.rows()[place].did.toStdString();
        }
        case Court:
            return place < caseRows_.size()
                       ? caseRows_[place].followed.feed
                       : std::to_string(newCases_[place - caseRows_.size()].found.docket);
        case Press: return pressRows_[place].item.release.title;
    }
    return {};
}

/// The row that was chosen in the tab before, else the first.
void RecordsPageModel::choose() {
    const auto& wanted = chosen_[tab_];
    row_ = rowCount() > 0 ? 0 : -1;
    for (int row = 0; !wanted.empty() && row < rowCount(); ++row) {
        if (keyOf(row) != wanted) continue;
        row_ = row;
        break;
    }
    showChosen();
}

void RecordsPageModel::setRow(int row) {
    if (row == row_ || row < -1 || row >= rowCount()) return;
    row_ = row;
    chosen_[tab_] = keyOf(row);
    showChosen();
    emit changed();
}

}  // namespace app
