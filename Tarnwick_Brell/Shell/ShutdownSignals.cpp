#include "Tarnwick_Brell/Shell/ShutdownSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>

namespace app {

namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

// A handler may do next to nothing: it writes a byte, and the event loop reads it.
std::array<int, 2> alarmPipe{-1, -1};

void raiseAlarm(int number) {
    const char byte = 0;
    [[maybe_unused]] const auto written = write(alarmPipe[1], &byte, 1);
    // A second signal ends a program whose output nobody reads, and which waits for that.
    std::signal(number, SIG_DFL);
}

int openAlarm() {
    [[maybe_unused]] const int failed = pipe2(alarmPipe.data(), O_CLOEXEC | O_NONBLOCK);
    return alarmPipe[0];
}

}  // namespace

ShutdownSignals::ShutdownSignals(std::function<void()> stop)
    : notifier_(openAlarm(), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_,
                     [stop = std::move(stop)] { stop(); });
    for (const int number : kSignals) {
        // What nohup or a script has switched off stays off.
        if (std::signal(number, raiseAlarm) == SIG_IGN) std::signal(number, SIG_IGN);
    }
}

ShutdownSignals::~ShutdownSignals() {
    for (const int number : kSignals) {
        if (std::signal(number, SIG_DFL) == SIG_IGN) std::signal(number, SIG_IGN);
    }
    notifier_.setEnabled(false);
    close(alarmPipe[0]);
    close(alarmPipe[1]);
}

}  // namespace app
