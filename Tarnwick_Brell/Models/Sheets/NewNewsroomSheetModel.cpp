#include "Tarnwick_Brell/Models/Sheets/NewNewsroomSheetModel.h"

#include <algorithm>
#include <utility>

#include <QFile>
#include <QRect>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "NewsroomKit/Newsrooms/NewsroomSymbols.h"
#include "NewsroomKit/Newsrooms/NewsroomTemplates.h"
#include "Tarnwick_Brell/Models/Newsrooms/TypedTerms.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

PlannedPanel plannedOf(const kit::PanelSpec& panel) {
    return {.title = titleText(panel.title),
            .symbol = plainText(kindRow(panel.kind).symbol),
            .column = static_cast<int>(panel.frame.column),
            .row = static_cast<int>(panel.frame.row),
            .columns = static_cast<int>(panel.frame.width),
            .rows = static_cast<int>(panel.frame.height)};
}

NewsroomChoice choiceOf(const kit::NewsroomTemplate& one) {
    NewsroomChoice choice{.title = labelText(one.name),
                          .symbol = plainText(one.symbol),
                          .description = labelText(one.description, 120)};
    for (const auto& [kind, title, frame] : one.panels) {
        const QRect cell(static_cast<int>(frame.column), static_cast<int>(frame.row),
                         static_cast<int>(frame.width), static_cast<int>(frame.height));
        choice.cells << cell;
        choice.rowsUsed = std::max(choice.rowsUsed, cell.y() + cell.height());
    }
    return choice;
}

}  // namespace

NewNewsroomSheetModel::NewNewsroomSheetModel(const DeskStores& stores, const QString& subject)
    : stores_(stores), steps_(stores.newsrooms, stores.undo), count_(stores) {
    connect(&count_, &QueryCount::changed, this, &NewNewsroomSheetModel::countChanged);
    const auto templates = kit::newsroomTemplates();
    const auto wanted = subject.toStdString();
    const auto found = std::find_if(templates.begin(), templates.end(),
                                    [&](const auto& each) { return each.id == wanted; });
    chooseTemplate(found == templates.end() ? 0 : static_cast<int>(found - templates.begin()));
}

void NewNewsroomSheetModel::setWay(Way way) {
    if (way == way_) return;
    way_ = way;
    if (way == Template) return chooseTemplate(static_cast<int>(template_));
    if (way == File && fileSpec_) {
        take(fileSpec_->focus, plainText(fileSpec_->symbol));
    } else {
        take({}, plainText(kit::NewsroomSymbols::fallback));
    }
}

/// What comes with a template or a file; both can be changed then.
void NewNewsroomSheetModel::take(const kit::StoryQuery& focus, const QString& symbol) {
    focus_ = focus;
    symbol_ = symbol;
    update();
}

void NewNewsroomSheetModel::chooseTemplate(int row) {
    const auto templates = kit::newsroomTemplates();
    if (row < 0 || row >= std::ssize(templates)) return;
    template_ = static_cast<std::size_t>(row);
    way_ = Template;
    take(templates[template_].focusQuery(), plainText(templates[template_].symbol));
}

void NewNewsroomSheetModel::toggleKind(int row) {
    const auto offered = kit::offeredPanelKinds();
    if (row < 0 || row >= std::ssize(offered)) return;
    const auto kind = offered[static_cast<std::size_t>(row)];
    if (std::erase(chosen_, kind) == 0) chosen_.push_back(kind);
    update();
}

void NewNewsroomSheetModel::readFile(const QString& file) {
    const auto url = QUrl(file.trimmed());
    const auto path = url.isLocalFile() ? url.toLocalFile() : file.trimmed();
    fileSpec_.reset();
    fileText_.clear();
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly)) {
        fileText_ = tr("%1 can't be read: %2.").arg(path, source.errorString());
        return update();
    }
    const auto bytes = source.read(static_cast<qint64>(kit::NewsroomLimits::kFileBytes) + 1);
    try {
        fileSpec_ = importedNewsroom({bytes.constData(), static_cast<std::size_t>(bytes.size())},
                                     stores_.newsrooms.newsrooms());
        fileText_ = path;
        take(fileSpec_->focus, plainText(fileSpec_->symbol));
    } catch (const kit::RecordError& error) {
        fileText_ = tr("%1 can't be imported: %2.").arg(path, bodyText(error.what()));
        update();
    }
}

void NewNewsroomSheetModel::setName(const QString& name) {
    if (name == name_) return;
    name_ = name;
    emit changed();
}

QString NewNewsroomSheetModel::proposedName() const {
    const auto& records = stores_.newsrooms.newsrooms();
    if (way_ == File && fileSpec_) return titleText(fileSpec_->name);
    if (way_ == Template)
        return titleText(records.freeName(std::string(kit::newsroomTemplates()[template_].name)));
    return titleText(records.freeName(tr("Newsroom").toStdString()));
}

QStringList NewNewsroomSheetModel::symbols() const {
    QStringList symbols;
    for (const auto symbol : kit::NewsroomSymbols::all) symbols << plainText(symbol);
    return symbols;
}

void NewNewsroomSheetModel::setSymbol(const QString& symbol) {
    symbol_ = symbol;
    emit changed();
}

QStringList NewNewsroomSheetModel::words() const { return shownTerms(focus_.anyTerms); }

void NewNewsroomSheetModel::addWords(const QString& text) {
    addTypedTerms(focus_.anyTerms, text);
    update();
}

void NewNewsroomSheetModel::removeWord(int index) {
    removeTermAt(focus_.anyTerms, index);
    update();
}

kit::NewsroomSpec NewNewsroomSheetModel::spec(const std::string& name) const {
    const auto symbol = symbol_.toStdString();
    if (way_ == Template)
        return kit::madeNewsroom(kit::newsroomTemplates()[template_], name, symbol, focus_);
    if (way_ == Kinds) return kit::madeNewsroom(name, symbol, chosen_, focus_);
    auto spec = *fileSpec_;
    spec.name = name;
    spec.symbol = symbol;
    spec.focus = focus_;
    kit::NewsroomLimits::require(spec);
    return spec;
}

bool NewNewsroomSheetModel::canMake() const { return way_ != File || fileSpec_.has_value(); }

void NewNewsroomSheetModel::update() {
    std::vector<NewsroomChoice> templates, kinds;
    for (const auto& one : kit::newsroomTemplates()) templates.push_back(choiceOf(one));
    templates[template_].isChosen = true;
    for (const auto kind : kit::offeredPanelKinds()) {
        const auto& row = kindRow(kind);
        kinds.push_back(
            {.title = labelText(row.label),
             .symbol = plainText(row.symbol),
             .description = labelText(row.description, 120),
             .isChosen = std::find(chosen_.begin(), chosen_.end(), kind) != chosen_.end()});
    }
    std::vector<PlannedPanel> plan;
    if (canMake()) {
        try {
            for (const auto& panel : spec("-").panels) plan.push_back(plannedOf(panel));
        } catch (const kit::RecordError&) {
            // A word that is too long; making the newsroom says so.
        }
    }
    templates_.setRows(std::move(templates));
    kinds_.setRows(std::move(kinds));
    plan_.setRows(std::move(plan));
    count_.setQuery(focus_);
    emit changed();
}

QString NewNewsroomSheetModel::planText() const {
    if (!canMake()) return {};
    const auto panels = static_cast<int>(plan_.rows().size());
    return panels > 0 ? tr("%n panels", nullptr, panels) : tr("No panels yet");
}

int NewNewsroomSheetModel::planRows() const {
    int rows = 0;
    for (const auto& panel : plan_.rows()) rows = std::max(rows, panel.row + panel.rows);
    return rows;
}

void NewNewsroomSheetModel::make() {
    if (!canMake()) return;
    const auto wanted = name_.trimmed().isEmpty() ? proposedName() : name_.trimmed();
    try {
        auto made = spec(stores_.newsrooms.newsrooms().freeName(wanted.toStdString()));
        const auto place = QStringLiteral("newsroom:") + plainText(made.id.text());
        steps_.add(std::move(made));
        emit placeWanted(place);
        emit closeWanted();
    } catch (const kit::RecordError& error) {
        emit noticed(tr("The newsroom can't be made: %1.").arg(bodyText(error.what())));
    }
}

}  // namespace app
