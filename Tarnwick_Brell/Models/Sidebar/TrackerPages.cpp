#include "Tarnwick_Brell/Models/Sidebar/TrackerPages.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using kit::PanelKind;
using Kinds = std::vector<PanelModel::Kind>;

constexpr std::int64_t kPageRows = 6;

QString translated(const char* text) { return QCoreApplication::translate("TrackerPages", text); }

BuiltInPage::Panel panelOf(PanelModel::Kind kind) {
    switch (kind) {
        case PanelModel::SignedBuilds:
            return {kind, translated(QT_TRANSLATE_NOOP("TrackerPages", "Signed now")),
                    QStringLiteral("shield")};
        case PanelModel::TopFree:
            return {kind, translated(QT_TRANSLATE_NOOP("TrackerPages", "Top free")),
                    QStringLiteral("list.number")};
        case PanelModel::TopPaid:
            return {kind, translated(QT_TRANSLATE_NOOP("TrackerPages", "Top paid")),
                    QStringLiteral("list.number")};
        default: break;
    }
    const auto& row = kindRow(static_cast<PanelKind>(kind));
    return {kind, plainText(row.label), plainText(row.symbol)};
}

/// Side by side over the whole page; the first one takes what is left over.
BuiltInPage pageOf(const QString& title, const Kinds& kinds) {
    BuiltInPage page{.title = title};
    const auto count = static_cast<std::int64_t>(kinds.size());
    const auto share = kit::kGridColumns / count;
    std::int64_t column = 0;
    for (const auto kind : kinds) {
        const auto width = column == 0 ? kit::kGridColumns - (count - 1) * share : share;
        page.panels.push_back(panelOf(kind));
        page.panels.back().frame = {
            .column = column, .row = 0, .width = width, .height = kPageRows};
        column += width;
    }
    return page;
}

}  // namespace

const std::vector<TrackerPage>& trackerPlaces() {
    using enum PanelModel::Kind;
    static const std::vector<TrackerPage> places{
        {"status",
         QT_TRANSLATE_NOOP("TrackerPages", "Service status"),
         "waveform.path.ecg",
         {Status}},
        {"software",
         QT_TRANSLATE_NOOP("TrackerPages", "Software"),
         "iphone.gen3",
         {Software, Releases}},
        {"events", QT_TRANSLATE_NOOP("TrackerPages", "Events"), "calendar", {Countdown}},
        {"markets",
         QT_TRANSLATE_NOOP("TrackerPages", "Markets"),
         "chart.line.uptrend.xyaxis",
         {Stock, Suppliers}},
        {"signing",
         QT_TRANSLATE_NOOP("TrackerPages", "Firmware signing"),
         "shield",
         {SignedBuilds, Records}},
        {"updates",
         QT_TRANSLATE_NOOP("TrackerPages", "Update catalogue"),
         "server.rack",
         {Backend}},
        {"charts",
         QT_TRANSLATE_NOOP("TrackerPages", "App Store charts"),
         "list.number",
         {TopFree, TopPaid}},
    };
    return places;
}

QString titleOf(const TrackerPage& place) { return translated(place.title); }

BuiltInPage pageOf(const TrackerPage& place) { return pageOf(titleOf(place), place.panels); }

BuiltInPage pageOf(PanelKind kind) {
    return pageOf(plainText(kindRow(kind).label), {static_cast<PanelModel::Kind>(kind)});
}

}  // namespace app
