#pragma once

#include <vector>

#include <QDate>
#include <QString>

#include "NewsroomKit/Archive/ArchiveAddresses.h"

namespace app {

/// A day, a week or a month of the reader's calendar.
struct CalendarPeriod {
    enum Length { Day, Week, Month };

    QDate first{};
    QDate last{};  ///< belongs to it

    /// The one that a day lies in. Weeks begin as the user's language has it.
    static CalendarPeriod around(const QDate& day, Length length);

    /// From the first midnight to the one after the last day, where the reader is.
    kit::ArchivePeriod instants() const;
    QString text() const;  ///< "Wed 9 September 2026", "7 to 13 September 2026"

    bool operator==(const CalendarPeriod&) const = default;
};

}  // namespace app
