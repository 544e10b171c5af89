#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include <QObject>

namespace desk {

/// Takes what lies in a mailbox, in the main thread's event loop.
class MailReceiver : public QObject {
    Q_OBJECT
public:
    explicit MailReceiver(std::function<void()> take) : take_(std::move(take)) {}

    Q_INVOKABLE void takeMail() { take_(); }

private:
    std::function<void()> take_;
};

/// The way from the worker's thread to an object of the main thread: messages arrive in the
/// order in which they were sent. An object that goes before the worker holds its mailbox in a
/// shared_ptr, hands that to its jobs, and closes it; what is sent to a closed one is dropped.
class Mailbox {
public:
    /// On the main thread.
    Mailbox();
    Mailbox(const Mailbox&) = delete;
    Mailbox& operator=(const Mailbox&) = delete;

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
    std::unique_ptr<MailReceiver> receiver_;
};

}  // namespace desk
