#pragma once

#include <QObject>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Presentation/PriceText.h"

/// What views colour in trackers.
namespace app {

/// Which way a price has gone.
namespace PriceMove {

Q_NAMESPACE
QML_ELEMENT

enum Value { Unknown, Down, Flat, Up };
Q_ENUM_NS(Value)

}  // namespace PriceMove

constexpr PriceMove::Value moveOf(int direction) {
    return static_cast<PriceMove::Value>(PriceMove::Flat + direction);
}

static_assert(moveOf(-1) == PriceMove::Down && moveOf(1) == PriceMove::Up);

inline PriceMove::Value moveOf(double price, double reference) {
    return moveOf(directionOf(price - reference));
}

/// How bad a problem of a service is.
namespace ProblemLevel {

Q_NAMESPACE
QML_ELEMENT

enum Value { Issue, Outage, Maintenance };
Q_ENUM_NS(Value)

}  // namespace ProblemLevel

}  // namespace app
