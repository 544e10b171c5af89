#pragma once

#include <gtest/gtest.h>

#include <utility>

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QTest>

#include "Tarnwick_Brell/Pictures/PictureLoader.h"
#include "Tarnwick_Brell/Window/DeskWindow.h"
#include "tests/support/EventLoop.h"
#include "tests/support/models/TestStories.h"

namespace app::test {

/// The real window over a desk, driven by keys and the pointer. It opens with what the desk has
/// been told before `openWindow`. A warning of QML fails the test.
class WindowJobTest : public ::testing::Test {
protected:
    void openWindow() {
        harness_.open();
        model_ = std::make_unique<WindowModel>(DeskStores{.news = *harness_.news,
                                                          .trackers = *harness_.trackers,
                                                          .newsrooms = *harness_.newsrooms,
                                                          .alerts = *harness_.alerts,
                                                          .kept = *harness_.kept,
                                                          .defaults = harness_.defaults,
                                                          .clock = harness_.desk.clock(),
                                                          .undo = undo_,
                                                          .library = harness_.desk.library()});
        QObject::connect(model_.get(), &WindowModel::noticed,
                         [this](const QString& sentence) { noticed_ << sentence; });
        model_->open(model_->state()->place());
        window_ = std::make_unique<DeskWindow>(*model_, pictures_);
        QObject::connect(qmlEngine(&window()), &QQmlEngine::warnings, [](const auto& warnings) {
            for (const auto& warning : warnings) ADD_FAILURE() << warning.toString().toStdString();
        });
        window_->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }

    QQuickWindow& window() { return window_->window(); }

    void press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&window(), static_cast<Qt::Key>(key), modifiers);
    }
    void type(const char* text) {
        for (const char* letter = text; *letter; ++letter) QTest::keyClick(&window(), *letter);
    }

    /// A text field has the focus.
    bool isTyping() {
        const auto* item = window().activeFocusItem();
        return item && item->inherits("QQuickTextInput");
    }

    // The window as a screen reader knows it.

    static QString nameOf(QQuickItem* item) {
        auto* face = QAccessible::queryAccessibleInterface(item);
        return face ? face->text(QAccessible::Name) : QString();
    }
    static QQuickItem* below(QQuickItem* item, const QString& name) {
        if (!item->isVisible()) return nullptr;
        if (nameOf(item) == name) return item;
        for (auto* child : item->childItems()) {
            if (auto* found = below(child, name)) return found;
        }
        return nullptr;
    }
    QQuickItem* named(const QString& name) { return below(window().contentItem(), name); }

    static QPoint middleOf(QQuickItem& item) {
        return item.mapToScene(QPointF(item.width() / 2, item.height() / 2)).toPoint();
    }
    /// What a screen reader says of the item with the focus.
    QString spokenFocus() {
        auto* face = QAccessible::queryAccessibleInterface(window().activeFocusItem());
        return face ? face->text(QAccessible::Description) : QString();
    }
    /// Items that have just come stand in their places once a frame has been drawn.
    void waitForFrame() {
        bool isDrawn = false;
        QObject context;
        QObject::connect(&window(), &QQuickWindow::frameSwapped, &context, [&] { isDrawn = true; });
        window().update();
        ASSERT_TRUE(::test::until([&] { return isDrawn; }));
    }
    /// Once it is there.
    void click(const QString& name, Qt::MouseButton button = Qt::LeftButton) {
        ASSERT_TRUE(::test::until([&] { return named(name) != nullptr; })) << name.toStdString();
        // What is still being laid out would not be where the click goes.
        constexpr int kMostFrames = 100;
        QPoint middle;
        for (int frame = 0; frame < kMostFrames; ++frame) {
            waitForFrame();
            ASSERT_NE(named(name), nullptr) << name.toStdString();
            if (std::exchange(middle, middleOf(*named(name))) == middle) break;
        }
        QTest::mouseClick(&window(), button, {}, middle);
    }
    /// The pointer goes there in steps, as a hand does.
    void dragTo(QPoint from, QPoint to) {
        constexpr int kSteps = 8;
        QTest::mousePress(&window(), Qt::LeftButton, {}, from);
        for (int i = 1; i <= kSteps; ++i)
            QTest::mouseMove(&window(), from + (to - from) * i / kSteps);
        QTest::mouseRelease(&window(), Qt::LeftButton, {}, to);
    }

    TestStories harness_;
    UndoStack undo_;
    std::unique_ptr<WindowModel> model_;
    PictureLoader pictures_{
        {.folder = harness_.desk.folder.path() / "pictures", .network = harness_.desk.network()}};
    std::unique_ptr<DeskWindow> window_;
    QStringList noticed_;  ///< the sentences that the window has shown in passing
};

}  // namespace app::test
