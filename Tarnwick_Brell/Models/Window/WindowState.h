#pragma once

#include <optional>

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWindow>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// What the window looked like when it was left: its place, its parts, what it showed. Kept
/// in the settings file a moment after a change; values there that make no sense count as
/// absent. When the file can't be written, `failed` says so once and the window goes on.
class WindowState : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A window has one state.")
    Q_PROPERTY(int sidebarWidth READ sidebarWidth WRITE setSidebarWidth NOTIFY changed)
    Q_PROPERTY(bool sidebarShown READ sidebarShown WRITE setSidebarShown NOTIFY changed)
    Q_PROPERTY(int listWidth READ listWidth WRITE setListWidth NOTIFY changed)
    Q_PROPERTY(app::WindowState::Reader reader READ reader WRITE setReader NOTIFY changed)
    Q_PROPERTY(QString place READ place WRITE setPlace NOTIFY changed)
    Q_PROPERTY(QStringList collapsedGroups READ collapsedGroups NOTIFY changed)

public:
    /// Where the reader stands, in the order of the setting's choices.
    enum Reader { Right, Below, Hidden };
    Q_ENUM(Reader)

    static constexpr int kLeastSidebar = 200, kSidebar = 240, kMostSidebar = 360;
    static constexpr int kLeastList = 400, kList = 580, kMostList = 4'000;

    /// `number` tells the windows apart, from 1; each remembers for itself.
    explicit WindowState(Defaults& defaults, int number = 1);
    /// Keeps what has not been kept yet.
    ~WindowState() override;

    /// Gives the window, which is not shown yet, the place of the one before, and follows it.
    void attach(QWindow* window);
    /// The frame of the window while it was neither maximised nor full screen.
    const std::optional<QRect>& frame() const { return now_.frame; }
    bool isMaximised() const { return now_.isMaximised; }

    int sidebarWidth() const { return now_.sidebarWidth; }
    void setSidebarWidth(int width);
    bool sidebarShown() const { return now_.sidebarShown; }
    void setSidebarShown(bool shown);
    int listWidth() const { return now_.listWidth; }
    void setListWidth(int width);
    Reader reader() const { return reader_; }
    /// For all windows, as the setting.
    void setReader(Reader reader);
    /// The next place in turn: right, below, hidden.
    Q_INVOKABLE void moveReader();
    /// The sidebar's key of what is shown; empty when nothing was remembered.
    const QString& place() const { return now_.place; }
    void setPlace(const QString& key);
    /// The story in the reader and the first one to be seen in the list, by their ids. Forgotten
    /// when the run ends in order.
    const QString& story() const { return now_.story; }
    void setStory(const QString& storyID);
    const QString& topStory() const { return now_.topStory; }
    void setTopStory(const QString& storyID);
    const QStringList& collapsedGroups() const { return now_.collapsedGroups; }
    Q_INVOKABLE void setCollapsed(const QString& group, bool collapsed);
    /// Whether the list of this place shows clusters in place of stories.
    bool isClustered(const QString& place) const;
    void setClustered(const QString& place, bool clustered);

    /// At once, as when the window closes; a timer does it otherwise.
    Q_INVOKABLE void save();

signals:
    void changed();
    void failed(const QString& sentence);

private:
    struct State {
        std::optional<QRect> frame{};
        bool isMaximised = false;
        int sidebarWidth = kSidebar;
        bool sidebarShown = true;
        int listWidth = kList;
        QString place{};
        QStringList collapsedGroups{};
        QStringList clusteredPlaces{};
        QStringList unclusteredPlaces{};  ///< that show stories because the user wants them
        QString story{};
        QString topStory{};

        bool operator==(const State&) const = default;
    };

    static State read(const Defaults::Memory& memory);
    static Defaults::Memory written(const State& state);
    void setState(const State& state);
    void updateFrame();
    void returnToScreens();
    void readReader(const QString& key);
    void fail(const QString& sentence);

    Defaults& defaults_;
    std::string memory_;  ///< its name in the settings file
    QPointer<QWindow> window_;
    State now_;
    State kept_;
    Reader reader_;
    bool hasFailed_ = false;
    QTimer saving_;
};

}  // namespace app
