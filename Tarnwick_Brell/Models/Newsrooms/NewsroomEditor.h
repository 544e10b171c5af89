#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include <QObject>
#include <QRect>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "NewsroomKit/Newsrooms/PanelPlacement.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomModel.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomSteps.h"
#include "Tarnwick_Brell/Models/Newsrooms/PanelPickerModel.h"

namespace app {

/// The editing of the newsroom that the window shows. Every change is stored at once and is a step
/// of the undo stack; a drag is one step when it ends.
class NewsroomEditor : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window edits one newsroom.")
    Q_PROPERTY(bool canEdit READ canEdit NOTIFY changed)
    Q_PROPERTY(bool isEditing READ isEditing NOTIFY changed)
    Q_PROPERTY(bool isPicking READ isPicking WRITE setPicking NOTIFY changed)
    Q_PROPERTY(app::PanelPickerModel* picker READ picker CONSTANT)
    Q_PROPERTY(bool canGiveBack READ canGiveBack NOTIFY changed)
    Q_PROPERTY(int selected READ selected WRITE select NOTIFY selectedChanged)
    Q_PROPERTY(int held READ held NOTIFY dragChanged)
    Q_PROPERTY(bool isDragging READ isDragging NOTIFY dragChanged)
    Q_PROPERTY(QRect target READ target NOTIFY dragChanged)
    Q_PROPERTY(QString dragText READ dragText NOTIFY dragChanged)

public:
    /// The edges of a panel that a drag moves; without any it moves the panel.
    enum Edge { NoEdge = 0, LeftEdge = 1, TopEdge = 2, RightEdge = 4, BottomEdge = 8 };
    Q_ENUM(Edge)
    enum Direction { Left, Right, Up, Down };
    Q_ENUM(Direction)

    NewsroomEditor(const DeskStores& stores, NewsroomModel& shown, QObject* parent = nullptr);

    /// The newsroom that the window shows, or nothing elsewhere; also after it has changed. Ends
    /// the editing of another one.
    void setNewsroom(const std::string& id);

    bool canEdit() const { return spec() != nullptr; }
    bool isEditing() const { return before_.has_value(); }
    Q_INVOKABLE void begin();
    /// Leaves the edit mode; the changes stay.
    Q_INVOKABLE void end();
    /// Makes the newsroom as it was when its editing began, in one step.
    Q_INVOKABLE void giveBack();
    bool canGiveBack() const { return before_ && spec() && *spec() != *before_; }
    bool isPicking() const { return isPicking_; }
    void setPicking(bool picking);
    PanelPickerModel* picker() { return &picker_; }
    /// What Esc does: ends the drag, closes the picker or leaves the edit mode.
    Q_INVOKABLE void leave();

    /// The panel that keys work on, as a row of the newsroom's model; -1 when there is none.
    int selected() const;
    void select(int panel);
    /// Selects the next panel in reading order, or the one before; after the last comes the first.
    Q_INVOKABLE void selectNext(bool backwards = false);

    Q_INVOKABLE void nudge(app::NewsroomEditor::Direction direction);
    /// Moves the right or the lower edge by one cell.
    Q_INVOKABLE void resizeBy(app::NewsroomEditor::Direction direction);
    Q_INVOKABLE void removeSelected();
    /// The copy lies below it.
    void duplicateSelected();
    void add(kit::PanelKind kind);

    /// Asks for the sheet with the options of a panel.
    Q_INVOKABLE void openOptions(int panel);

    /// Begins a drag of a panel or of edges of it.
    Q_INVOKABLE void beginDrag(int panel, int edges);
    /// Begins to drag a new panel of the kind onto the grid.
    void beginInsert(kit::PanelKind kind);
    /// The pointer's way since the beginning of the drag, in cells. Of a new panel, the place of
    /// its upper left corner.
    Q_INVOKABLE void drag(double columns, double rows);
    Q_INVOKABLE void drop();
    Q_INVOKABLE void cancelDrag();
    bool isDragging() const { return drag_.has_value(); }
    /// The panel that is dragged, as a row of the model; -1 for none and for a new one.
    int held() const;
    /// Where the panel would lie if it were dropped now, in cells.
    QRect target() const;
    QString dragText() const;

signals:
    void changed();
    void selectedChanged();
    void dragChanged();
    /// A sentence for the user.
    void noticed(const QString& sentence);
    void sheetWanted(const QString& key);

private:
    struct Drag {
        kit::Placement start{};  ///< with the new panel, if any, at its end
        std::size_t panel = 0;
        int edges = NoEdge;
        bool isNew = false;
        kit::Placement layout{};
    };

    const kit::NewsroomSpec* spec() const;
    std::optional<std::size_t> selectedIndex() const;
    kit::Placement layout() const;
    QString titleAt(std::size_t panel) const;
    void apply(const std::function<kit::NewsroomSpec(const kit::NewsroomSpec&)>& edit,
               const QString& text);
    void applyLayout(const kit::Placement& layout, const QString& text);
    void applyAdding(const std::function<kit::NewsroomSpec(const kit::NewsroomSpec&)>& edit,
                     kit::PanelKind kind);
    void updatePicker();

    NewsroomStore& newsrooms_;
    NewsroomModel& shown_;
    NewsroomSteps steps_;
    PanelPickerModel picker_;
    std::string id_;
    std::optional<kit::NewsroomSpec> before_;  ///< as it was when its editing began
    std::optional<kit::UUID> selected_;
    std::optional<Drag> drag_;
    bool isPicking_ = false;
};

}  // namespace app
