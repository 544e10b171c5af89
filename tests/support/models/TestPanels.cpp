#include "tests/support/models/TestPanels.h"

#include <QLocale>

#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Models/Panels/QueryPanelModel.h"
#include "Tarnwick_Brell/Storage/Tables/DeskState.h"
#include "tests/support/EventLoop.h"

namespace app::test {

using ::test::until;

TestPanels::TestPanels() {
    qputenv("TZ", "UTC");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    defaults.set("serviceAddress", std::string("https://desk.example/"));
}

kit::Instant TestPanels::at(const std::string& clock) const {
    return kit::parseISO8601("2026-11-20T" + clock + ":00Z").value();
}

void TestPanels::tell(const std::string& outlet, const std::string& clock, const std::string& title,
                      kit::Sourcing sourcing) {
    const auto link = "https://" + outlet + ".example/" + clock;
    tell({.id = kit::storyID(link),
          .link = link,
          .title = title,
          .publishedAt = at(clock),
          .sourceID = outlet,
          .sourceName = outlet,
          .sourcing = sourcing});
}

void TestPanels::tell(const kit::Story& story) {
    LocalStore store(desk.library(), Database::Access::readWrite);
    auto transaction = store.transaction();
    store.merging().merge(std::vector{story}, {.seen = story.publishedAt},
                          store.state().nextStamp());
    transaction.commit();
}

void TestPanels::lookedLastAt(const std::string& clock) {
    LocalStore(desk.library(), Database::Access::readWrite)
        .state()
        .set(DeskState::kNewSince, at(clock));
}

void TestPanels::serveTrackers(const std::string& status, const std::string& releases) {
    const std::string page = "/support/systemstatus/data/";
    desk.http.script.on("www.apple.com", page + "system_status_en_US.js", {{.body = status}});
    desk.http.script.on("www.apple.com", page + "developer/system_status_en_US.js",
                        {{.body = R"({"services":[]})"}});
    desk.http.script.on("desk.example", "/wp-json/tb-wire/v1/releases", {{.body = releases}});
}

void TestPanels::open() {
    news = std::make_unique<NewsDesk>(desk.library(), desk.network(), defaults, desk.clock());
    trackers = std::make_unique<TrackerStore>(news->worker(), defaults, desk.clock());
    kept = std::make_unique<LibraryStore>(news->worker(), desk.clock());
    news->start();
    trackers->start();
    until([&] { return news->isLoaded() && trackers->isLoaded(); });
}

PanelStores TestPanels::stores() {
    return {.news = *news, .trackers = *trackers, .kept = *kept, .clock = desk.clock()};
}

std::unique_ptr<PanelModel> TestPanels::panel(kit::PanelKind kind, const kit::StoryQuery& query) {
    auto made = makePanelModel(stores(), {.kind = kind}, query);
    until([&] { return made->state() != PanelModel::Loading; });
    return made;
}

QStringList column(PanelModel& panel, const char* name) {
    auto* rows = dynamic_cast<QueryPanelModel&>(panel).rows();
    const auto role = rows->roleNames().key(name);
    QStringList texts;
    for (int i = 0; i < rows->rowCount(); ++i) texts << rows->index(i, 0).data(role).toString();
    return texts;
}

}  // namespace app::test
