#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Actions/ActionModel.h"
#include "Tarnwick_Brell/Models/Actions/PaletteModel.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomModel.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Models/Sidebar/SidebarModel.h"
#include "Tarnwick_Brell/Models/Stories/SelectedStory.h"
#include "Tarnwick_Brell/Models/Stories/StoryActions.h"
#include "Tarnwick_Brell/Models/Stories/StoryListController.h"
#include "Tarnwick_Brell/Models/Window/Appearance.h"
#include "Tarnwick_Brell/Models/Window/RefreshStatus.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Models/Window/WindowState.h"

namespace app {

/// Everything that the window shows, and where it is.
class WindowModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, made at the start.")
    Q_PROPERTY(app::SidebarModel* sidebar READ sidebar CONSTANT)
    Q_PROPERTY(app::StoryListController* storyList READ storyList CONSTANT)
    Q_PROPERTY(app::SelectedStory* selectedStory READ selectedStory CONSTANT)
    Q_PROPERTY(app::StoryActions* storyActions READ storyActions CONSTANT)
    Q_PROPERTY(app::NewsroomModel* newsroom READ newsroom CONSTANT)
    Q_PROPERTY(app::RefreshStatus* refresh READ refresh CONSTANT)
    Q_PROPERTY(app::ActionModel* actions READ actions CONSTANT)
    Q_PROPERTY(app::PaletteModel* palette READ palette CONSTANT)
    Q_PROPERTY(app::Appearance* appearance READ appearance CONSTANT)
    Q_PROPERTY(app::WindowState* state READ state CONSTANT)
    Q_PROPERTY(app::UndoStack* undo READ undo CONSTANT)
    Q_PROPERTY(app::PageModel* page READ page NOTIFY placeChanged)
    Q_PROPERTY(app::SheetModel* sheet READ sheet NOTIFY sheetChanged)
    Q_PROPERTY(View view READ view NOTIFY placeChanged)
    Q_PROPERTY(QString placeKey READ placeKey NOTIFY placeChanged)

public:
    enum View { Newsroom, Stories, Page };
    Q_ENUM(View)

    explicit WindowModel(const DeskStores& stores);
    ~WindowModel() override;

    SidebarModel* sidebar() { return &sidebar_; }
    StoryListController* storyList() { return &storyList_; }
    SelectedStory* selectedStory() { return &selected_; }
    StoryActions* storyActions() { return &storyActions_; }
    NewsroomModel* newsroom() { return &newsroom_; }
    RefreshStatus* refresh() { return &refresh_; }
    ActionModel* actions() { return &actions_; }
    PaletteModel* palette() { return &palette_; }
    Appearance* appearance() { return &appearance_; }
    WindowState* state() { return &state_; }
    UndoStack* undo() { return &stores_.undo; }
    /// Null unless the window is at a page.
    PageModel* page() { return page_.get(); }
    /// Null unless a sheet is open.
    SheetModel* sheet() { return sheet_.get(); }
    View view() const;
    QString placeKey() const { return place_.key(); }

    /// A key that leads nowhere opens the first newsroom.
    Q_INVOKABLE void open(const QString& key);
    void open(const Destination& place);
    /// Shows the story in the reader.
    Q_INVOKABLE void openStory(const QString& storyID);
    void searchFor(const QString& text);

    /// Opens a sheet in place of the one before; see makeSheet.
    Q_INVOKABLE void showSheet(const QString& key);
    Q_INVOKABLE void closeSheet();

signals:
    void placeChanged();
    void sheetChanged();
    /// What only the view can do: the focus, sheets, scrolling.
    void viewActionWanted(app::DeskAction::Value action);
    /// Sheets are to be closed.
    void viewClosed();
    /// A sentence for the user.
    void noticed(const QString& sentence);
    /// To be opened in the browser: http or https.
    void linkWanted(const QString& link);

private:
    void connectPages();
    void connectActions();
    void updateActions();
    void execute(Action action);
    void goTo(const std::optional<Destination>& place);
    void traceStory();
    void undoLast();
    std::vector<PalettePlace> palettePlaces() const;
    bool exists(const Destination& place) const;
    Destination home() const;
    void showPage();
    void showNewsroom();
    void newsroomsChanged();

    DeskStores stores_;
    SidebarModel sidebar_;
    StoryListController storyList_;
    SelectedStory selected_;
    StoryActions storyActions_;
    NewsroomModel newsroom_;
    std::unique_ptr<PageModel> page_;
    std::unique_ptr<SheetModel> sheet_;
    RefreshStatus refresh_;
    ActionModel actions_;
    PaletteModel palette_;
    Appearance appearance_;
    WindowState state_;
    Destination place_;
    bool hasOpened_ = false;
};

}  // namespace app
