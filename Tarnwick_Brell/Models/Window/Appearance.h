#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/Window/PortalSettings.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// How the window shall look: light or dark, larger or smaller text, with or without motion
/// and pictures, by the user's setting and the desktop's. The desktop is asked without waiting;
/// without its portal the application's palette decides.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one appearance.")
    Q_PROPERTY(app::Appearance::Choice choice READ choice WRITE setChoice NOTIFY changed)
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(qreal fontScale READ fontScale NOTIFY changed)
    Q_PROPERTY(int density READ density NOTIFY changed)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY changed)
    Q_PROPERTY(bool reducedMotion READ reducedMotion NOTIFY changed)
    Q_PROPERTY(bool showsPictures READ showsPictures NOTIFY changed)

public:
    /// In the order of the setting's choices.
    enum Choice { System, Light, Dark };
    Q_ENUM(Choice)

    Appearance(Defaults& defaults, QDBusConnection bus = QDBusConnection::sessionBus());

    Choice choice() const;
    /// Written at once.
    void setChoice(Choice choice);
    bool isDark() const { return now_.isDark; }
    qreal fontScale() const { return now_.fontScale; }
    /// How much room rows have: -1, 0 or 1.
    int density() const { return now_.density; }
    bool highContrast() const { return now_.highContrast; }
    bool reducedMotion() const { return now_.reducedMotion; }
    bool showsPictures() const { return now_.showsPictures; }

    /// The setting may have been changed by somebody else.
    Q_INVOKABLE void reload();

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// Before `changed`: bindings of QML hear of a signal before all others, and ask for pictures
    /// at once.
    void picturesSwitched(bool on);
    void changed();
    /// The setting can't be kept; a sentence for the user.
    void failed(const QString& sentence);

private slots:
    // Called by the bus.
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    struct Look {
        Choice choice = System;
        bool isDark = false;
        qreal fontScale = 1;
        int density = 0;
        bool highContrast = false;
        bool reducedMotion = false;
        bool showsPictures = false;

        bool operator==(const Look&) const = default;
    };

    void askDesktop();
    void refresh();

    Defaults& defaults_;
    QDBusConnection bus_;
    PortalSettings desktop_;
    Look now_;
};

}  // namespace app
