#include <gtest/gtest.h>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "Tarnwick_Brell/Models/Pages/ActivityPageModel.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// The log, read and searched by keys.
class ActivityJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        harness_.tell("Harbour", "10:11", "Maps is down for many users");
        harness_.tell("Lantern", "10:31", "Glass prices rise");
        LocalStore store(harness_.desk.library(), Database::Access::readWrite);
        const auto log = [&](kit::SignalEvent event, const char* clock, const char* title,
                             const char* link) {
            auto signal = kit::signalOf(event);
            signal.id = signal.title = title;
            signal.seenAt = harness_.at(clock);
            if (*link) signal.link = link;
            store.signalLog().add({&signal, 1});
        };
        log(kit::SignalEvent::chartTopTen, "10:01", "Tide enters the top 10 of paid apps", "");
        log(kit::SignalEvent::serviceOutage, "10:05", "Maps has an outage", "https://a.example/s");
        log(kit::SignalEvent::serviceRestored, "10:40", "Maps works again", "");
        store.state().setNumber(DeskState::kLookedAtSignal, 1);
        openWindow();
    }

    ActivityPageModel& page() { return dynamic_cast<ActivityPageModel&>(*model_->page()); }
    bool hasListFocus() {
        auto* item = window().activeFocusItem();
        while (item && nameOf(item) != "Activity") item = item->parentItem();
        return item != nullptr;
    }
    int count() { return page().rows()->rowCount(); }
};

TEST_F(ActivityJobTest, ALookAtTheLogIsALookAndItsLineStandsInTheWire) {
    ASSERT_TRUE(until([&] { return named("Activity, 2 new") != nullptr; }));
    model_->open(QStringLiteral("page:activity"));
    ASSERT_TRUE(until([&] { return model_->page()->state() == PanelModel::Ready; }));
    EXPECT_TRUE(until([&] { return named("Activity, 2 new") == nullptr; }));
    EXPECT_EQ(page().countText(), "2 since your last look");
    EXPECT_EQ(page().chosenTitle(), "Maps works again");
    ASSERT_TRUE(until([&] { return hasListFocus(); }));
    press(Qt::Key_J);
    EXPECT_EQ(page().chosenTitle(), "Maps has an outage");
    EXPECT_EQ(page().wireSentence(), "The desk saw it 6 min before the first story.");
    EXPECT_EQ(page().wire()->rowCount(), 3);
    QString opened;
    QObject::connect(model_.get(), &WindowModel::linkWanted,
                     [&](const QString& link) { opened = link; });
    press(Qt::Key_Return);
    EXPECT_EQ(opened, "https://a.example/s");
    press(Qt::Key_J);
    press(Qt::Key_Return);
    EXPECT_EQ(model_->placeKey(), "tracker:charts") << "without a link, the desk's own page";
}

TEST_F(ActivityJobTest, TheLogIsSearchedAndFiltered) {
    model_->open(QStringLiteral("page:activity"));
    ASSERT_TRUE(until([&] { return model_->page()->state() == PanelModel::Ready; }));
    press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return isTyping(); }));
    type("map");
    EXPECT_TRUE(until([&] { return count() == 2; }));
    page().setWeight(2);
    EXPECT_TRUE(until([&] { return count() == 1; }));
    EXPECT_EQ(page().chosenTitle(), "Maps has an outage");
    page().setKind(1 + static_cast<int>(kit::SignalKind::chart));
    EXPECT_TRUE(until([&] { return page().nothingShown() == "Nothing in the log matches."; }));
    page().showAll();
    EXPECT_TRUE(until([&] { return count() == 3; }));
}

}  // namespace
}  // namespace app
