#include "Tarnwick_Brell/Models/Sidebar/TrackerPages.h"

#include <QCoreApplication>

namespace app {

const std::vector<TrackerPage>& trackerPages() {
    // clang-format off
    static const std::vector<TrackerPage> pages{
        {"status", QT_TRANSLATE_NOOP("TrackerPages", "Service status"), "waveform.path.ecg"},
        {"software", QT_TRANSLATE_NOOP("TrackerPages", "Software"), "iphone.gen3"},
        {"events", QT_TRANSLATE_NOOP("TrackerPages", "Events"), "calendar"},
        {"markets", QT_TRANSLATE_NOOP("TrackerPages", "Markets"), "chart.line.uptrend.xyaxis"},
        {"signing", QT_TRANSLATE_NOOP("TrackerPages", "Firmware signing"), "shield"},
        {"updates", QT_TRANSLATE_NOOP("TrackerPages", "Update catalogue"), "server.rack"},
        {"charts", QT_TRANSLATE_NOOP("TrackerPages", "App Store charts"), "list.number"},
        {"records", QT_TRANSLATE_NOOP("TrackerPages", "Filings & court"), "doc.text"},
        {"pages", QT_TRANSLATE_NOOP("TrackerPages", "Pages"), "doc.text.magnifyingglass"},
        {"backend", QT_TRANSLATE_NOOP("TrackerPages", "Back end"), "arrow.triangle.branch"},
    };
    // clang-format on
    return pages;
}

QString titleOf(const TrackerPage& page) {
    return QCoreApplication::translate("TrackerPages", page.title);
}

}  // namespace app
