#pragma once

#include <functional>

#include <QSocketNotifier>

namespace desk {

/// Ctrl-C and the wish to end (SIGINT, SIGTERM, SIGHUP) as a call in the event loop, as long as
/// the object lives. One at a time.
class StopSignals {
public:
    explicit StopSignals(std::function<void()> stop);
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

private:
    QSocketNotifier notifier_;
};

}  // namespace desk
