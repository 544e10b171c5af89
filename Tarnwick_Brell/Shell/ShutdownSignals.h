#pragma once

#include <functional>

#include <QSocketNotifier>

namespace app {

/// Ctrl-C and the wish to end (SIGINT, SIGTERM, SIGHUP) as a call in the event loop, as long as
/// the object lives. One at a time.
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
