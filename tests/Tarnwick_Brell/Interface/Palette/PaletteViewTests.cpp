#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

#include "Tarnwick_Brell/Interface/Controls/InstallControls.h"
#include "Tarnwick_Brell/Models/Actions/PaletteModel.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "tests/support/app/TestDesk.h"
#include "tests/support/EventLoop.h"

// Written by the build. Naming them keeps the linker from leaving out the modules' types.
extern void qml_register_types_TarnwickBrell_Models();
extern void qml_register_types_TarnwickBrell_Palette();

namespace app {
namespace {

constexpr const char* kWindow = R"(
import QtQuick
import TarnwickBrell.Models
import TarnwickBrell.Palette

Window {
    id: window
    required property PaletteModel palette
    required property ActionModel actions
    readonly property bool paletteShown: popup.visible
    readonly property real paletteTop: popup.y
    readonly property real paletteHeight: popup.height
    readonly property bool keysShown: keys.visible
    property alias typed: input.text
    width: 960; height: 600; visible: true
    function showPalette() { popup.show() }
    function showKeys() { keys.open() }
    function typeHere() { input.forceActiveFocus() }
    function leaveText() { other.forceActiveFocus() }
    Item { id: other; focus: true }
    TextInput { id: input }
    ActionShortcuts {
        actions: window.actions
        textFocused: input.activeFocus
        covered: popup.visible || keys.visible
    }
    CommandPalette { id: popup; palette: window.palette }
    KeysSheet { id: keys; actions: window.actions }
}
)";

class PaletteViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (void (*volatile types)() : {&qml_register_types_TarnwickBrell_Models,
                                         &qml_register_types_TarnwickBrell_Palette}) {
            ASSERT_NE(types, nullptr);
        }
        QObject::connect(&engine_, &QQmlEngine::warnings, [this](const auto& warnings) {
            for (const auto& warning : warnings) ADD_FAILURE() << warning.toString().toStdString();
        });
        QObject::connect(&actions_, &ActionModel::triggered,
                         [this](Action action) { triggered_.push_back(action); });
        QObject::connect(&palette_, &PaletteModel::actionWanted,
                         [this](Action action) { wanted_.push_back(action); });
        installControls(engine_);
        QQmlComponent component(&engine_);
        component.setData(kWindow, QUrl("qrc:/test.qml"));
        window_.reset(qobject_cast<QQuickWindow*>(
            component.createWithInitialProperties({{"palette", QVariant::fromValue(&palette_)},
                                                   {"actions", QVariant::fromValue(&actions_)}})));
        ASSERT_TRUE(window_) << component.errorString().toStdString();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }

    void call(const char* function) { QMetaObject::invokeMethod(window_.get(), function); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window_.get(), key, modifiers);
    }
    double number(const char* property) const { return window_->property(property).toDouble(); }
    bool is(const char* property) const { return window_->property(property).toBool(); }

    test::TestDesk harness_{{"a.example"}};
    Defaults defaults_{harness_.folder.path() / "settings.ini"};
    NewsDesk desk_{harness_.library(), harness_.network(), defaults_, harness_.clock()};
    ActionModel actions_;
    PaletteModel palette_{actions_,
                          [] {
                              std::vector<PalettePlace> places;
                              for (const auto* title : {"Today", "Top stories", "App Store rules"})
                                  places.push_back({title, title, "tray", "Wire"});
                              return places;
                          },
                          desk_, harness_.clock()};
    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> window_;
    std::vector<Action> triggered_;
    std::vector<Action> wanted_;
};

TEST_F(PaletteViewTest, ActionsHaveTheirKeysExceptWhereTheyAreTyped) {
    press(Qt::Key_R);
    press(Qt::Key_S);
    press(Qt::Key_G);
    press(Qt::Key_S);
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    EXPECT_EQ(triggered_, (std::vector{DeskAction::Refresh, DeskAction::GoToSaved}))
        << "no story is there to be saved, and lists have keys of their own";
    triggered_.clear();
    actions_.setProperty("hasStory", true);
    press(Qt::Key_S);
    press(Qt::Key_M, Qt::ShiftModifier);
    EXPECT_EQ(triggered_, (std::vector{DeskAction::ToggleSaved, DeskAction::MarkAllRead}));
    triggered_.clear();
    call("typeHere");
    press(Qt::Key_S);
    press(Qt::Key_Slash);
    press(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(window_->property("typed").toString(), "s/");
    EXPECT_EQ(triggered_, std::vector{DeskAction::ShowPalette});
    triggered_.clear();
    call("showKeys");
    ASSERT_TRUE(::test::until([&] { return is("keysShown"); }));
    press(Qt::Key_R);
    EXPECT_TRUE(triggered_.empty());
    press(Qt::Key_Escape);
    EXPECT_TRUE(::test::until([&] { return !is("keysShown"); }));
}

TEST_F(PaletteViewTest, IsUsedWithTheKeyboardAndKeepsItsTopEdge) {
    call("typeHere");
    call("showPalette");
    ASSERT_TRUE(::test::until([&] { return is("paletteShown"); }));
    const auto last = static_cast<int>(palette_.list().size()) - 1;
    EXPECT_EQ(number("paletteHeight"), 420) << "of 600";
    press(Qt::Key_End);
    EXPECT_EQ(palette_.selected(), last);
    press(Qt::Key_Home);
    press(Qt::Key_PageDown);
    EXPECT_GT(palette_.selected(), 5);
    EXPECT_LT(palette_.selected(), last);

    const auto top = number("paletteTop");
    for (const auto key : {Qt::Key_U, Qt::Key_N, Qt::Key_R}) press(key);
    EXPECT_EQ(palette_.text(), "unr");
    EXPECT_EQ(palette_.selected(), 0);
    EXPECT_TRUE(::test::until([&] { return number("paletteHeight") < 420; }));
    EXPECT_EQ(number("paletteTop"), top);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    const auto expected = palette_.list().at(2).action;
    press(Qt::Key_Return);
    EXPECT_EQ(wanted_, std::vector{expected});
    EXPECT_TRUE(::test::until([&] { return !is("paletteShown"); }));
    EXPECT_TRUE(triggered_.empty()) << "what was typed there is no shortcut";

    press(Qt::Key_X);
    EXPECT_EQ(window_->property("typed").toString(), "x") << "the focus is back where it was";
    call("showPalette");
    ASSERT_TRUE(::test::until([&] { return is("paletteShown"); }));
    EXPECT_EQ(palette_.text(), "") << "begins afresh";
    press(Qt::Key_Escape);
    EXPECT_TRUE(::test::until([&] { return !is("paletteShown"); }));
}

}  // namespace
}  // namespace app
