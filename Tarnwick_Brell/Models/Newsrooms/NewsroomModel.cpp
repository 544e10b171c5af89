#include "Tarnwick_Brell/Models/Newsrooms/NewsroomModel.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Rows/EndLater.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

using namespace std::chrono_literals;

namespace {

/// How far a panel gives way: "2 rows down".
QString shiftText(const kit::GridFrame& from, const kit::GridFrame& to) {
    const auto rows = static_cast<int>(to.row - from.row);
    const auto columns = static_cast<int>(to.column - from.column);
    if (rows > 0) return NewsroomModel::tr("%n rows down", nullptr, rows);
    if (rows < 0) return NewsroomModel::tr("%n rows up", nullptr, -rows);
    if (columns > 0) return NewsroomModel::tr("%n columns right", nullptr, columns);
    if (columns < 0) return NewsroomModel::tr("%n columns left", nullptr, -columns);
    return {};
}

}  // namespace

NewsroomModel::NewsroomModel(const PanelStores& stores, QObject* parent)
    : QAbstractListModel(parent), stores_(stores) {
    stores_.collector = std::make_shared<PanelStoryCollector>(stores.news, stores.clock);
    connect(&minute_, &QTimer::timeout, this, &NewsroomModel::tick);
    minute_.start(30s);
}

NewsroomModel::~NewsroomModel() = default;

/// Untidy layouts, from files or older versions, are shown as they are edited: tidied.
void NewsroomModel::show(const kit::NewsroomSpec& spec) {
    if (spec == spec_ && fault_.isEmpty()) return;
    const auto layout = kit::PanelPlacement::tidied(kit::PanelPlacement::of(spec.panels));
    std::vector<Panel> panels;
    for (std::size_t i = 0; i < spec.panels.size(); ++i) {
        const auto& panel = spec.panels[i];
        const auto& query = spec.effectiveQuery(panel);
        const auto known = std::find_if(panels_.begin(), panels_.end(), [&](const Panel& each) {
            return each.content && each.spec.id == panel.id && each.spec.kind == panel.kind &&
                   each.spec.options == panel.options && each.query == query;
        });
        // The content of a known panel stays with it until the lists are exchanged.
        auto row = known == panels_.end()
                       ? make(panel, query)
                       : Panel{panel, query, {}, {}, known->symbol, std::move(known->content)};
        row.frame = layout[i].frame;
        panels.push_back(std::move(row));
    }
    const bool isSame = spec.id == spec_.id && fault_.isEmpty();
    spec_ = spec;
    title_ = titleText(spec.name);
    fault_.clear();
    isSame ? merge(std::move(panels)) : replace(std::move(panels));
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

/// The rows become those of `panels`, with changes that let a view keep its delegates. Panels
/// change their order in a list only when another program does it; then the view begins anew.
void NewsroomModel::merge(std::vector<Panel> panels) {
    const auto hasID = [](const std::vector<Panel>& list, const kit::UUID& id) {
        return std::any_of(list.begin(), list.end(),
                           [&](auto& each) { return each.spec.id == id; });
    };
    std::vector<kit::UUID> staying, wanted;
    for (const auto& panel : panels_)
        if (hasID(panels, panel.spec.id)) staying.push_back(panel.spec.id);
    for (const auto& panel : panels)
        if (hasID(panels_, panel.spec.id)) wanted.push_back(panel.spec.id);
    if (staying != wanted) return replace(std::move(panels));
    removeMissing(panels);
    for (std::size_t i = 0; i < panels.size(); ++i) {
        const auto row = static_cast<int>(i);
        if (i < panels_.size() && panels_[i].spec.id == panels[i].spec.id) {
            std::swap(panels_[i], panels[i]);
            emit dataChanged(index(row), index(row));
            endLater(std::move(panels[i].content), *this);
        } else {
            beginInsertRows({}, row, row);
            panels_.insert(panels_.begin() + row, std::move(panels[i]));
            endInsertRows();
        }
    }
    emit specChanged();
}

void NewsroomModel::removeMissing(const std::vector<Panel>& panels) {
    for (auto row = static_cast<int>(panels_.size()) - 1; row >= 0; --row) {
        auto& panel = panels_[static_cast<std::size_t>(row)];
        const bool stays = std::any_of(panels.begin(), panels.end(), [&](const Panel& each) {
            return each.spec.id == panel.spec.id;
        });
        if (stays) continue;
        beginRemoveRows({}, row, row);
        auto content = std::move(panel.content);
        panels_.erase(panels_.begin() + row);
        endRemoveRows();
        endLater(std::move(content), *this);
    }
}

void NewsroomModel::preview(const kit::Placement& layout, std::optional<std::size_t> held) {
    const auto before = kit::PanelPlacement::tidied(kit::PanelPlacement::of(spec_.panels));
    for (std::size_t i = 0; i < panels_.size() && i < layout.size(); ++i) {
        auto& panel = panels_[i];
        const auto& frame = layout[i].frame;
        const auto shift = held == i ? QString() : shiftText(before[i].frame, frame);
        if (panel.frame == frame && panel.shift == shift) continue;
        panel.frame = frame;
        panel.shift = shift;
        const auto row = index(static_cast<int>(i));
        emit dataChanged(row, row, {Column, Row, Width, Height, Place, Shift});
    }
    emit specChanged();
}

void NewsroomModel::endPreview() {
    preview(kit::PanelPlacement::tidied(kit::PanelPlacement::of(spec_.panels)), std::nullopt);
}

/// A view must not meet a content that is gone: the old ones end after it has let go.
void NewsroomModel::replace(std::vector<Panel> panels) {
    beginResetModel();
    std::swap(panels_, panels);
    endResetModel();
    for (auto& old : panels) endLater(std::move(old.content), *this);
    emit specChanged();
}

NewsroomModel::Panel NewsroomModel::make(const kit::PanelSpec& spec, const kit::StoryQuery& query) {
    return {spec,
            query,
            spec.frame,
            {},
            plainText(kindRow(spec.kind).symbol),
            connected(makePanelModel(stores_, spec, query))};
}

std::unique_ptr<PanelModel> NewsroomModel::connected(std::unique_ptr<PanelModel> content) {
    connect(content.get(), &PanelModel::storyWanted, this, &NewsroomModel::storyWanted);
    connect(content.get(), &PanelModel::linkWanted, this, &NewsroomModel::linkWanted);
    return content;
}

QString NewsroomModel::placeText(const kit::GridFrame& frame) {
    return tr("Column %1, row %2 · %3 × %4")
        .arg(frame.column + 1)
        .arg(frame.row + 1)
        .arg(frame.width)
        .arg(frame.height);
}

void NewsroomModel::tick() {
    for (const auto& panel : panels_) panel.content->tick();
    emit subtitleChanged();
}

QString NewsroomModel::subtitle() const { return dayText(stores_.clock(), stores_.clock()); }

int NewsroomModel::rowsUsed() const {
    std::int64_t rows = 0;
    for (const auto& panel : panels_) rows = std::max(rows, panel.frame.bottom());
    return static_cast<int>(rows);
}

int NewsroomModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(panels_.size());
}

QVariant NewsroomModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& panel = panels_[static_cast<std::size_t>(index.row())];
    const auto& frame = panel.frame;
    switch (role) {
        case PanelTitle: return titleText(panel.spec.title);
        case Symbol: return panel.symbol;
        case Column: return static_cast<int>(frame.column);
        case Row: return static_cast<int>(frame.row);
        case Width: return static_cast<int>(frame.width);
        case Height: return static_cast<int>(frame.height);
        case Content: return QVariant::fromValue(panel.content.get());
        case Place: return placeText(frame);
        case Shift: return panel.shift;
        default: return {};
    }
}

QHash<int, QByteArray> NewsroomModel::roleNames() const {
    return {{PanelTitle, "title"}, {Symbol, "symbol"}, {Column, "column"},
            {Row, "row"},          {Width, "columns"}, {Height, "rows"},
            {Content, "content"},  {Place, "place"},   {Shift, "shift"}};
}

}  // namespace app
