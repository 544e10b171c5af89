#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "Tarnwick_Brell/Interface/Controls/InstallControls.h"
#include "Tarnwick_Brell/Models/Stories/FilterOptions.h"

// Written by the build. Naming them keeps the linker from leaving out the modules' types.
extern void qml_register_types_TarnwickBrell_Models();
extern void qml_register_types_TarnwickBrell_Panels();

namespace app {
namespace {

constexpr const char* kWindow = R"(
import QtQuick
import TarnwickBrell.Models
import TarnwickBrell.Panels

Window {
    id: window
    required property FilterOptions choices
    width: 600; height: 400; visible: true
    FilterChip { choices: window.choices; focus: true }
}
)";

int itemsIn(const QQuickItem* item) {
    int count = item->property("isChosen").isValid() ? 1 : 0;
    for (const auto* child : item->childItems()) count += itemsIn(child);
    return count;
}

TEST(FilterChip, AThousandChoicesAreMadeAsTheyComeIntoSightAndAreChosenByKeysAndPointer) {
    for (void (*volatile types)() :
         {&qml_register_types_TarnwickBrell_Models, &qml_register_types_TarnwickBrell_Panels}) {
        ASSERT_NE(types, nullptr);
    }
    FilterOptions choices("Source");
    QQmlEngine engine;
    QObject::connect(&engine, &QQmlEngine::warnings, [](const auto& warnings) {
        for (const auto& warning : warnings) ADD_FAILURE() << warning.toString().toStdString();
    });
    installControls(engine);
    QQmlComponent component(&engine);
    component.setData(kWindow, QUrl("qrc:/test.qml"));
    const std::unique_ptr<QQuickWindow> window(qobject_cast<QQuickWindow*>(
        component.createWithInitialProperties({{"choices", QVariant::fromValue(&choices)}})));
    ASSERT_TRUE(window) << component.errorString().toStdString();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    std::vector<FilterOptions::Choice> thousand;
    for (int i = 0; i < 1000; ++i) thousand.push_back({std::to_string(i), QString::number(i)});
    choices.offer(thousand);

    const auto press = [&](Qt::Key key) { QTest::keyClick(window.get(), key); };
    const auto shown = [&] { return itemsIn(window->contentItem()); };
    press(Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown() > 5; }));
    EXPECT_LT(shown(), 100);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(choices.chosen(), (std::set<std::string, std::less<>>{"1"}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown() == 0; }));

    press(Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown() > 5; }));
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, {60, 100});
    EXPECT_EQ(choices.chosen(), (std::set<std::string, std::less<>>{"1", "3"}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown() == 0; }));
    press(Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown() > 5; }));
    press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == 0; }));
}

}  // namespace
}  // namespace app
