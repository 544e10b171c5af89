#include <gtest/gtest.h>

#include <ctime>

#include <QLocale>

#include "Tarnwick_Brell/Models/Newsrooms/NewsroomModel.h"
#include "Tarnwick_Brell/Models/Panels/BackendPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/ChartPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Panels/RecordsPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SignedPanelModel.h"
#include "Tarnwick_Brell/Models/Sidebar/TrackerPages.h"
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
        chart("top-free", {.body = chartBody("a b c")});
        chart("top-paid", {.body = chartBody("p")});
    }

    void signing(const std::string& device, const Response& answer) {
        harness_.http.script.on("api.ipsw.me", "/v4/device/" + device + "?type=ipsw", {answer});
    }
    void updates(const Response& answer) {
        harness_.http.script.on("gdmf.apple.com", "/v2/pmv", {answer});
    }
    void chart(const std::string& kind, const Response& answer) {
        harness_.http.script.on("rss.marketingtools.apple.com",
                                "/api/v2/us/apps/" + kind + "/25/apps.json", {answer});
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
    PanelStores stores_{news_, trackers_, harness_.clock()};
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

TEST_F(ChangesPanelTest, WhatIsSignedNowStandsModelByModel) {
    signing("iPhone18,4", {.status = 404});
    SignedPanelModel panel(stores_);
    refresh();
    EXPECT_EQ(panel.state(), PanelModel::Ready);
    auto rows = panel.rows()->rows();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].heading, "Slate 3");
    EXPECT_EQ(rows[0].title, "27 (B27)");
    EXPECT_EQ(rows[1].heading, "");
    EXPECT_EQ(rows[1].spokenText, "Slate 3: 26 (B26)");
    EXPECT_EQ(rows[2].heading, "iPhone18,4");
    EXPECT_EQ(rows[2].title, "Not known yet");
    EXPECT_FALSE(rows[2].detail.isEmpty());

    signing("iPhone18,3", {.status = 404});
    signing("iPhone18,4", {.body = signingBody("27", "Slate 4")});
    harness_.pass(1h);
    refresh();
    rows = panel.rows()->rows();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_TRUE(rows[0].detail.startsWith("As of 04:00. ")) << rows[0].detail.toStdString();
    EXPECT_EQ(rows[2].title, "Nothing is signed");
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

TEST_F(ChangesPanelTest, ThePageOfTheChartsShowsHowAppsMovedSinceTheDayBefore) {
    const auto& pages = trackerPages();
    const auto page = std::ranges::find(pages, "charts", &TrackerPage::id);
    ASSERT_NE(page, pages.end());
    NewsroomModel model(stores_);
    model.show(pageOf(*page));
    ASSERT_EQ(model.rowCount(), 2);
    const auto at = [&](int row, NewsroomModel::Role role) {
        return model.data(model.index(row), role);
    };
    auto* chart =
        dynamic_cast<ChartPanelModel*>(at(0, NewsroomModel::Content).value<PanelModel*>());
    ASSERT_NE(chart, nullptr);
    EXPECT_EQ(model.title(), "App Store charts");
    EXPECT_EQ(at(1, NewsroomModel::PanelTitle), "Top paid");
    EXPECT_EQ(at(1, NewsroomModel::Symbol), "list.number");
    EXPECT_EQ(at(1, NewsroomModel::Column), 6);
    EXPECT_EQ(model.rowsUsed(), 6);

    refresh();
    EXPECT_EQ(chart->state(), PanelModel::Ready);
    EXPECT_EQ(chart->rows()->row(0)->spokenText, "1, n, a") << "there is no day before";
    harness_.pass(24h);
    this->chart("top-free", {.body = R"({"feed":{"results":[
        {"id":"c","name":"Ledger","artistName":"Quill","artworkUrl100":"",
         "url":"https://apps.example/c"},
        {"id":"b","name":"n","artistName":"a","url":"file:///etc/motd","artworkUrl100":""},
        {"id":"a","name":"n","artistName":"a","url":"","artworkUrl100":""},
        {"id":"d","name":"n","artistName":"a","url":"","artworkUrl100":""}]}})"});
    refresh();
    std::string text;
    for (const auto& row : chart->rows()->rows())
        text += (row.rank + u'|' + row.change + u'|' + row.spokenText + u'|' + row.link + u'\n')
                    .toStdString();
    EXPECT_EQ(text,
              "1|+2|1, Ledger, Quill, up 2 places|https://apps.example/c\n"
              "2||2, n, a, unchanged|\n"
              "3|\u22122|3, n, a, down 2 places|\n"
              "4||4, n, a, new|\n");

    QString opened;
    QObject::connect(&model, &NewsroomModel::linkWanted,
                     [&](const QString& link) { opened = link; });
    chart->openLink(chart->rows()->row(0)->link);
    EXPECT_EQ(opened, "https://apps.example/c");
    model.show(kit::NewsroomSpec{.panels = {{.kind = PanelKind::records}}});
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(at(0, NewsroomModel::Symbol), "doc.text");
}

TEST_F(ChangesPanelTest, EveryTrackersPageFillsTheGrid) {
    NewsroomModel model(stores_);
    for (const auto& page : trackerPages()) {
        model.show(pageOf(page));
        ASSERT_EQ(static_cast<std::size_t>(model.rowCount()), page.panels.size());
        int column = 0;
        for (int row = 0; row < model.rowCount(); ++row) {
            const auto index = model.index(row);
            EXPECT_EQ(model.data(index, NewsroomModel::Column), column) << page.id;
            column += model.data(index, NewsroomModel::Width).toInt();
        }
        EXPECT_EQ(column, kit::kGridColumns) << page.id;
    }
}

}  // namespace
}  // namespace app
