#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include <QObject>

namespace app {

/// Takes what lies in a mailbox, in the main thread's event loop.
class QueueReceiver : public QObject {
    Q_OBJECT
public:
    explicit QueueReceiver(std::function<void()> take) : take_(std::move(take)) {}

    Q_INVOKABLE void takeMail() { take_(); }

private:
    std::function<void()> take_;
};

/// The way from the worker's thread to an object of the main thread: messages arrive in the
/// order in which they were sent. An object that goes before the worker holds its mailbox in a
/// shared_ptr, hands that to its jobs, and closes it; what is sent to a closed one is dropped.
class MainThreadQueue {
public:
    /// On the main thread.
    MainThreadQueue();
    MainThreadQueue(const MainThreadQueue&) = delete;
    MainThreadQueue& operator=(const MainThreadQueue&) = delete;

    /// From any thread.
    void send(std::function<void()> message);

    /// On the main thread. What has not arrived never will.
    void close();

private:
    void take();

    // Messages go through this lock and not through Qt's queue, whose interior the thread
    // sanitizer does not see.
    std::mutex lock_;
    std::vector<std::function<void()>> mail_;
    std::unique_ptr<QueueReceiver> receiver_;
};

}  // namespace app
