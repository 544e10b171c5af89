#pragma once

#include <functional>

#include <QSocketNotifier>

namespace app {

/// Turns SIGINT (Ctrl-C), SIGTERM and SIGHUP into a call in the event loop while the object lives.
/// Only one object at a time.
class ShutdownSignals {
public:
    explicit ShutdownSignals(std::function<void()> stop);
    ~ShutdownSignals();
    ShutdownSignals(const ShutdownSignals&) = delete;
    ShutdownSignals& operator=(const ShutdownSignals&) = delete;

private:
    QSocketNotifier notifier_;
};

}  // namespace app
