#include "Tarnwick_Brell/Desk/MainThreadQueue.h"

#include <utility>

#include <QMetaObject>

namespace app {

MainThreadQueue::MainThreadQueue()
    : receiver_(std::make_unique<QueueReceiver>([this] { take(); })) {}

void MainThreadQueue::send(std::function<void()> message) {
    const std::lock_guard lock(lock_);
    if (!receiver_) return;
    mail_.push_back(std::move(message));
    if (mail_.size() == 1) {
        QMetaObject::invokeMethod(receiver_.get(), "takeMail", Qt::QueuedConnection);
    }
}

void MainThreadQueue::take() {
    std::vector<std::function<void()>> mail;
    {
        const std::lock_guard lock(lock_);
        mail.swap(mail_);
    }
    for (const auto& message : mail) message();
}

void MainThreadQueue::close() {
    std::vector<std::function<void()>> dropped;
    std::unique_ptr<QueueReceiver> receiver;
    const std::lock_guard lock(lock_);
    dropped.swap(mail_);
    receiver = std::move(receiver_);
}

}  // namespace app
