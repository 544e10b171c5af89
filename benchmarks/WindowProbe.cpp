#include "benchmarks/WindowProbe.h"

#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <fstream>
#include <iterator>
#include <sstream>

#include <QEvent>
#include <QMetaEnum>
#include <QThread>
#include <QWindow>

namespace probe {

namespace {

constexpr double kFrame = 16;

double millisecondsOn(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return 1e3 * static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e6;
}

}  // namespace

double milliseconds(Steady::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

double sinceProcessStart() {
    std::ifstream file("/proc/self/stat");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    // After the program's name, which may hold anything, the start is the 20th field.
    std::istringstream fields(text.substr(text.rfind(')') + 2));
    std::string start;
    for (int field = 0; field < 20; ++field) fields >> start;
    const auto ticks = static_cast<double>(sysconf(_SC_CLK_TCK));
    return millisecondsOn(CLOCK_BOOTTIME) - 1e3 * std::stod(start) / ticks;
}

double megabytesIn(const char* file, const std::string& key) {
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(key + ':')) return std::stod(line.substr(key.size() + 1)) / 1024;
    }
    return 0;
}

double processorMilliseconds() { return millisecondsOn(CLOCK_PROCESS_CPUTIME_ID); }

Moment Moment::now() {
    return {.wall = milliseconds(Steady::now().time_since_epoch()),
            .processor = millisecondsOn(CLOCK_THREAD_CPUTIME_ID)};
}

Application::Application(int& count, char** words) : QGuiApplication(count, words) {
    QObject::connect(&heart_, &QTimer::timeout, this, [this] {
        const auto beat = Moment::now();
        slowest_.turn = std::max(slowest_.turn, beat - lastBeat_);
        lastBeat_ = beat;
    });
    heart_.setTimerType(Qt::PreciseTimer);
    heart_.start(1);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    // QML loads files on a thread of its own.
    if (QThread::currentThread() != thread()) return QGuiApplication::notify(receiver, event);
    const int type = event->type();
    const bool isFrame = type == QEvent::UpdateRequest && receiver->isWindowType();
    if (depth_ > 0 && !isFrame) return QGuiApplication::notify(receiver, event);
    // Read first, because an event may destroy its receiver.
    const std::string name = receiver->metaObject()->className();
    ++depth_;
    const auto begin = Moment::now();
    const bool isTaken = QGuiApplication::notify(receiver, event);
    const auto time = Moment::now() - begin;
    --depth_;
    if (isFrame) {
        ++slowest_.frames;
        slowest_.longFrames += time.wall > kFrame;
        slowest_.frame = std::max(slowest_.frame, time);
    }
    if (depth_ == 0 && slowest_.event < time) {
        slowest_.event = time;
        const char* kind = QMetaEnum::fromType<QEvent::Type>().valueToKey(type);
        slowest_.name = name + ", " + (kind ? kind : std::to_string(type));
    }
    return isTaken;
}

Application::Slowest Application::take() {
    lastBeat_ = Moment::now();
    return std::exchange(slowest_, {});
}

}  // namespace probe
