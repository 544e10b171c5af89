#include "Tarnwick_Brell/Models/Pages/ArchivePeriods.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

namespace app {

namespace {

struct ArchivePeriods {
    Q_DECLARE_TR_FUNCTIONS(ArchivePeriods)
};

double secondsAtStartOf(const QDate& day) {
    return static_cast<double>(day.startOfDay().toMSecsSinceEpoch()) / 1000;
}

}  // namespace

CalendarPeriod CalendarPeriod::around(const QDate& day, Length length) {
    if (length == Month)
        return {QDate(day.year(), day.month(), 1),
                QDate(day.year(), day.month(), day.daysInMonth())};
    if (length == Day) return {day, day};
    const int weekday = (day.dayOfWeek() - QLocale().firstDayOfWeek() + 7) % 7;
    return {day.addDays(-weekday), day.addDays(6 - weekday)};
}

kit::ArchivePeriod CalendarPeriod::instants() const {
    return {.after = secondsAtStartOf(first), .before = secondsAtStartOf(last.addDays(1))};
}

QString CalendarPeriod::text() const {
    const QLocale locale;
    if (first == last) return locale.toString(first, QStringLiteral("ddd d MMMM yyyy"));
    if (first.day() == 1 && last.day() == last.daysInMonth() && first.month() == last.month())
        return locale.toString(first, QStringLiteral("MMMM yyyy"));
    const auto begin = locale.toString(
        first, first.month() == last.month() ? QStringLiteral("d") : QStringLiteral("d MMMM"));
    return ArchivePeriods::tr("%1 to %2")
        .arg(begin, locale.toString(last, QStringLiteral("d MMMM yyyy")));
}

}  // namespace app
