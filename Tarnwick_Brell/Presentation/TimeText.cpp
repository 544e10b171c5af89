#include "Tarnwick_Brell/Presentation/TimeText.h"

#include <chrono>

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

namespace app {

namespace {

using namespace std::chrono;
using kit::Instant;

struct TimeText {
    Q_DECLARE_TR_FUNCTIONS(TimeText)
};

QDateTime inZone(Instant instant, Qt::TimeSpec zone) {
    const auto milliseconds = floor<std::chrono::milliseconds>(instant.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(milliseconds.count(), zone);
}

QDateTime local(Instant instant) { return inZone(instant, Qt::LocalTime); }

bool isSameYear(const QDateTime& one, const QDateTime& other) {
    return one.date().year() == other.date().year();
}

QString shortDay(const QDateTime& date, Instant now) {
    return QLocale().toString(date, isSameYear(date, local(now)) ? QStringLiteral("d MMM")
                                                                 : QStringLiteral("d MMM yyyy"));
}

}  // namespace

int daysBetween(Instant now, Instant then) {
    return static_cast<int>(local(now).date().daysTo(local(then).date()));
}

QString ageText(Instant then, Instant now) {
    const auto passed = now - then;
    if (passed < minutes(1)) return TimeText::tr("now");
    if (passed < hours(1))
        return TimeText::tr("%1 min").arg(duration_cast<minutes>(passed).count());
    const auto days = -daysBetween(now, then);
    // Late in the evening "3 h" still says more than a date.
    if (passed < hours(12) || days == 0)
        return TimeText::tr("%1 h").arg(duration_cast<hours>(passed).count());
    if (days == 1) return TimeText::tr("Yesterday");
    return shortDayText(then, now);
}

QString agoText(Instant then, Instant now) {
    const auto passed = now - then;
    if (passed < minutes(1)) return TimeText::tr("just now");
    const auto age = ageText(then, now);
    if (passed < hours(1) || -daysBetween(now, then) == 0 || passed < hours(12)) {
        return TimeText::tr("%1 ago").arg(age);
    }
    return -daysBetween(now, then) == 1 ? TimeText::tr("yesterday")
                                        : TimeText::tr("on %1").arg(age);
}

QString spanText(Instant::duration span) {
    const auto whole = floor<minutes>(span);
    if (whole < minutes(1)) return TimeText::tr("under a minute");
    if (whole < hours(1)) return TimeText::tr("%1 min").arg(whole.count());
    const auto wholeHours = floor<hours>(whole);
    if (whole < days(1)) {
        const auto rest = (whole - wholeHours).count();
        return rest == 0 ? TimeText::tr("%1 h").arg(wholeHours.count())
                         : TimeText::tr("%1 h %2 min").arg(wholeHours.count()).arg(rest);
    }
    const auto wholeDays = floor<days>(whole);
    const auto rest = (wholeHours - wholeDays).count();
    return rest == 0 ? TimeText::tr("%1 d").arg(wholeDays.count())
                     : TimeText::tr("%1 d %2 h").arg(wholeDays.count()).arg(rest);
}

/// Some locales, the plain "C" among them, write seconds even in their short form.
QString clockText(Instant then) {
    const QLocale locale;
    auto format = locale.timeFormat(QLocale::ShortFormat);
    format.remove(QStringLiteral(":ss"));
    return locale.toString(local(then).time(), format);
}

QString shortDayText(Instant then, Instant now) { return shortDay(local(then), now); }

QString namedDayText(Instant day, Instant now) { return shortDay(inZone(day, Qt::UTC), now); }

QString dayText(Instant then, Instant now) {
    return QLocale().toString(local(then), QStringLiteral("ddd ")) + shortDayText(then, now);
}

QString momentText(Instant then, Instant now) {
    const auto days = daysBetween(now, then);
    if (days == 0) return clockText(then);
    const auto day = days == -1  ? TimeText::tr("Yesterday")
                     : days == 1 ? TimeText::tr("Tomorrow")
                                 : shortDayText(then, now);
    return day + u' ' + clockText(then);
}

}  // namespace app
