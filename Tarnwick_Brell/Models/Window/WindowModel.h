#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Actions/ActionModel.h"
#include "Tarnwick_Brell/Models/Actions/PaletteModel.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Library/StoryKeeping.h"
#include "Tarnwick_Brell/Models/Newsrooms/BoardModel.h"
#include "Tarnwick_Brell/Models/Beats/BeatActions.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomActions.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomEditor.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomModel.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Models/Sidebar/PlaceMenu.h"
#include "Tarnwick_Brell/Models/Sidebar/SidebarModel.h"
#include "Tarnwick_Brell/Models/Stories/ClusterListModel.h"
#include "Tarnwick_Brell/Models/Stories/SelectedStory.h"
#include "Tarnwick_Brell/Models/Stories/StoryActions.h"
#include "Tarnwick_Brell/Models/Stories/StoryListController.h"
#include "Tarnwick_Brell/Models/Window/Appearance.h"
#include "Tarnwick_Brell/Models/Window/FindInPage.h"
#include "Tarnwick_Brell/Models/Window/ReadingPlace.h"
#include "Tarnwick_Brell/Models/Window/RefreshStatus.h"
#include "Tarnwick_Brell/Models/Window/RowMenu.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Models/Window/WindowState.h"

namespace app {

/// Everything that a window shows, and where it is.
class WindowModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Every window has one.")
    Q_PROPERTY(app::SidebarModel* sidebar READ sidebar CONSTANT)
    Q_PROPERTY(app::StoryListController* storyList READ storyList CONSTANT)
    Q_PROPERTY(app::ReadingPlace* readingPlace READ readingPlace CONSTANT)
    Q_PROPERTY(app::PlaceMenu* placeMenu READ placeMenu CONSTANT)
    Q_PROPERTY(app::ClusterListModel* clusters READ clusters CONSTANT)
    Q_PROPERTY(app::SelectedStory* selectedStory READ selectedStory CONSTANT)
    Q_PROPERTY(app::StoryKeeping* keeping READ keeping CONSTANT)
    Q_PROPERTY(app::StoryActions* storyActions READ storyActions CONSTANT)
    Q_PROPERTY(app::NewsroomModel* newsroom READ newsroom CONSTANT)
    Q_PROPERTY(app::NewsroomEditor* editor READ editor CONSTANT)
    Q_PROPERTY(app::BoardModel* board READ board CONSTANT)
    Q_PROPERTY(app::NewsroomActions* newsroomActions READ newsroomActions CONSTANT)
    Q_PROPERTY(app::BeatActions* beatActions READ beatActions CONSTANT)
    Q_PROPERTY(app::RefreshStatus* refresh READ refresh CONSTANT)
    Q_PROPERTY(app::ActionModel* actions READ actions CONSTANT)
    Q_PROPERTY(app::PaletteModel* palette READ palette CONSTANT)
    Q_PROPERTY(app::Appearance* appearance READ appearance CONSTANT)
    Q_PROPERTY(app::WindowState* state READ state CONSTANT)
    Q_PROPERTY(app::UndoStack* undo READ undo CONSTANT)
    Q_PROPERTY(app::FindInPage* find READ find CONSTANT)
    Q_PROPERTY(app::RowMenu* rowMenu READ rowMenu CONSTANT)
    Q_PROPERTY(app::PageModel* page READ page NOTIFY placeChanged)
    Q_PROPERTY(app::SheetModel* sheet READ sheet NOTIFY sheetChanged)
    Q_PROPERTY(View view READ view NOTIFY placeChanged)
    Q_PROPERTY(QString placeKey READ placeKey NOTIFY placeChanged)

public:
    enum View { Newsroom, Stories, Page };
    Q_ENUM(View)

    /// `number` is that of its WindowState.
    explicit WindowModel(const DeskStores& stores, int number = 1);
    ~WindowModel() override;

    SidebarModel* sidebar() { return &sidebar_; }
    StoryListController* storyList() { return &storyList_; }
    ReadingPlace* readingPlace() { return &readingPlace_; }
    PlaceMenu* placeMenu() { return &placeMenu_; }
    ClusterListModel* clusters() { return &clusters_; }
    SelectedStory* selectedStory() { return &selected_; }
    StoryKeeping* keeping() { return &keeping_; }
    StoryActions* storyActions() { return &storyActions_; }
    NewsroomModel* newsroom() { return &newsroom_; }
    NewsroomEditor* editor() { return &editor_; }
    BoardModel* board() { return &board_; }
    NewsroomActions* newsroomActions() { return &newsroomActions_; }
    BeatActions* beatActions() { return &beatActions_; }
    RefreshStatus* refresh() { return &refresh_; }
    ActionModel* actions() { return &actions_; }
    PaletteModel* palette() { return &palette_; }
    Appearance* appearance() { return &appearance_; }
    WindowState* state() { return &state_; }
    UndoStack* undo() { return &stores_.undo; }
    FindInPage* find() { return &find_; }
    RowMenu* rowMenu() { return &rowMenu_; }
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
    /// False when there is no such sheet.
    Q_INVOKABLE bool showSheet(const QString& key);
    Q_INVOKABLE void closeSheet();
    /// The answer to `fileWanted`; the sheet that asked may be gone.
    void useFile(const QString& path);
    /// What another program dropped on the window: a source to add, a file to import.
    Q_INVOKABLE void drop(const QList<QUrl>& urls, const QString& text);
    /// A story was dropped on a place of the sidebar: it is saved, clipped or put into a project.
    Q_INVOKABLE void dropStory(const QString& placeKey, const QString& storyID);
    /// Shows clusters in the list of this place, or stories.
    Q_INVOKABLE void setClustered(bool clustered);

signals:
    void placeChanged();
    void sheetChanged();
    void fileWanted(const app::FileWish& wish);
    /// What only the view can do: the focus, sheets, scrolling.
    void viewActionWanted(app::DeskAction::Value action);
    /// Sheets are to be closed.
    void viewClosed();
    /// A sentence for the user.
    void noticed(const QString& sentence);
    /// To be opened in the browser: http or https.
    void linkWanted(const QString& link);
    /// One more window, at that place.
    void windowWanted(const QString& place);
    /// Only a desk that is closed can do it.
    void libraryWorkWanted(const app::LibraryWork& work);
    /// The story in the reader is to be printed.
    void printWanted();

private:
    void connectPages();
    void connectActions();
    void connectFind();
    void updateActions();
    void execute(Action action);
    void goTo(const std::optional<Destination>& place);
    void traceStory();
    void splitStory();
    void openTimelineOf(const QString& storyID);
    void correctStory(const QString& storyID);
    void togglePictures();
    void writeNote();
    void putIntoProject();
    void copyCitation();
    void undoLast();
    void step(int by);
    void findNext(int by);
    bool mentions(const kit::TermFinder& finder, int row);
    FindPart storyPart();
    void importNewsroom(const std::string& file);
    std::vector<PalettePlace> palettePlaces() const;
    bool exists(const Destination& place) const;
    Destination home() const;
    void showPage();
    void showNewsroom();
    void updateEditor();
    void newsroomsChanged();

    DeskStores stores_;
    SidebarModel sidebar_;
    PlaceMenu placeMenu_;
    StoryListController storyList_;
    SelectedStory selected_;
    ClusterListModel clusters_;
    StoryActions storyActions_;
    StoryKeeping keeping_;
    NewsroomModel newsroom_;
    NewsroomEditor editor_;
    NewsroomActions newsroomActions_;
    BoardModel board_;
    BeatActions beatActions_;
    std::unique_ptr<PageModel> page_;
    std::unique_ptr<SheetModel> sheet_;
    RefreshStatus refresh_;
    ActionModel actions_;
    PaletteModel palette_;
    Appearance appearance_;
    WindowState state_;
    ReadingPlace readingPlace_;
    FindInPage find_;
    RowMenu rowMenu_;
    Destination place_;
    bool hasOpened_ = false;
};

}  // namespace app
