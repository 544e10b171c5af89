#pragma once

#include <QObject>
#include <QString>

namespace app {

/// A line about firmware or updates.
struct SignalRow {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< of this line and those below it
    QString title{};
    QString detail{};
    QString when{};
    QString spokenText{};

    bool operator==(const SignalRow&) const = default;
};

}  // namespace app
