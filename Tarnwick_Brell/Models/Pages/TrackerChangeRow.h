#pragma once

#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Records/Instant.h"

namespace app {

/// A line of what a tracker has seen to change.
struct TrackerChangeRow {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(bool isAddition MEMBER isAddition)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< the day, above its first line
    bool isAddition = false;
    QString title{};
    QString detail{};
    QString when{};  ///< the time of that day
    QString spokenText{};

    bool operator==(const TrackerChangeRow&) const = default;
};

/// Adds a row of that moment behind the rows of later ones.
void addChange(std::vector<TrackerChangeRow>& rows, TrackerChangeRow row, kit::Instant seenAt,
               kit::Instant now);

/// "9 in 30 days"
QString lateChangesText(std::size_t count);

}  // namespace app
