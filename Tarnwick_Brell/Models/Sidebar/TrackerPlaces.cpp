#include "Tarnwick_Brell/Models/Sidebar/TrackerPlaces.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Text/ShownText.h"

namespace desk {

namespace {

using newsroom::PanelKind;
using Kinds = std::vector<PanelContent::Kind>;

constexpr std::int64_t kPageRows = 6;

QString translated(const char* text) { return QCoreApplication::translate("TrackerPlaces", text); }

DeskPage::Panel panelOf(PanelContent::Kind kind) {
    switch (kind) {
        case PanelContent::SignedBuilds:
            return {kind, translated(QT_TRANSLATE_NOOP("TrackerPlaces", "Signed now")),
                    QStringLiteral("shield")};
        case PanelContent::TopFree:
            return {kind, translated(QT_TRANSLATE_NOOP("TrackerPlaces", "Top free")),
                    QStringLiteral("list.number")};
        case PanelContent::TopPaid:
            return {kind, translated(QT_TRANSLATE_NOOP("TrackerPlaces", "Top paid")),
                    QStringLiteral("list.number")};
        default: break;
    }
    const auto& row = kindRow(static_cast<PanelKind>(kind));
    return {kind, plainText(row.label), plainText(row.symbol)};
}

/// Side by side over the whole page; the first one takes what is left over.
DeskPage pageOf(const QString& title, const Kinds& kinds) {
    DeskPage page{.title = title};
    const auto count = static_cast<std::int64_t>(kinds.size());
    const auto share = newsroom::kGridColumns / count;
    std::int64_t column = 0;
    for (const auto kind : kinds) {
        const auto width = column == 0 ? newsroom::kGridColumns - (count - 1) * share : share;
        page.panels.push_back(panelOf(kind));
        page.panels.back().frame = {
            .column = column, .row = 0, .width = width, .height = kPageRows};
        column += width;
    }
    return page;
}

}  // namespace

const std::vector<TrackerPlace>& trackerPlaces() {
    using enum PanelContent::Kind;
    static const std::vector<TrackerPlace> places{
        {"status",
         QT_TRANSLATE_NOOP("TrackerPlaces", "Service status"),
         "waveform.path.ecg",
         {Status}},
        {"software",
         QT_TRANSLATE_NOOP("TrackerPlaces", "Software"),
         "iphone.gen3",
         {Software, Releases}},
        {"events", QT_TRANSLATE_NOOP("TrackerPlaces", "Events"), "calendar", {Countdown}},
        {"markets",
         QT_TRANSLATE_NOOP("TrackerPlaces", "Markets"),
         "chart.line.uptrend.xyaxis",
         {Stock, Suppliers}},
        {"signing",
         QT_TRANSLATE_NOOP("TrackerPlaces", "Firmware signing"),
         "shield",
         {SignedBuilds, Records}},
        {"updates",
         QT_TRANSLATE_NOOP("TrackerPlaces", "Update catalogue"),
         "server.rack",
         {Backend}},
        {"charts",
         QT_TRANSLATE_NOOP("TrackerPlaces", "App Store charts"),
         "list.number",
         {TopFree, TopPaid}},
    };
    return places;
}

QString titleOf(const TrackerPlace& place) { return translated(place.title); }

DeskPage pageOf(const TrackerPlace& place) { return pageOf(titleOf(place), place.panels); }

DeskPage pageOf(PanelKind kind) {
    return pageOf(plainText(kindRow(kind).label), {static_cast<PanelContent::Kind>(kind)});
}

}  // namespace desk
