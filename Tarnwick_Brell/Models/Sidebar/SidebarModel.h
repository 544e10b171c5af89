#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Models/Sidebar/UnreadCounts.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

class AlertStore;

/// How the fetching of a source goes, as its mark shows it.
namespace SourceMark {

Q_NAMESPACE
QML_ELEMENT

enum Value { None, Fresh, Unchanged, Failing, Never, Off };
Q_ENUM_NS(Value)

}  // namespace SourceMark

namespace SidebarKind {

Q_NAMESPACE
QML_ELEMENT

enum Value {
    Section,  ///< a label over the rows that follow
    Item,     ///< a place with a symbol
    Group,    ///< a category of sources, which opens and closes
    Source
};
Q_ENUM_NS(Value)

}  // namespace SidebarKind

struct SidebarRow {
    Q_GADGET
    Q_PROPERTY(app::SidebarKind::Value kind MEMBER kind)
    Q_PROPERTY(QString key MEMBER key)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString count MEMBER count)
    Q_PROPERTY(app::SourceMark::Value mark MEMBER mark)
    Q_PROPERTY(bool isExpanded MEMBER isExpanded)
    Q_PROPERTY(bool isCurrent MEMBER isCurrent)
    Q_PROPERTY(QString spokenText MEMBER spokenText)
    Q_PROPERTY(QString hint MEMBER hint)
    Q_PROPERTY(bool isNewsroom MEMBER isNewsroom)
    Q_PROPERTY(bool isBeat MEMBER isBeat)
    Q_PROPERTY(bool takesStories MEMBER takesStories)

public:
    SidebarKind::Value kind = SidebarKind::Item;
    QString key{};  ///< of the place, or of the group
    QString title{};
    QString symbol{};
    QString count{};  ///< unread stories or problems; empty for none
    SourceMark::Value mark = SourceMark::None;
    bool isExpanded = true;
    bool isCurrent = false;
    QString spokenText{};
    bool isNewsroom = false;
    bool isBeat = false;
    bool takesStories = false;  ///< stories can be dropped on it
    QString hint{};             ///< why a source fails, or has fewer stories than its feed

    bool operator==(const SidebarRow&) const = default;
};

/// The sidebar as a flat list: newsrooms, the wire's lists, beats, sources by category, trackers.
class SidebarModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one sidebar.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QString foot READ foot NOTIFY changed)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY changed)
    Q_PROPERTY(QString storyKind READ storyKind CONSTANT)

public:
    explicit SidebarModel(const DeskStores& stores, QObject* parent = nullptr);

    /// For lists of destinations elsewhere, such as the palette's.
    struct NamedDestination {
        Destination place;
        QString title;
        QString symbol;
    };
    /// All that are there, those of closed groups included.
    std::vector<NamedDestination> destinations() const;

    QAbstractListModel* rows() { return &rows_; }
    const QString& foot() const { return foot_; }
    int currentRow() const;
    /// The kind of data by which a story that is dragged is known.
    QString storyKind() const;
    int unread() const { return tally_.unread(); }
    void setCurrent(const QString& key);

    void setClosedGroups(const QStringList& keys);
    /// What a new user finds closed, so that everything has its place on one screen.
    static QStringList groupsClosedAtFirst();

    /// The place of the row before or after the current one.
    std::optional<Destination> neighbour(int step) const;
    /// The place of the n-th item, counted from 1.
    std::optional<Destination> item(int n) const;

    /// A click on a row, by its key: groups open and close, places are gone to.
    Q_INVOKABLE void activate(const QString& key);
    Q_INVOKABLE void setExpanded(const QString& key, bool expanded);

signals:
    void changed();
    void placeWanted(const QString& key);
    void groupToggled(const QString& key, bool collapsed);

private:
    void rebuildSoon();
    void rebuild();
    void addNewsrooms(std::vector<SidebarRow>& rows) const;
    void addWire(std::vector<SidebarRow>& rows) const;
    void addLibrary(std::vector<SidebarRow>& rows) const;
    void countKept();
    void addBeats(std::vector<SidebarRow>& rows) const;
    void addSources(std::vector<SidebarRow>& rows) const;
    void addTrackers(std::vector<SidebarRow>& rows) const;
    SidebarRow sourceRow(const kit::NewsSource& source) const;
    SourceMark::Value markOf(const std::string& sourceID) const;
    QString hintOf(const std::string& id) const;
    int changedPages() const;
    QString footText() const;

    NewsDesk& desk_;
    NewsroomStore& newsrooms_;
    TrackerStore& trackers_;
    AlertStore& alerts_;
    LibraryStore& library_;
    kit::Clock clock_;
    LibraryStore::Counts kept_;
    UnreadCounts tally_;
    GadgetListModel<SidebarRow> rows_;
    QString current_;
    QStringList closed_;
    QString foot_;
    QTimer soon_;
};

}  // namespace app
