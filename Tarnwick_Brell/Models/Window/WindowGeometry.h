#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace app {

/// Where a window that stood at `wanted` can stand on these screens (the parts that windows
/// may cover, the first the main one): whole on the screen that holds most of it, else in the
/// middle of the main one. Not smaller than `least`, whatever the screens.
QRect placeOnScreens(QRect wanted, QSize least, const QList<QRect>& screens);

}  // namespace app
