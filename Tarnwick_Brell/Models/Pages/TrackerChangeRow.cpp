#include "Tarnwick_Brell/Models/Pages/TrackerChangeRow.h"

#include <algorithm>

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct TrackerChangeText {
    Q_DECLARE_TR_FUNCTIONS(TrackerChangeText)
};

QString dayHeading(kit::Instant seenAt, kit::Instant now) {
    switch (daysBetween(now, seenAt)) {
        case 0: return TrackerChangeText::tr("Today");
        case -1: return TrackerChangeText::tr("Yesterday");
        default: return dayText(seenAt, now);
    }
}

}  // namespace

void addChange(std::vector<TrackerChangeRow>& rows, TrackerChangeRow row, kit::Instant seenAt,
               kit::Instant now) {
    const auto heading = dayHeading(seenAt, now);
    const auto above =
        std::ranges::find_if(rows.rbegin(), rows.rend(),
                             [](const TrackerChangeRow& each) { return !each.heading.isEmpty(); });
    if (above == rows.rend() || above->heading != heading) row.heading = heading;
    row.when = clockText(seenAt);
    row.spokenText = TrackerChangeText::tr("%1, %2, seen %3")
                         .arg(row.title, row.detail, momentText(seenAt, now));
    rows.push_back(std::move(row));
}

QString lateChangesText(std::size_t count) {
    return TrackerChangeText::tr("%n in 30 days", nullptr, static_cast<int>(count));
}

}  // namespace app
