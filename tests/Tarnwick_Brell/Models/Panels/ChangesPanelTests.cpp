#include <gtest/gtest.h>

#include <ctime>

#include <QLocale>

#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Panels/BackendPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Panels/RecordsPanelModel.h"
#include "tests/support/app/TestDesk.h"
#include "tests/support/app/TestTrackers.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using namespace test;
using kit::PanelKind;
using pressroom::Response;
using ::test::until;

/// The clock is at 12:00 UTC on Friday, 20 November 2026.
class ChangesPanelTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
        // There it is still the day before when New York's day begins.
        setenv("TZ", "America/Los_Angeles", 1);
        tzset();
    }
    static void TearDownTestSuite() {
        setenv("TZ", "UTC", 1);
        tzset();
    }

    ChangesPanelTest() {
        defaults_.set("signingDevices", "iPhone18,3, iPhone18,4");
        signing("iPhone18,3", {.body = signingBody("27+ 26+ 25", "Slate 3")});
        signing("iPhone18,4", {.body = signingBody("27+ 26+ 25", "Slate 4")});
        updates({.body = updatesBody("27")});
    }

    void signing(const std::string& device, const Response& answer) {
        harness_.http.script.on("api.ipsw.me", "/v4/device/" + device + "?type=ipsw", {answer});
    }
    void updates(const Response& answer) {
        harness_.http.script.on("gdmf.apple.com", "/v2/pmv", {answer});
    }

    void refresh() {
        if (!trackers_.isLoaded()) trackers_.start();
        ASSERT_TRUE(until([&] { return trackers_.isLoaded(); }));
        trackers_.refreshAll();
        ASSERT_TRUE(until([&] {
            return std::ranges::none_of(kTrackers,
                                        [&](auto round) { return trackers_.isRefreshing(round); });
        }));
    }

    template <class Panel>
    std::unique_ptr<Panel> panel(PanelKind kind) {
        kit::PanelSpec spec;
        spec.kind = kind;
        auto content = makePanelModel(stores_, spec, {});
        return std::unique_ptr<Panel>(&dynamic_cast<Panel&>(*content.release()));
    }

    template <class Panel>
    static std::string text(Panel& panel) {
        std::string text;
        for (const auto& row : panel.rows()->rows()) {
            if (!row.heading.isEmpty()) text += "# " + row.heading.toStdString() + "\n";
            text += (row.title + u'|' + row.detail + u'|' + row.when + u'\n').toStdString();
        }
        return text;
    }

    TestDesk harness_{{}};
    Defaults defaults_{harness_.folder.path() / "settings.ini"};
    NewsDesk news_{harness_.library(), harness_.network(), defaults_, harness_.clock()};
    TrackerStore trackers_{news_.worker(), defaults_, harness_.clock()};
    LibraryStore kept_{news_.worker(), harness_.clock()};
    PanelStores stores_{news_, trackers_, kept_, harness_.clock()};
};

TEST_F(ChangesPanelTest, RecordsTellOfABuildOnceForAllItsModelsTheLastSeenFirst) {
    auto records = panel<RecordsPanelModel>(PanelKind::records);
    EXPECT_EQ(records->state(), PanelModel::Loading);
    refresh();
    EXPECT_EQ(records->state(), PanelModel::Empty) << "the first look has no changes";
    EXPECT_EQ(records->fact(), "04:00");

    for (const auto* device : {"iPhone18,3", "iPhone18,4"})
        signing(device, {.body = signingBody("27+ 26 25", device)});
    refresh();
    harness_.pass(2h);
    refresh();
    signing("iPhone18,4", {.body = signingBody("28+ 27+ 26 25", "Slate 4")});
    harness_.pass(5h);
    refresh();
    EXPECT_EQ(records->state(), PanelModel::Ready);
    EXPECT_EQ(text(*records),
              "iOS 28 (B28)|Now signed for Slate 4|now\n"
              "iOS 26 (B26)|No longer signed for iPhone18,3 and iPhone18,4|5 h\n");
    EXPECT_EQ(text(*panel<RecordsPanelModel>(PanelKind::records)), text(*records));

    for (const auto* device : {"iPhone18,3", "iPhone18,4"}) signing(device, {.status = 404});
    refresh();
    EXPECT_EQ(records->state(), PanelModel::Stale);
    EXPECT_FALSE(records->hint().isEmpty());
    records->retry();
    EXPECT_TRUE(trackers_.isRefreshing(Tracker::signing));
}

TEST_F(ChangesPanelTest, TheCatalogueShowsItsChangesAndTheNewestOfferOfEachPlatform) {
    auto backend = panel<BackendPanelModel>(PanelKind::backend);
    updates({.body = updatesBody("26.9")});
    refresh();
    updates({.body = R"({"PublicAssetSets":{
        "iOS":[{"ProductVersion":"26.9","Build":"B26.9","PostingDate":"2026-11-02",
                "SupportedDevices":["iPhone17,1"]},
               {"ProductVersion":"27","Build":"B27","PostingDate":"2026-11-18",
                "ExpirationDate":"2027-02-01","SupportedDevices":["iPhone17,1","iPhone18,3"]}],
        "macOS":[{"ProductVersion":"26","Build":"M26","PostingDate":"2025-10-01",
                  "SupportedDevices":["J1","J2","J3"]}]}})"});
    refresh();
    harness_.pass(3h);
    backend->tick();
    EXPECT_EQ(text(*backend),
              "# Changes\n"
              "macOS 26 (M26)|Now offered|3 h\n"
              "iOS 27 (B27)|Now offered|3 h\n"
              "# Newest offers\n"
              "iOS 27 (B27)|For 2 models, until 1 Feb 2027|18 Nov\n"
              "macOS 26 (M26)|For 3 models|1 Oct 2025\n");
}

}  // namespace
}  // namespace app
