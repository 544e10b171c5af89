#include "Tarnwick_Brell/Models/Window/WindowGeometry.h"

#include <algorithm>

namespace app {

namespace {

qint64 area(const QRect& rect) { return rect.isEmpty() ? 0 : qint64{rect.width()} * rect.height(); }

}  // namespace

QRect placeOnScreens(QRect wanted, QSize least, const QList<QRect>& screens) {
    if (screens.isEmpty()) return wanted;
    const auto held = [&](const QRect& screen) { return area(screen & wanted); };
    const auto screen = *std::ranges::max_element(screens, {}, held);
    const bool isHeld = held(screen) > 0;
    const auto& home = isHeld ? screen : screens.first();
    wanted.setSize(wanted.size().boundedTo(home.size()).expandedTo(least));
    if (!isHeld) wanted.moveCenter(home.center());
    wanted.moveLeft(
        std::max(home.left(), std::min(wanted.left(), home.right() + 1 - wanted.width())));
    wanted.moveTop(
        std::max(home.top(), std::min(wanted.top(), home.bottom() + 1 - wanted.height())));
    return wanted;
}

}  // namespace app
