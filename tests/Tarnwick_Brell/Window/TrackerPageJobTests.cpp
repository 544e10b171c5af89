#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTest>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "Tarnwick_Brell/Models/Pages/StatusPageModel.h"
#include "Tarnwick_Brell/Window/DeskWindow.h"
#include "tests/support/EventLoop.h"
#include "tests/support/app/TestTrackers.h"
#include "tests/support/models/TestStories.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// The real window at the pages of trackers, driven by keys.
class TrackerPageJobTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { TestStories::beGuiApplication(); }

    void SetUp() override {
        harness_.serveTrackers(statusAnswer({"Books", "Mail!"}).body,
                               releasesAnswer("24B91", "24C5").body);
        const kit::AppleCalendarEvent event{
            .id = "e", .title = "In stores", .starts = harness_.at("20:00"), .status = "announced"};
        harness_.desk.http.script.on("desk.example", "/wp-json/tb-wire/v1/events",
                                     {{.body = boost::json::serialize(
                                           boost::json::value{{"events", {kit::encode(event)}}})}});
        harness_.open();
        model_ = std::make_unique<WindowModel>(DeskStores{.news = *harness_.news,
                                                          .trackers = *harness_.trackers,
                                                          .newsrooms = *harness_.newsrooms,
                                                          .defaults = harness_.defaults,
                                                          .clock = harness_.desk.clock(),
                                                          .undo = undo_});
        window_ = std::make_unique<DeskWindow>(*model_);
        QObject::connect(qmlEngine(&window_->window()), &QQmlEngine::warnings,
                         [](const auto& warnings) {
                             for (const auto& warning : warnings)
                                 ADD_FAILURE() << warning.toString().toStdString();
                         });
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window_->window()));
    }

    void goTo(const char* place) {
        model_->open(QString::fromLatin1(place));
        ASSERT_TRUE(until([&] { return model_->page()->state() == PanelModel::Ready; }));
        ASSERT_TRUE(until([&] { return list() != nullptr; })) << "the list has the focus";
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&window_->window(), static_cast<Qt::Key>(key), modifiers);
    }
    QQuickItem* list() {
        auto* item = window_->window().activeFocusItem();
        while (item && !item->inherits("QQuickListView")) item = item->parentItem();
        return item;
    }

    TestStories harness_;
    UndoStack undo_;
    std::unique_ptr<WindowModel> model_;
    std::unique_ptr<DeskWindow> window_;
};

TEST_F(TrackerPageJobTest, TheDaysOfAServiceAreReadWithTheArrowKeys) {
    goTo("tracker:status");
    press(Qt::Key_J);
    ASSERT_NE(list(), nullptr);
    const auto row = list()->property("currentIndex").toInt();
    const auto reading = [&] { return list()->property("reading").toInt(); };
    auto* page = qobject_cast<StatusPageModel*>(model_->page());
    ASSERT_TRUE(page && page->isService(row)) << row;
    press(Qt::Key_Left);
    EXPECT_EQ(reading(), 89) << "today first";
    press(Qt::Key_Left);
    EXPECT_EQ(reading(), 88);
    EXPECT_TRUE(page->dayText(row, 88).contains("not watching")) << "never up where nobody looked";
    press(Qt::Key_Home);
    EXPECT_EQ(reading(), 0);
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

}  // namespace
}  // namespace app
