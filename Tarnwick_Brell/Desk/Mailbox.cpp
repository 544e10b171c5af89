#include "Tarnwick_Brell/Desk/Mailbox.h"

#include <utility>

#include <QMetaObject>

namespace desk {

Mailbox::Mailbox() : receiver_(std::make_unique<MailReceiver>([this] { take(); })) {}

void Mailbox::send(std::function<void()> message) {
    const std::lock_guard lock(lock_);
    if (!receiver_) return;
    mail_.push_back(std::move(message));
    if (mail_.size() == 1) {
        QMetaObject::invokeMethod(receiver_.get(), "takeMail", Qt::QueuedConnection);
    }
}

void Mailbox::take() {
    std::vector<std::function<void()>> mail;
    {
        const std::lock_guard lock(lock_);
        mail.swap(mail_);
    }
    for (const auto& message : mail) message();
}

void Mailbox::close() {
    std::vector<std::function<void()>> dropped;
    std::unique_ptr<MailReceiver> receiver;
    const std::lock_guard lock(lock_);
    dropped.swap(mail_);
    receiver = std::move(receiver_);
}

}  // namespace desk
