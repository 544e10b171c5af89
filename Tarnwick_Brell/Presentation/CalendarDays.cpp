#include "Tarnwick_Brell/Presentation/CalendarDays.h"

#include <chrono>

#include <QDateTime>

namespace app {

std::vector<kit::Instant> lastDays(kit::Instant now, int count, const Style& style) {
    const auto time = std::chrono::floor<std::chrono::milliseconds>(now.time_since_epoch());
    const auto today = QDateTime::fromMSecsSinceEpoch(time.count(), style.zone).date();
    std::vector<kit::Instant> bounds;
    for (int day = 1 - count; day <= 1; ++day) {
        const auto begin = today.addDays(day).startOfDay(style.zone);
        bounds.emplace_back(std::chrono::milliseconds(begin.toMSecsSinceEpoch()));
    }
    return bounds;
}

}  // namespace app
