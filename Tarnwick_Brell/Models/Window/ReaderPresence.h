#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include <QObject>
#include <QTimer>

#include "NewsroomKit/Records/Instant.h"

namespace app {

/// Notices when the reader leaves the window: when it is hidden or closed, or has been without
/// the focus for a while. Until the reader is back, later signs of absence change nothing.
class ReaderPresence : public QObject {
    Q_OBJECT
public:
    /// Called with the moment at which the reader left.
    using Left = std::function<void(kit::Instant)>;

    static constexpr std::chrono::minutes kLongestWithoutFocus{5};

    ReaderPresence(kit::Clock clock, Left left,
                   std::chrono::milliseconds longestWithoutFocus = kLongestWithoutFocus);

    void setVisible(bool visible);
    void setFocused(bool focused);

private:
    void comeBack();
    void leave(kit::Instant at);

    kit::Clock clock_;
    Left left_;
    bool isHere_ = false;
    std::optional<kit::Instant> withoutFocusSince_;
    QTimer absence_;
};

}  // namespace app
