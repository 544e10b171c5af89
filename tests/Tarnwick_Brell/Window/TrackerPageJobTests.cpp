#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "Tarnwick_Brell/Models/Pages/ChartsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/SigningPageModel.h"
#include "Tarnwick_Brell/Models/Pages/StatusPageModel.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"
#include "tests/support/app/TestTrackers.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// The pages of the trackers, driven by keys.
class TrackerPageJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        harness_.serveTrackers(statusAnswer({"Books", "Mail!"}).body,
                               releasesAnswer("24B91", "24C5").body);
        const kit::AppleCalendarEvent event{
            .id = "e", .title = "In stores", .starts = harness_.at("20:00"), .status = "announced"};
        auto& script = harness_.desk.http.script;
        script.on("desk.example", "/wp-json/tb-wire/v1/events",
                  {{.body = boost::json::serialize(
                        boost::json::value{{"events", {kit::encode(event)}}})}});
        script.on("api.ipsw.me", "/v4/device/iPhone18,3?type=ipsw",
                  {{.body = signingBody("27.1+ 27.0", "Phone")}});
        script.on("api.ipsw.me", "/v4/device/iPad17,1?type=ipsw",
                  {{.body = signingBody("27.1+", "Slate")}});
        harness_.defaults.set("signingDevices", "iPhone18,3");
        for (const char* chart : {"top-free", "top-paid"}) {
            script.on("rss.marketingtools.apple.com",
                      std::string("/api/v2/us/apps/") + chart + "/25/apps.json",
                      {{.body = chartBody(chart[4] == 'f' ? "a b c" : "x y z")}});
        }
        openWindow();
        for (const auto tracker : {Tracker::signing, Tracker::charts})
            harness_.trackers->refresh(tracker);
    }

    void goTo(const char* place) {
        model_->open(QString::fromLatin1(place));
        ASSERT_TRUE(until([&] { return model_->page()->state() == PanelModel::Ready; }));
        ASSERT_TRUE(until([&] { return list() != nullptr; })) << "the list has the focus";
    }
    QQuickItem* list() {
        auto* item = window().activeFocusItem();
        while (item && !item->inherits("QQuickListView")) item = item->parentItem();
        return item;
    }
    template <class Page>
    Page& open(const char* place) {
        model_->open(QString::fromLatin1(place));
        return dynamic_cast<Page&>(*model_->page());
    }
};

TEST_F(TrackerPageJobTest, TheDaysOfAServiceAreReadWithTheArrowKeys) {
    goTo("tracker:status");
    press(Qt::Key_J);
    press(Qt::Key_J);
    press(Qt::Key_Return);  // shows the services without an incident
    press(Qt::Key_J);
    ASSERT_NE(list(), nullptr);
    const auto row = list()->property("currentIndex").toInt();
    const auto reading = [&] { return list()->property("reading").toInt(); };
    auto* page = qobject_cast<StatusPageModel*>(model_->page());
    ASSERT_TRUE(page && page->isService(row)) << row;
    EXPECT_TRUE(page->dayText(row, 89).contains("Up")) << page->dayText(row, 89).toStdString();
    press(Qt::Key_Left);
    EXPECT_EQ(reading(), 89) << "today first";
    press(Qt::Key_Left);
    EXPECT_EQ(reading(), 88);
    press(Qt::Key_Home);
    EXPECT_EQ(reading(), 0);
    EXPECT_TRUE(page->dayText(row, 0).contains("not watching")) << "never up where nobody looked";
    press(Qt::Key_End);
    EXPECT_EQ(reading(), 89);
    EXPECT_EQ(list()->property("currentIndex").toInt(), row) << "the row stays";
    press(Qt::Key_Escape);
    EXPECT_EQ(reading(), -1);
}

TEST_F(TrackerPageJobTest, AReleaseIsCopiedAndTheDeskGoesLiveAndEndsWithKeys) {
    goTo("tracker:software");
    press(Qt::Key_Down);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("24"));

    goTo("tracker:events");
    press(Qt::Key_L);
    EXPECT_TRUE(harness_.news->liveUntil().has_value());
    EXPECT_TRUE(model_->refresh()->isLive());
    press(Qt::Key_L, Qt::ShiftModifier);
    EXPECT_FALSE(harness_.news->liveUntil().has_value());
}

TEST_F(TrackerPageJobTest, CellsOfTheSigningMatrixAreReadAndDevicesChosenByKeys) {
    auto& page = open<SigningPageModel>("tracker:signing");
    ASSERT_TRUE(until([&] { return page.rows()->rowCount() == 1 && page.columnCount() == 2; }));
    ASSERT_TRUE(until([&] { return list() != nullptr; }));
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(spokenFocus(), "Phone, 27.1 (B27.1): Signed");
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(spokenFocus(), "Phone, 27.0 (B27.0): Not signed") << "the last build";

    page.chooseDevices();
    ASSERT_TRUE(until([&] { return model_->sheet() != nullptr; }));
    ASSERT_TRUE(until([&] { return window().activeFocusItem()->inherits("QQuickTextInput"); }));
    type("iPad17,1");
    press(Qt::Key_Return);
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return model_->sheet() == nullptr; }));
    EXPECT_EQ(harness_.trackers->devices(), (std::vector<std::string>{"iPhone18,3", "iPad17,1"}));
    EXPECT_TRUE(until([&] { return page.rows()->rowCount() == 2; })) << "fetched at once";

    ASSERT_TRUE(undo_.undo());
    EXPECT_EQ(harness_.trackers->devices(), std::vector<std::string>{"iPhone18,3"});
    EXPECT_EQ(page.rows()->rowCount(), 1);
    ASSERT_TRUE(undo_.redo());
    EXPECT_EQ(harness_.trackers->devices().size(), 2u);
}

TEST_F(TrackerPageJobTest, AppsOfBothChartsAreReachedByKeys) {
    auto& page = open<ChartsPageModel>("tracker:charts");
    const auto count = [&] { return page.freeApps()->rowCount() + page.paidApps()->rowCount(); };
    ASSERT_TRUE(until([&] { return count() == 6; }));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(page.selectedRow(), 2);
    press(Qt::Key_Right);
    EXPECT_EQ(page.selectedChart(), 1);
    EXPECT_EQ(page.selectedRow(), 2) << "at the same height";
    EXPECT_EQ(page.summary().left(24), "Rank 3 of the paid apps.");
}

}  // namespace
}  // namespace app
