#include "Tarnwick_Brell/Models/Newsrooms/NewsroomModel.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

using namespace std::chrono_literals;

NewsroomModel::NewsroomModel(const PanelStores& stores, QObject* parent)
    : QAbstractListModel(parent), stores_(stores) {
    stores_.collector = std::make_shared<PanelStoryCollector>(stores.news, stores.clock);
    connect(&minute_, &QTimer::timeout, this, &NewsroomModel::tick);
    minute_.start(30s);
}

NewsroomModel::~NewsroomModel() = default;

void NewsroomModel::show(const kit::NewsroomSpec& spec) {
    if (spec == spec_ && fault_.isEmpty()) return;
    std::vector<Panel> panels;
    for (const auto& panel : spec.panels) {
        const auto& query = spec.effectiveQuery(panel);
        const auto known = std::find_if(panels_.begin(), panels_.end(), [&](const Panel& each) {
            return each.content && each.spec.id == panel.id && each.spec.kind == panel.kind &&
                   each.spec.options == panel.options && each.query == query;
        });
        if (known == panels_.end()) {
            panels.push_back(make(panel, query));
        } else {
            panels.push_back({panel, query, known->symbol, std::move(known->content)});
        }
    }
    spec_ = spec;
    title_ = titleText(spec.name);
    fault_.clear();
    replace(std::move(panels));
}

void NewsroomModel::show(const BuiltInPage& page) {
    std::vector<Panel> panels;
    for (const auto& panel : page.panels) panels.push_back(make(panel));
    spec_ = {};
    title_ = page.title;
    fault_.clear();
    replace(std::move(panels));
}

void NewsroomModel::showFault(const QString& name, const QString& fault) {
    clear();
    title_ = name;
    fault_ = fault;
    emit specChanged();
}

void NewsroomModel::clear() {
    spec_ = {};
    title_.clear();
    fault_.clear();
    replace({});
}

/// A view must not meet a content that is gone: the old ones end after it has let go.
void NewsroomModel::replace(std::vector<Panel> panels) {
    beginResetModel();
    std::swap(panels_, panels);
    endResetModel();
    for (auto& old : panels) {
        if (old.content) old.content.release()->deleteLater();
    }
    emit specChanged();
}

NewsroomModel::Panel NewsroomModel::make(const kit::PanelSpec& spec, const kit::StoryQuery& query) {
    return {spec, query, plainText(kindRow(spec.kind).symbol),
            connected(makePanelModel(stores_, spec, query))};
}

NewsroomModel::Panel NewsroomModel::make(const BuiltInPage::Panel& panel) {
    return {{.title = panel.title.toStdString(), .frame = panel.frame},
            {},
            panel.symbol,
            connected(makePageModel(stores_, panel.content))};
}

std::unique_ptr<PanelModel> NewsroomModel::connected(std::unique_ptr<PanelModel> content) {
    connect(content.get(), &PanelModel::storyWanted, this, &NewsroomModel::storyWanted);
    connect(content.get(), &PanelModel::linkWanted, this, &NewsroomModel::linkWanted);
    return content;
}

void NewsroomModel::tick() {
    for (const auto& panel : panels_) panel.content->tick();
    emit subtitleChanged();
}

QString NewsroomModel::subtitle() const { return dayText(stores_.clock(), stores_.clock()); }

int NewsroomModel::rowsUsed() const {
    std::int64_t rows = 0;
    for (const auto& panel : panels_) rows = std::max(rows, panel.spec.frame.bottom());
    return static_cast<int>(rows);
}

int NewsroomModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(panels_.size());
}

QVariant NewsroomModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& panel = panels_[static_cast<std::size_t>(index.row())];
    const auto& frame = panel.spec.frame;
    switch (role) {
        case PanelTitle: return titleText(panel.spec.title);
        case Symbol: return panel.symbol;
        case Column: return static_cast<int>(frame.column);
        case Row: return static_cast<int>(frame.row);
        case Width: return static_cast<int>(frame.width);
        case Height: return static_cast<int>(frame.height);
        case Content: return QVariant::fromValue(panel.content.get());
        default: return {};
    }
}

QHash<int, QByteArray> NewsroomModel::roleNames() const {
    return {{PanelTitle, "title"}, {Symbol, "symbol"}, {Column, "column"},  {Row, "row"},
            {Width, "columns"},    {Height, "rows"},   {Content, "content"}};
}

}  // namespace app
