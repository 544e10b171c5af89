#pragma once

#include <QLocale>

namespace app {

/// How a face writes times and numbers.
struct Style {
    Qt::TimeSpec zone = Qt::LocalTime;
    QLocale locale{};
    /// Dates are "2026-11-02" and times "08:30 CET". They carry their zone and year, so that they
    /// stay true where they are pasted.
    bool isPlain = false;

    /// The window's: the zone, the language and the way to write numbers of the user.
    static Style ofUser() { return {}; }

    /// The command line's: the user's zone, and one way to write numbers on every computer.
    static Style plain() {
        return {.locale = QLocale(QLocale::English, QLocale::UnitedStates), .isPlain = true};
    }
};

}  // namespace app
