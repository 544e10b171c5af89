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

QString shortDay(const QDateTime& date, Instant now, const Style& style) {
    if (style.isPlain) return date.date().toString(Qt::ISODate);
    const bool isSameYear = date.date().year() == inZone(now, style.zone).date().year();
    return style.locale.toString(
        date, isSameYear ? QStringLiteral("d MMM") : QStringLiteral("d MMM yyyy"));
}

/// Late in the evening "3 h" still says more than a date.
bool isShownInHours(Instant::duration distance, int days) {
    return distance < hours(12) || days == 0;
}

}  // namespace

int daysBetween(Instant now, Instant then, const Style& style) {
    const auto today = inZone(now, style.zone).date();
    return static_cast<int>(today.daysTo(inZone(then, style.zone).date()));
}

QString ageText(Instant then, Instant now, const Style& style) {
    const auto passed = now - then;
    if (passed < minutes(1)) return TimeText::tr("now");
    if (passed < hours(1))
        return TimeText::tr("%1 min").arg(duration_cast<minutes>(passed).count());
    const auto days = daysBetween(now, then, style);
    if (isShownInHours(passed, days))
        return TimeText::tr("%1 h").arg(duration_cast<hours>(passed).count());
    if (days == -1) return TimeText::tr("Yesterday");
    return shortDayText(then, now, style);
}

QString agoText(Instant then, Instant now, const Style& style) {
    const bool isAhead = then > now;
    const auto distance = isAhead ? then - now : now - then;
    if (distance < minutes(1)) return isAhead ? TimeText::tr("now") : TimeText::tr("just now");
    if (distance < hours(1)) {
        const auto text = isAhead ? TimeText::tr("in %1 min") : TimeText::tr("%1 min ago");
        return text.arg(floor<minutes>(distance).count());
    }
    const auto days = daysBetween(now, then, style);
    if (isShownInHours(distance, days)) {
        const auto text = isAhead ? TimeText::tr("in %1 h") : TimeText::tr("%1 h ago");
        return text.arg(floor<hours>(distance).count());
    }
    return daysAwayText(days);
}

QString daysAwayText(int days) {
    if (days == 0) return TimeText::tr("today");
    if (days == 1) return TimeText::tr("tomorrow");
    if (days == -1) return TimeText::tr("yesterday");
    return days > 0 ? TimeText::tr("in %n days", nullptr, days)
                    : TimeText::tr("%n days ago", nullptr, -days);
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

QString clockText(Instant then, const Style& style) {
    const auto date = inZone(then, style.zone);
    const auto time = date.time();
    if (style.isPlain)
        return time.toString(QStringLiteral("HH:mm")) + u' ' + date.timeZoneAbbreviation();
    // Some locales, the plain "C" among them, write seconds even in their short form.
    auto format = style.locale.timeFormat(QLocale::ShortFormat);
    format.remove(QStringLiteral(":ss"));
    return style.locale.toString(time, format);
}

QString shortDayText(Instant then, Instant now, const Style& style) {
    return shortDay(inZone(then, style.zone), now, style);
}

QString namedDayText(Instant day, Instant now, const Style& style) {
    return shortDay(inZone(day, Qt::UTC), now, style);
}

QString dayHeadingText(kit::Instant day, kit::Instant now) {
    const auto days = daysBetween(now, day);
    auto text = days == 0 || days == -1 ? daysAwayText(days) : dayText(day, now);
    text[0] = text[0].toUpper();
    return text;
}

QString dayText(Instant then, Instant now, const Style& style) {
    const auto day = shortDayText(then, now, style);
    if (style.isPlain) return day;
    return style.locale.toString(inZone(then, style.zone), QStringLiteral("ddd ")) + day;
}

QString momentText(Instant then, Instant now, const Style& style) {
    const auto clock = clockText(then, style);
    if (style.isPlain) return shortDayText(then, now, style) + u' ' + clock;
    const auto days = daysBetween(now, then, style);
    if (days == 0) return clock;
    const auto day = days == -1  ? TimeText::tr("Yesterday")
                     : days == 1 ? TimeText::tr("Tomorrow")
                                 : shortDayText(then, now, style);
    return day + u' ' + clock;
}

QString wholeMomentText(Instant then, const Style& style) {
    if (style.isPlain) return momentText(then, then, style);
    const auto date = inZone(then, style.zone);
    const auto day = style.locale.toString(date, QStringLiteral("d MMM yyyy"));
    return QStringLiteral("%1, %2 %3")
        .arg(day, clockText(then, style), date.timeZoneAbbreviation());
}

}  // namespace app
