#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <qqmlregistration.h>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

/// How fetching goes, for the toolbar and the band below it.
class RefreshStatus : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one.")
    Q_PROPERTY(bool isRefreshing READ isRefreshing NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool isOffline READ isOffline NOTIFY changed)
    Q_PROPERTY(QString offlineText READ offlineText NOTIFY changed)
    Q_PROPERTY(bool isLive READ isLive NOTIFY changed)
    Q_PROPERTY(QString liveText READ liveText NOTIFY changed)
    Q_PROPERTY(QString libraryTrouble READ libraryTrouble NOTIFY changed)

public:
    struct Stores {
        NewsDesk& news;
        TrackerStore& trackers;
    };

    RefreshStatus(const Stores& stores, kit::Clock clock, QObject* parent = nullptr);

    bool isRefreshing() const { return desk_.isRefreshing(); }
    /// From 0 to 1.
    double progress() const;
    /// "Refreshing, 23 of 31 sources", or "Refreshed 14:32"
    QString text() const;
    bool isOffline() const { return desk_.lastPassFailed(); }
    QString offlineText() const;
    /// Nothing can be kept until something has been done about it.
    const QString& libraryTrouble() const { return libraryTrouble_; }

    /// During an event sources are fetched every minute.
    bool isLive() const { return desk_.liveUntil().has_value(); }
    QString liveText() const;  ///< "Live until 21:00"
    Q_INVOKABLE void endLive();

    /// Fetches everything that the window shows: sources and trackers.
    Q_INVOKABLE void refresh();
    /// What has been fetched stays.
    Q_INVOKABLE void stop();

signals:
    void changed();
    /// A failure that passes, in a sentence.
    void failed(const QString& sentence);

private:
    NewsDesk& desk_;
    TrackerStore& trackers_;
    kit::Clock clock_;
    std::optional<kit::Instant> offlineSince_;
    QString libraryTrouble_;
    QTimer minute_;
};

}  // namespace app
