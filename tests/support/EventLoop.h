#pragma once

#include <chrono>
#include <functional>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace test {

/// Creates the QCoreApplication that Qt's objects need in a program without its own main function.
inline void beApplication() {
    if (qApp) return;
    static int count = 0;
    static QCoreApplication application(count, nullptr);
}

/// Runs the event loop for that long.
inline void runFor(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Runs the event loop until the condition holds, for half a minute at most: machines that build
/// at the same time are slow.
inline bool until(const std::function<bool()>& holds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!holds() && std::chrono::steady_clock::now() < end) {
        runFor(std::chrono::milliseconds(5));
    }
    return holds();
}

}  // namespace test
