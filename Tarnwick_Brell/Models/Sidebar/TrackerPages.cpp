#include "Tarnwick_Brell/Models/Sidebar/TrackerPages.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using kit::PanelKind;
using Chart = kit::AppStoreCharts::Kind;

constexpr std::int64_t kPageRows = 6;

QString translated(const char* text) { return QCoreApplication::translate("TrackerPages", text); }

BuiltInPage::Panel panelOf(const PageContent& content) {
    if (const auto* kind = std::get_if<PanelKind>(&content))
        return {content, plainText(kindRow(*kind).label), plainText(kindRow(*kind).symbol)};
    if (const auto* chart = std::get_if<Chart>(&content))
        return {content, plainText(label(*chart)), QStringLiteral("list.number")};
    return {content, translated(QT_TRANSLATE_NOOP("TrackerPages", "Signed now")),
            QStringLiteral("shield")};
}

/// Side by side over the whole page; the first one takes what is left over.
BuiltInPage pageOf(const QString& title, const std::vector<PageContent>& contents) {
    BuiltInPage page{.title = title};
    const auto count = static_cast<std::int64_t>(contents.size());
    const auto share = kit::kGridColumns / count;
    std::int64_t column = 0;
    for (const auto& content : contents) {
        const auto width = column == 0 ? kit::kGridColumns - (count - 1) * share : share;
        page.panels.push_back(panelOf(content));
        page.panels.back().frame = {
            .column = column, .row = 0, .width = width, .height = kPageRows};
        column += width;
    }
    return page;
}

}  // namespace

const std::vector<TrackerPage>& trackerPages() {
    using enum PanelKind;
    // clang-format off
    static const std::vector<TrackerPage> pages{
        {"status", QT_TRANSLATE_NOOP("TrackerPages", "Service status"), "waveform.path.ecg", {status}},
        {"software", QT_TRANSLATE_NOOP("TrackerPages", "Software"), "iphone.gen3", {software, releases}},
        {"events", QT_TRANSLATE_NOOP("TrackerPages", "Events"), "calendar", {countdown}},
        {"markets", QT_TRANSLATE_NOOP("TrackerPages", "Markets"), "chart.line.uptrend.xyaxis",
         {stock, suppliers}},
        {"signing", QT_TRANSLATE_NOOP("TrackerPages", "Firmware signing"), "shield",
         {SignedBuilds(), records}},
        {"updates", QT_TRANSLATE_NOOP("TrackerPages", "Update catalogue"), "server.rack", {backend}},
        {"charts", QT_TRANSLATE_NOOP("TrackerPages", "App Store charts"), "list.number",
         {Chart::topFree, Chart::topPaid}},
    };
    // clang-format on
    return pages;
}

QString titleOf(const TrackerPage& page) { return translated(page.title); }

BuiltInPage pageOf(const TrackerPage& page) { return pageOf(titleOf(page), page.panels); }

BuiltInPage pageOf(PanelKind kind) { return pageOf(plainText(kindRow(kind).label), {kind}); }

}  // namespace app
