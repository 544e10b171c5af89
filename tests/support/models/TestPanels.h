#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QString>
#include <QStringList>

#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "tests/support/app/TestDesk.h"

namespace app::test {

/// A desk with stories and trackers, for panels. The clock is fixed at noon, 20 November 2026, and
/// times are shown in UTC.
class TestPanels {
public:
    TestPanels();

    kit::Instant at(const std::string& clock) const;  ///< "09:12" of that day
    void tell(const std::string& outlet, const std::string& clock, const std::string& title,
              kit::Sourcing sourcing = kit::Sourcing::unlabeled);
    void tell(const kit::Story& story);
    void lookedLastAt(const std::string& clock);
    /// Sets the answers of Apple's status page and the releases.
    void serveTrackers(const std::string& status, const std::string& releases);

    /// Opens the stores and reads the library.
    void open();
    PanelStores stores();
    std::unique_ptr<PanelModel> panel(kit::PanelKind kind, const kit::StoryQuery& query = {});

    TestDesk desk{{}};
    Defaults defaults{desk.folder.path() / "settings.ini"};
    std::unique_ptr<NewsDesk> news;
    std::unique_ptr<TrackerStore> trackers;
    std::unique_ptr<LibraryStore> kept;
};

/// The rows' texts under that name.
QStringList column(PanelModel& panel, const char* name);

}  // namespace app::test
