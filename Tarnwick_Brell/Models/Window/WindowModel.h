#pragma once

#include <optional>
#include <vector>

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Actions/ActionModel.h"
#include "Tarnwick_Brell/Models/Actions/PaletteModel.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomModel.h"
#include "Tarnwick_Brell/Models/Sidebar/Place.h"
#include "Tarnwick_Brell/Models/Sidebar/SidebarModel.h"
#include "Tarnwick_Brell/Models/Stories/WirePage.h"
#include "Tarnwick_Brell/Models/Window/Appearance.h"
#include "Tarnwick_Brell/Models/Window/RefreshState.h"
#include "Tarnwick_Brell/Models/Window/WindowState.h"

namespace desk {

/// Everything that the window shows, and where it is.
class WindowModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one, made at the start.")
    Q_PROPERTY(desk::SidebarModel* sidebar READ sidebar CONSTANT)
    Q_PROPERTY(desk::WirePage* wire READ wire CONSTANT)
    Q_PROPERTY(desk::NewsroomModel* newsroom READ newsroom CONSTANT)
    Q_PROPERTY(desk::RefreshState* refresh READ refresh CONSTANT)
    Q_PROPERTY(desk::ActionModel* actions READ actions CONSTANT)
    Q_PROPERTY(desk::PaletteModel* palette READ palette CONSTANT)
    Q_PROPERTY(desk::Appearance* appearance READ appearance CONSTANT)
    Q_PROPERTY(desk::WindowState* state READ state CONSTANT)
    Q_PROPERTY(View view READ view NOTIFY placeChanged)
    Q_PROPERTY(QString placeKey READ placeKey NOTIFY placeChanged)

public:
    enum View { Newsroom, Stories };
    Q_ENUM(View)

    struct Stores {
        NewsDesk& news;
        TrackerStore& trackers;
        SignalsStore& signalsStore;
        NewsroomStore& newsrooms;
        Defaults& defaults;
        newsroom::FeedClient::Clock clock;
    };

    explicit WindowModel(const Stores& stores);

    SidebarModel* sidebar() { return &sidebar_; }
    WirePage* wire() { return &wire_; }
    NewsroomModel* newsroom() { return &newsroom_; }
    RefreshState* refresh() { return &refresh_; }
    ActionModel* actions() { return &actions_; }
    PaletteModel* palette() { return &palette_; }
    Appearance* appearance() { return &appearance_; }
    WindowState* state() { return &state_; }
    View view() const { return place_.isStoryList() ? Stories : Newsroom; }
    QString placeKey() const { return place_.key(); }

    /// A key that leads nowhere opens the first newsroom.
    Q_INVOKABLE void open(const QString& key);
    void open(const Place& place);
    /// Shows the story in the wire's reader.
    Q_INVOKABLE void openStory(const QString& storyID);
    void searchFor(const QString& text);

signals:
    void placeChanged();
    /// What only the view can do: the focus, sheets, scrolling.
    void viewActionWanted(desk::DeskAction::Value action);
    /// Sheets are to be closed.
    void viewClosed();
    /// A sentence for the user.
    void noticed(const QString& sentence);
    /// To be opened in the browser: http or https.
    void linkWanted(const QString& link);

private:
    void connectPages();
    void connectActions();
    void lookAtStory();
    void carryOut(Action action);
    void goTo(const std::optional<Place>& place);
    void traceStory();
    std::vector<PalettePlace> palettePlaces() const;
    bool exists(const Place& place) const;
    Place home() const;
    void showNewsroom();
    void newsroomsChanged();

    Stores stores_;
    SidebarModel sidebar_;
    WirePage wire_;
    NewsroomModel newsroom_;
    RefreshState refresh_;
    ActionModel actions_;
    PaletteModel palette_;
    Appearance appearance_;
    WindowState state_;
    Place place_;
    bool hasOpened_ = false;
};

}  // namespace desk
