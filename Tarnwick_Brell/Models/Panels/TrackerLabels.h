#pragma once

#include <QObject>
#include <qqmlregistration.h>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"
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

/// The direction of what is shown: a change that rounds to nothing is flat.
inline PriceMove::Value moveOf(const std::optional<kit::PriceChange>& change) {
    if (!change) return PriceMove::Unknown;
    return static_cast<PriceMove::Value>(PriceMove::Flat + directionOf(change->amount));
}

/// How bad a problem of a service is.
namespace ProblemLevel {

Q_NAMESPACE
QML_ELEMENT

enum Value { Issue, Outage, Maintenance };
Q_ENUM_NS(Value)

}  // namespace ProblemLevel

inline ProblemLevel::Value levelOf(kit::ProblemLevel level) {
    switch (level) {
        case kit::ProblemLevel::issue: return ProblemLevel::Issue;
        case kit::ProblemLevel::outage: return ProblemLevel::Outage;
        case kit::ProblemLevel::maintenance: return ProblemLevel::Maintenance;
    }
    return ProblemLevel::Issue;
}

}  // namespace app
