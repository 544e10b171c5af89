#include "tests/support/models/PanelBench.h"

#include <QLocale>

#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Models/Panels/GatheredPanel.h"
#include "Tarnwick_Brell/Storage/DeskState.h"
#include "tests/support/EventLoop.h"

namespace desk::test {

using ::test::until;

PanelBench::PanelBench() {
    qputenv("TZ", "UTC");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    defaults.set("serviceAddress", std::string("https://desk.example/"));
}

newsroom::Instant PanelBench::at(const std::string& clock) const {
    return newsroom::parseISO8601("2026-11-20T" + clock + ":00Z").value();
}

void PanelBench::tell(const std::string& outlet, const std::string& clock, const std::string& title,
                      newsroom::Sourcing sourcing) {
    const auto link = "https://" + outlet + ".example/" + clock;
    tell({.id = newsroom::storyID(link),
          .link = link,
          .title = title,
          .publishedAt = at(clock),
          .sourceID = outlet,
          .sourceName = outlet,
          .sourcing = sourcing});
}

void PanelBench::tell(const newsroom::Story& story) {
    LocalStore store(desk.library(), Database::Access::readWrite);
    auto transaction = store.transaction();
    store.merging().merge(std::vector{story}, {.seen = story.publishedAt},
                          store.state().nextStamp());
    transaction.commit();
}

void PanelBench::lookedLastAt(const std::string& clock) {
    LocalStore(desk.library(), Database::Access::readWrite)
        .state()
        .set(DeskState::kNewSince, at(clock));
}

void PanelBench::serveTrackers(const std::string& status, const std::string& releases) {
    const std::string page = "/support/systemstatus/data/";
    desk.http.script.on("www.apple.com", page + "system_status_en_US.js", {{.body = status}});
    desk.http.script.on("www.apple.com", page + "developer/system_status_en_US.js",
                        {{.body = R"({"services":[]})"}});
    desk.http.script.on("desk.example", "/wp-json/tb-wire/v1/releases", {{.body = releases}});
}

void PanelBench::open() {
    news = std::make_unique<NewsDesk>(desk.library(), desk.network(), defaults, desk.clock());
    trackers = std::make_unique<TrackerStore>(news->worker(), defaults, desk.clock());
    signalsStore = std::make_unique<SignalsStore>(news->worker(), defaults, desk.clock());
    news->start();
    trackers->start();
    until([&] { return news->isLoaded() && trackers->isLoaded(); });
}

PanelStores PanelBench::stores() {
    return {.news = *news,
            .trackers = *trackers,
            .signalsStore = *signalsStore,
            .clock = desk.clock()};
}

std::unique_ptr<PanelContent> PanelBench::panel(newsroom::PanelKind kind,
                                                const newsroom::StoryQuery& query) {
    auto made = makePanelContent(stores(), {.kind = kind}, query);
    until([&] { return made->state() != PanelContent::Loading; });
    return made;
}

QStringList column(PanelContent& panel, const char* name) {
    auto* rows = dynamic_cast<GatheredPanel&>(panel).rows();
    const auto role = rows->roleNames().key(name);
    QStringList texts;
    for (int i = 0; i < rows->rowCount(); ++i) texts << rows->index(i, 0).data(role).toString();
    return texts;
}

}  // namespace desk::test
