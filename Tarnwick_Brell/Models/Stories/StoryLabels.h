#pragma once

#include <QObject>
#include <qqmlregistration.h>

#include "NewsroomKit/Stories/Sourcing.h"

/// How firmly a story is sourced, for views that colour it.
namespace desk::StorySourcing {

Q_NAMESPACE
QML_ELEMENT

/// In the order of newsroom::Sourcing.
enum Value { Confirmed, OnRecord, Report, Rumor, Unlabeled };
Q_ENUM_NS(Value)

constexpr Value of(newsroom::Sourcing sourcing) { return static_cast<Value>(sourcing); }

static_assert(of(newsroom::Sourcing::unlabeled) == Unlabeled);

}  // namespace desk::StorySourcing
