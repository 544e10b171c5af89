#include <gtest/gtest.h>

#include <cmath>

#include "Tarnwick_Brell/Models/Pages/MarketsPageModel.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// The chart of a share with a rule on its price, driven by keys and the pointer.
class MarketsJobTest : public WindowJobTest {
protected:
    static constexpr const char* kFloor = "Floor, level of a price rule";

    void SetUp() override {
        harness_.tell("Harbour", "09:11", "Apple sued over its app store rules");
        for (const auto* range : {"1d", "1w", "1m", "1y"}) serve(range);
        openWindow();
        harness_.alerts->put(
            {.id = "floor",
             .name = "Floor",
             .trigger = kit::PriceTrigger{
                 .symbol = "AAPL",
                 .condition = {.kind = kit::PriceCondition::Kind::below, .price = 95}}});
        model_->open(QStringLiteral("tracker:markets"));
        ASSERT_TRUE(until([&] { return page().moves()->rowCount() == 1; }));
        ASSERT_TRUE(until([&] { return named(kFloor) != nullptr; }));
        waitForFrame();
    }

    /// Twenty quiet days and a fall on the clock's day.
    void serve(const std::string& range) {
        kit::StockQuote quote{.symbol = "AAPL", .name = "Apple", .price = 97, .range = range};
        const auto today = std::chrono::floor<std::chrono::days>(harness_.desk.now());
        for (int day = -20; day < 0; ++day) {
            quote.points.push_back(
                {today + std::chrono::days(day), 100 + (day % 2 == 0 ? 0.3 : 0.0)});
        }
        quote.points.push_back({today, 97});
        harness_.desk.http.script.on("desk.example",
                                     "/wp-json/tb-wire/v1/quote?range=" + range + "&symbol=AAPL",
                                     {{.body = boost::json::serialize(kit::encode(quote))}});
    }

    MarketsPageModel& page() { return dynamic_cast<MarketsPageModel&>(*model_->page()); }
    double floorPrice() {
        const auto& rule = *harness_.alerts->rules().find("floor")->value;
        return std::get<kit::PriceTrigger>(rule.trigger).condition.price.value();
    }
    QString spokenLine() {
        auto* face = QAccessible::queryAccessibleInterface(named(kFloor));
        return face->text(QAccessible::Description);
    }
};

TEST_F(MarketsJobTest, ALineIsDraggedToANewPriceWhichCanBeUndone) {
    QString told;
    QObject::connect(&undo_, &UndoStack::noticed, [&](const QString& notice) { told = notice; });
    const auto from = middleOf(*named(kFloor));
    const QPoint to = from - QPoint(0, 24);
    QTest::mousePress(&window(), Qt::LeftButton, {}, from);
    for (int i = 1; i <= 8; ++i) QTest::mouseMove(&window(), from + (to - from) * i / 8);
    EXPECT_NE(spokenLine(), "95.00") << "the new price is shown while it is dragged";
    EXPECT_EQ(floorPrice(), 95) << "and not set before it is let go";
    const auto shown = spokenLine();
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, to);
    EXPECT_GT(floorPrice(), 95);
    EXPECT_EQ(QString::number(floorPrice(), 'f', 2), shown);
    EXPECT_TRUE(told.contains("Floor now waits for")) << "with a way back";
    ASSERT_TRUE(undo_.undo());
    EXPECT_EQ(floorPrice(), 95);
    EXPECT_EQ(spokenLine(), "95.00");

    QTest::mousePress(&window(), Qt::LeftButton, {}, from);
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, from);
    EXPECT_FALSE(undo_.canUndo()) << "a click sets nothing";
}

TEST_F(MarketsJobTest, ALineIsMovedByKeysAndSetByEnterAlone) {
    for (int i = 0; i < 40 && nameOf(window().activeFocusItem()) != kFloor; ++i) press(Qt::Key_Tab);
    ASSERT_EQ(nameOf(window().activeFocusItem()), kFloor);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(spokenFocus(), "95.02");
    press(Qt::Key_Escape);
    EXPECT_EQ(spokenFocus(), "95.00");
    press(Qt::Key_PageDown);
    EXPECT_EQ(spokenFocus(), "94.90");
    press(Qt::Key_Tab);
    EXPECT_EQ(floorPrice(), 95) << "left without Enter";
    press(Qt::Key_Tab, Qt::ShiftModifier);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_DOUBLE_EQ(floorPrice(), 94.99);
    ASSERT_TRUE(undo_.undo());
    EXPECT_EQ(floorPrice(), 95);
}

TEST_F(MarketsJobTest, AMarkedMoveLeadsToItsReasonAndTheReasonToItsStory) {
    const auto& line = page().moves()->rows().front();
    EXPECT_EQ(line.reason, "Legal");
    QString opened;
    QObject::connect(&page(), &PanelModel::storyWanted,
                     [&](const QString& story) { opened = story; });
    ASSERT_EQ(page().chart()->marks()->rowCount(), 1);
    click(page().chart()->marks()->rows().front().spokenText);
    EXPECT_TRUE(nameOf(window().activeFocusItem()).startsWith("Fri 20 Nov"))
        << "the move in the list below the chart";
    press(Qt::Key_Return);
    EXPECT_EQ(opened.toStdString(), harness_.idOf("Apple sued over its app store rules"));
}

}  // namespace
}  // namespace app
