#pragma once

#include <functional>

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Newsrooms/NewsroomModel.h"
#include "Tarnwick_Brell/Models/Sidebar/Place.h"
#include "Tarnwick_Brell/Models/Sidebar/SidebarModel.h"
#include "Tarnwick_Brell/Models/Stories/WirePage.h"
#include "Tarnwick_Brell/Models/Window/RefreshState.h"

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
    Q_PROPERTY(View view READ view NOTIFY placeChanged)
    Q_PROPERTY(QString placeKey READ placeKey NOTIFY placeChanged)

public:
    enum View { Newsroom, Stories };
    Q_ENUM(View)

    struct Stores {
        NewsDesk& news;
        TrackerStore& trackers;
        NewsroomStore& newsrooms;
        newsroom::FeedClient::Clock clock;
    };

    explicit WindowModel(const Stores& stores);

    SidebarModel* sidebar() { return &sidebar_; }
    WirePage* wire() { return &wire_; }
    NewsroomModel* newsroom() { return &newsroom_; }
    RefreshState* refresh() { return &refresh_; }
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
    /// To be opened in the browser: http or https.
    void linkWanted(const QString& link);

private:
    bool exists(const Place& place) const;
    Place home() const;
    void showNewsroom();
    void newsroomsChanged();

    Stores stores_;
    SidebarModel sidebar_;
    WirePage wire_;
    NewsroomModel newsroom_;
    RefreshState refresh_;
    Place place_;
    bool hasOpened_ = false;
};

}  // namespace desk
