#include "Tarnwick_Brell/Desk/MainThreadQueue.h"

#include <utility>

#include <QMetaObject>

namespace app {

MainThreadQueue::MainThreadQueue()
    : receiver_(std::make_unique<QueueReceiver>([this] { run(); })) {}

void MainThreadQueue::send(std::function<void()> message) {
    const std::lock_guard lock(lock_);
    if (!receiver_) return;
    messages_.push_back(std::move(message));
    if (messages_.size() == 1) {
        QMetaObject::invokeMethod(receiver_.get(), "run", Qt::QueuedConnection);
    }
}

void MainThreadQueue::run() {
    std::vector<std::function<void()>> messages;
    {
        const std::lock_guard lock(lock_);
        messages.swap(messages_);
    }
    for (const auto& message : messages) message();
}

void MainThreadQueue::close() {
    std::vector<std::function<void()>> dropped;
    std::unique_ptr<QueueReceiver> receiver;
    const std::lock_guard lock(lock_);
    dropped.swap(messages_);
    receiver = std::move(receiver_);
}

}  // namespace app
