#include "Tarnwick_Brell/Models/Window/ReaderPresence.h"

#include <utility>

namespace app {

ReaderPresence::ReaderPresence(kit::Clock clock, Left left,
                               std::chrono::milliseconds longestWithoutFocus)
    : clock_(std::move(clock)), left_(std::move(left)) {
    absence_.setSingleShot(true);
    absence_.setInterval(longestWithoutFocus);
    connect(&absence_, &QTimer::timeout, this, [this] { leave(*withoutFocusSince_); });
}

void ReaderPresence::setVisible(bool visible) { visible ? comeBack() : leave(clock_()); }

void ReaderPresence::setFocused(bool focused) {
    if (focused) {
        // The timer does not run while the computer sleeps.
        const auto since = withoutFocusSince_.value_or(clock_());
        if (clock_() - since >= absence_.intervalAsDuration()) leave(since);
        comeBack();
    } else if (isHere_ && !withoutFocusSince_) {
        withoutFocusSince_ = clock_();
        absence_.start();
    }
}

void ReaderPresence::comeBack() {
    isHere_ = true;
    withoutFocusSince_.reset();
    absence_.stop();
}

void ReaderPresence::leave(kit::Instant at) {
    absence_.stop();
    if (std::exchange(isHere_, false)) left_(at);
}

}  // namespace app
