#include "Tarnwick_Brell/Models/Sidebar/TrackerPlaces.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Text/ShownText.h"

namespace desk {

namespace {

using newsroom::PanelKind;
using newsroom::PanelSpec;

constexpr std::int64_t kColumns = 12;
constexpr std::int64_t kPageRows = 6;

/// Side by side over the whole page; the first one takes what is left over.
newsroom::NewsroomSpec pageOf(std::string_view name, std::string_view symbol,
                              const std::vector<PanelKind>& kinds) {
    newsroom::NewsroomSpec page{.id = newsroom::UUID::random(),
                                .name = std::string(name),
                                .symbol = std::string(symbol)};
    const auto count = static_cast<std::int64_t>(kinds.size());
    std::int64_t column = 0;
    for (const auto kind : kinds) {
        const auto width = column == 0 ? kColumns - (count - 1) * (kColumns / count)
                                       : kColumns / count;
        page.panels.push_back({.id = newsroom::UUID::random(),
                               .kind = kind,
                               .title = std::string(kindRow(kind).label),
                               .frame = {.column = column, .row = 0, .width = width, .height = kPageRows}});
        column += width;
    }
    return page;
}

}  // namespace

const std::vector<TrackerPlace>& trackerPlaces() {
    static const std::vector<TrackerPlace> places{
        {"status", QT_TRANSLATE_NOOP("TrackerPlaces", "Service status"), "waveform.path.ecg",
         {PanelKind::status}},
        {"software", QT_TRANSLATE_NOOP("TrackerPlaces", "Software"), "iphone.gen3",
         {PanelKind::software, PanelKind::releases}},
        {"events", QT_TRANSLATE_NOOP("TrackerPlaces", "Events"), "calendar", {PanelKind::countdown}},
        {"markets", QT_TRANSLATE_NOOP("TrackerPlaces", "Markets"), "chart.line.uptrend.xyaxis",
         {PanelKind::stock, PanelKind::suppliers}},
    };
    return places;
}

QString titleOf(const TrackerPlace& place) {
    return QCoreApplication::translate("TrackerPlaces", place.title);
}

newsroom::NewsroomSpec pageOf(const TrackerPlace& place) {
    return pageOf(place.title, place.symbol, place.panels);
}

newsroom::NewsroomSpec pageOf(PanelKind kind) {
    return pageOf(kindRow(kind).label, kindRow(kind).symbol, {kind});
}

}  // namespace desk
