#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>
#include <QTimer>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Models/Stories/FilterOptions.h"
#include "Tarnwick_Brell/Models/Stories/ReaderModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryListModel.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace app {

/// The page of a list of stories: which stories, the search and the filters over it, the story
/// that is chosen, and what the reader does with it.
class WirePage : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one wire page.")
    Q_PROPERTY(QString title READ title NOTIFY placeChanged)
    Q_PROPERTY(app::StoryListModel* list READ list CONSTANT)
    Q_PROPERTY(app::ReaderModel* reader READ reader CONSTANT)
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchChanged)
    Q_PROPERTY(bool isSearching READ isSearching NOTIFY searchChanged)
    Q_PROPERTY(app::FilterOptions* kinds READ kinds CONSTANT)
    Q_PROPERTY(app::FilterOptions* sourcings READ sourcings CONSTANT)
    Q_PROPERTY(app::FilterOptions* sources READ sources CONSTANT)
    Q_PROPERTY(bool showsSetAside READ showsSetAside WRITE setShowsSetAside NOTIFY filterChanged)
    Q_PROPERTY(int currentRow READ currentRow WRITE setCurrentRow NOTIFY currentRowChanged)
    Q_PROPERTY(bool hasStory READ hasStory NOTIFY currentRowChanged)
    Q_PROPERTY(QString unreadText READ unreadText NOTIFY countsChanged)
    Q_PROPERTY(QString arrivalsText READ arrivalsText NOTIFY countsChanged)
    Q_PROPERTY(QString emptyMessage READ emptyMessage NOTIFY countsChanged)
    Q_PROPERTY(QString emptyHint READ emptyHint NOTIFY countsChanged)
    Q_PROPERTY(bool canClear READ canClear NOTIFY countsChanged)

public:
    WirePage(NewsDesk& desk, NewsroomStore& newsrooms, const Defaults& defaults, kit::Clock clock,
             QObject* parent = nullptr);

    /// The place must be a list of stories. Ends the search; the filters stay.
    void open(const Destination& place);
    const Destination& place() const { return place_; }
    /// Chooses the story where it is in the list, and shows it in the reader anyway.
    void openStory(const QString& storyID);

    QString title() const;
    StoryListModel* list() { return &list_; }
    ReaderModel* reader() { return &reader_; }
    const QString& searchText() const { return searchText_; }
    void setSearchText(const QString& text);
    bool isSearching() const { return !searchText_.trimmed().isEmpty(); }
    FilterOptions* kinds() { return &kinds_; }
    FilterOptions* sourcings() { return &sourcings_; }
    FilterOptions* sources() { return &sources_; }
    bool showsSetAside() const { return showsSetAside_; }
    void setShowsSetAside(bool shows);

    int currentRow() const { return currentRow_; }
    void setCurrentRow(int row);
    bool hasStory() const { return reader_.hasStory(); }
    QString unreadText() const;
    QString arrivalsText() const;
    QString emptyMessage() const;
    QString emptyHint() const;
    bool canClear() const;

    // What the reader does.
    Q_INVOKABLE void step(int by);
    /// Marks the story read and goes to the next unread one in that direction. False when there
    /// is none.
    Q_INVOKABLE bool stepUnread(int direction);
    Q_INVOKABLE void openInBrowser();
    Q_INVOKABLE void toggleSaved();
    Q_INVOKABLE void toggleRead();
    Q_INVOKABLE void markAllRead();
    Q_INVOKABLE void copyLink();
    Q_INVOKABLE void copyCitation();
    Q_INVOKABLE void traceStory();
    Q_INVOKABLE void showArrivals();
    /// Takes the last mark back. False when there is nothing to take back.
    Q_INVOKABLE bool undo();
    bool canUndo() const { return desk_.canUndo(); }
    /// Search and filters.
    Q_INVOKABLE void clearAll();

signals:
    void placeChanged();
    void searchChanged();
    void filterChanged();
    void currentRowChanged();
    void countsChanged();
    void undoChanged();
    /// A mark that can be undone, in a sentence for the user.
    void marked(const QString& sentence);
    void noticed(const QString& sentence);
    void linkWanted(const QString& link);
    /// The list has jumped to its beginning.
    void listBegins();

private:
    StoryFilter filter() const;
    kit::StoryQuery placeQuery() const;
    void offerChoices();
    void refilter();
    void search();
    void takeFound(const std::vector<std::int64_t>& found);
    void choose(std::optional<std::int64_t> number);
    void findCurrentRow();
    void markRead(bool read);
    std::string currentID() const;

    NewsDesk& desk_;
    NewsroomStore& newsrooms_;
    Destination place_;
    StoryListModel list_;
    ReaderModel reader_;
    FilterOptions kinds_;
    FilterOptions sourcings_;
    FilterOptions sources_;
    bool showsSetAside_ = false;
    QString searchText_;
    QString searched_;                 ///< what the list shows the answer to
    std::vector<std::int64_t> found_;  ///< that answer
    int currentRow_ = -1;
    QTimer typing_;
    QTimer reading_;  ///< a story that stays in the reader for so long counts as read
};

}  // namespace app
