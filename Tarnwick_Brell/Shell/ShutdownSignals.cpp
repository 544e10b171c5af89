#include "Tarnwick_Brell/Shell/ShutdownSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>

namespace app {

namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

// A signal handler may do very little: it writes a byte, which the event loop reads.
std::array<int, 2> alarmPipe{-1, -1};

void raiseAlarm(int number) {
    const char byte = 0;
    [[maybe_unused]] const auto written = write(alarmPipe[1], &byte, 1);
    // A second signal ends the program even while it waits for a reader of its output.
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
        // A signal that nohup or a script ignores stays ignored.
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
