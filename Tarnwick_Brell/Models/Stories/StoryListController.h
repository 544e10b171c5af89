#pragma once

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Models/Stories/FilterOptions.h"
#include "Tarnwick_Brell/Models/Stories/SearchController.h"
#include "Tarnwick_Brell/Models/Stories/SetAsideCount.h"
#include "Tarnwick_Brell/Models/Stories/StoryListModel.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace app {

/// Decides which stories the window's list shows: those of a destination, narrowed by the search
/// and the filters.
class StoryListController : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one list of stories.")
    Q_PROPERTY(QString title READ title NOTIFY destinationChanged)
    Q_PROPERTY(app::StoryListModel* list READ list CONSTANT)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchChanged)
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY searchChanged)
    Q_PROPERTY(app::FilterOptions* kinds READ kinds CONSTANT)
    Q_PROPERTY(app::FilterOptions* sourcings READ sourcings CONSTANT)
    Q_PROPERTY(app::FilterOptions* sources READ sources CONSTANT)
    Q_PROPERTY(int setAside READ setAside NOTIFY countsChanged)
    Q_PROPERTY(QString setAsideText READ setAsideText NOTIFY countsChanged)
    Q_PROPERTY(bool showsSetAside READ showsSetAside WRITE setShowsSetAside NOTIFY filterChanged)
    Q_PROPERTY(QString unreadText READ unreadText NOTIFY countsChanged)
    Q_PROPERTY(QString arrivalsText READ arrivalsText NOTIFY countsChanged)
    Q_PROPERTY(QString emptyMessage READ emptyMessage NOTIFY countsChanged)
    Q_PROPERTY(QString emptyHint READ emptyHint NOTIFY countsChanged)
    Q_PROPERTY(bool canClear READ canClear NOTIFY countsChanged)

public:
    StoryListController(NewsDesk& desk, NewsroomStore& newsrooms, kit::Clock clock,
                        QObject* parent = nullptr);

    /// The destination must be a list of stories. Ends the search; the filters stay.
    void open(const Destination& destination);
    const Destination& destination() const { return destination_; }

    QString title() const;
    StoryListModel* list() { return &list_; }
    const QString& searchText() const { return search_.text(); }
    void setSearchText(const QString& text) { search_.setText(text); }
    bool isSearching() const { return search_.isActive(); }
    FilterOptions* kinds() { return &kinds_; }
    FilterOptions* sourcings() { return &sourcings_; }
    FilterOptions* sources() { return &sources_; }
    bool showsSetAside() const { return showsSetAside_; }
    void setShowsSetAside(bool shows);
    /// Stories of this list that are hidden because of their kind.
    int setAside() const { return hidden_.value(); }
    QString setAsideText() const;

    QString unreadText() const;
    QString arrivalsText() const;
    QString emptyMessage() const;
    QString emptyHint() const;
    bool canClear() const;

    Q_INVOKABLE void showArrivals();
    /// Clears the search and the filters.
    Q_INVOKABLE void clearAll();

signals:
    void destinationChanged();
    void searchChanged();
    void filterChanged();
    void countsChanged();
    /// Another destination or search is about to replace the stories.
    void aboutToReplace();
    /// The list has jumped to its beginning.
    void listBegins();

private:
    void connectStores();
    StoryFilter filter() const;
    kit::StoryQuery destinationQuery() const;
    void updateSources();
    void refilter();
    void showFound(bool isRepeated);

    NewsDesk& desk_;
    NewsroomStore& newsrooms_;
    Destination destination_;
    StoryListModel list_;
    SearchController search_;
    FilterOptions kinds_;
    FilterOptions sourcings_;
    FilterOptions sources_;
    bool showsSetAside_ = false;
    std::set<std::string, std::less<>> leftOut_;  ///< sources that are not in the list of all
    SetAsideCount hidden_;
};

}  // namespace app
