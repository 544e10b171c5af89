#pragma once

#include <QObject>
#include <qqmlregistration.h>

#include "NewsroomKit/Stories/Sourcing.h"

/// How firmly a story is sourced, for views that colour it.
namespace app::StorySourcing {

Q_NAMESPACE
QML_ELEMENT

/// In the order of kit::Sourcing.
enum Value { Confirmed, OnRecord, Report, Rumor, Unlabeled };
Q_ENUM_NS(Value)

constexpr Value of(kit::Sourcing sourcing) { return static_cast<Value>(sourcing); }

static_assert(of(kit::Sourcing::unlabeled) == Unlabeled);

}  // namespace app::StorySourcing
