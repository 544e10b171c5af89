#include "Tarnwick_Brell/Models/Sheets/PanelOptionsSheetModel.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "NewsroomKit/Newsrooms/PanelEditing.h"
#include "NewsroomKit/Trackers/Market/StockQuote.h"
#include "Tarnwick_Brell/Models/Newsrooms/TypedTerms.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

PanelOptionsSheetModel::PanelOptionsSheetModel(const DeskStores& stores, const QString& subject)
    : stores_(stores),
      steps_(stores.newsrooms, stores.undo),
      newsroomID_(subject.section(u'/', 0, 0).toStdString()),
      panelID_(subject.section(u'/', 1).toStdString()),
      count_(stores) {
    settings_ = kit::settingsOf(panel().kind);
    connect(&count_, &QueryCount::changed, this, &PanelOptionsSheetModel::countChanged);
    connect(&stores_.newsrooms, &NewsroomStore::newsroomsChanged, this,
            &PanelOptionsSheetModel::update);
    update();
}

const kit::NewsroomSpec* PanelOptionsSheetModel::spec() const {
    const auto* entry = stores_.newsrooms.newsrooms().find(newsroomID_);
    return entry && entry->value ? &*entry->value : nullptr;
}

/// Past the end when the panel is gone.
std::size_t PanelOptionsSheetModel::index() const {
    if (!spec()) return 0;
    const auto& panels = spec()->panels;
    const auto found = std::find_if(panels.begin(), panels.end(),
                                    [&](const auto& each) { return each.id.text() == panelID_; });
    return static_cast<std::size_t>(found - panels.begin());
}

kit::PanelSpec PanelOptionsSheetModel::panel() const {
    return spec() && index() < spec()->panels.size() ? spec()->panels[index()] : kit::PanelSpec();
}

/// The panel may have been removed by a step or by another program.
void PanelOptionsSheetModel::update() {
    if (!spec() || index() == spec()->panels.size()) {
        emit closeWanted();
        return;
    }
    const auto shown = panel();
    std::vector<PlatformChoice> platforms;
    if (settings_.platforms) {
        auto names = kit::PanelOptions().platforms;
        for (const auto& name : shown.options.platforms)
            if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
        for (const auto& name : names) {
            const auto& chosen = shown.options.platforms;
            platforms.push_back(
                {titleText(name), std::find(chosen.begin(), chosen.end(), name) != chosen.end()});
        }
    }
    platforms_.setRows(std::move(platforms));
    if (settings_.query) count_.setQuery(spec()->effectiveQuery(shown));
    emit changed();
}

void PanelOptionsSheetModel::apply(
    const std::function<kit::NewsroomSpec(const kit::NewsroomSpec&)>& change, const QString& text) {
    if (!spec() || index() == spec()->panels.size()) return;
    try {
        auto after = change(*spec());
        kit::NewsroomLimits::require(after);
        steps_.change(std::move(after), text.arg(title()));
    } catch (const kit::RecordError& error) {
        emit noticed(tr("The panel can't be changed so: %1.").arg(bodyText(error.what())));
        emit changed();
    }
}

void PanelOptionsSheetModel::edit(const std::function<void(kit::PanelSpec&)>& change) {
    apply(
        [&](auto spec) {
            change(spec.panels[index()]);
            return spec;
        },
        tr("Change panel %1"));
}

QString PanelOptionsSheetModel::description() const {
    return labelText(kindRow(panel().kind).description, 120);
}

QString PanelOptionsSheetModel::title() const { return titleText(panel().title); }

void PanelOptionsSheetModel::setTitle(const QString& title) {
    const auto text = title.trimmed().toStdString();
    if (text.empty()) return emit changed();
    edit([&](auto& panel) { panel.title = text; });
}

bool PanelOptionsSheetModel::hasOwnQuery() const { return panel().query.has_value(); }

void PanelOptionsSheetModel::setOwnQuery(bool own) {
    if (own == hasOwnQuery() || !spec()) return;
    const auto focus = spec()->focus;
    edit([&](auto& panel) { panel.query = own ? std::optional(focus) : std::nullopt; });
}

QStringList PanelOptionsSheetModel::words() const {
    const auto query = panel().query;
    return query ? shownTerms(query->anyTerms) : QStringList();
}

void PanelOptionsSheetModel::addWords(const QString& text) {
    edit([&](auto& panel) {
        if (panel.query) addTypedTerms(panel.query->anyTerms, text);
    });
}

void PanelOptionsSheetModel::removeWord(int index) {
    edit([&](auto& panel) {
        if (panel.query) removeTermAt(panel.query->anyTerms, index);
    });
}

QString PanelOptionsSheetModel::focusText() const {
    if (!spec()) return {};
    const auto words = shownTerms(spec()->focus.anyTerms);
    if (spec()->focus.isEmpty()) return tr("The newsroom shows all stories.");
    return words.isEmpty() ? tr("The newsroom's focus names sources, not words.")
                           : words.join(QStringLiteral(", "));
}

QStringList PanelOptionsSheetModel::eventTerms() const {
    return shownTerms(panel().options.eventTerms);
}

void PanelOptionsSheetModel::addEventTerms(const QString& text) {
    edit([&](auto& panel) { addTypedTerms(panel.options.eventTerms, text); });
}

void PanelOptionsSheetModel::removeEventTerm(int index) {
    edit([&](auto& panel) { removeTermAt(panel.options.eventTerms, index); });
}

QStringList PanelOptionsSheetModel::ranges() const {
    return {tr("1D"), tr("1W"), tr("1M"), tr("1Y")};
}

int PanelOptionsSheetModel::range() const {
    return static_cast<int>(kit::enumFromRaw<kit::QuoteRange>(panel().options.stockRange)
                                .value_or(kit::QuoteRange::month));
}

void PanelOptionsSheetModel::setRange(int range) {
    if (range < 0 || range >= ranges().size()) return;
    edit([&](auto& panel) {
        panel.options.stockRange = rawValue(static_cast<kit::QuoteRange>(range));
    });
}

void PanelOptionsSheetModel::togglePlatform(int row) {
    const auto* platform = platforms_.row(row);
    if (!platform) return;
    const auto name = platform->name.toStdString();
    edit([&](auto& panel) {
        auto& shown = panel.options.platforms;
        const auto found = std::find(shown.begin(), shown.end(), name);
        if (found == shown.end()) {
            shown.push_back(name);
        } else if (shown.size() > 1) {
            shown.erase(found);
        }
    });
}

bool PanelOptionsSheetModel::alerts() const { return panel().options.alerts; }

void PanelOptionsSheetModel::setAlerts(bool alerts) {
    edit([&](auto& panel) { panel.options.alerts = alerts; });
}

void PanelOptionsSheetModel::duplicate() {
    apply([&](const auto& spec) { return kit::PanelEditing::duplicated(spec, index()); },
          tr("Duplicate panel %1"));
    emit closeWanted();
}

std::vector<const kit::NewsroomSpec*> PanelOptionsSheetModel::others() const {
    std::vector<const kit::NewsroomSpec*> others;
    for (const auto& entry : stores_.newsrooms.newsrooms().entries())
        if (entry.value && entry.id != newsroomID_) others.push_back(&*entry.value);
    return others;
}

QStringList PanelOptionsSheetModel::otherNewsrooms() const {
    QStringList names;
    for (const auto* newsroom : others()) names << titleText(newsroom->name);
    return names;
}

void PanelOptionsSheetModel::moveTo(int newsroom) {
    const auto targets = others();
    if (newsroom < 0 || newsroom >= std::ssize(targets) || !spec()) return;
    const auto text = tr("Move panel %1").arg(title());
    const auto from = *spec();
    const auto to = *targets[static_cast<std::size_t>(newsroom)];
    try {
        steps_.change(
            {kit::PanelEditing::received(to, panel()), kit::PanelEditing::removed(from, index())},
            text);
        emit placeWanted(QStringLiteral("newsroom:") + plainText(to.id.text()));
    } catch (const kit::RecordError& error) {
        emit noticed(tr("The panel can't be moved: %1.").arg(bodyText(error.what())));
    }
}

void PanelOptionsSheetModel::remove() {
    apply([&](const auto& spec) { return kit::PanelEditing::removed(spec, index()); },
          tr("Remove panel %1"));
}

}  // namespace app
