#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include <QObject>

namespace app {

/// Runs the messages of a queue in the main thread's event loop.
class QueueReceiver : public QObject {
    Q_OBJECT
public:
    explicit QueueReceiver(std::function<void()> run) : run_(std::move(run)) {}

    Q_INVOKABLE void run() { run_(); }

private:
    std::function<void()> run_;
};

/// Sends messages from the worker's thread to an object of the main thread, in order. An object
/// that dies before the worker holds its queue in a shared_ptr, which its jobs share, and closes
/// it. Messages to a closed queue are dropped.
class MainThreadQueue {
public:
    /// On the main thread.
    MainThreadQueue();
    MainThreadQueue(const MainThreadQueue&) = delete;
    MainThreadQueue& operator=(const MainThreadQueue&) = delete;

    /// From any thread.
    void send(std::function<void()> message);

    /// On the main thread. Drops the messages that have not arrived.
    void close();

private:
    void run();

    // Messages go through this lock and not through Qt's queue, whose interior the thread
    // sanitizer does not see.
    std::mutex lock_;
    std::vector<std::function<void()>> messages_;
    std::unique_ptr<QueueReceiver> receiver_;
};

}  // namespace app
