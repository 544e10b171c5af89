#pragma once

#include <optional>
#include <string>

namespace app {

/// What the window shows when the user activates a notification.
struct NotificationTarget {
    enum class Kind { story, newStories, beat, newsroom, tracker, page };

    Kind kind = Kind::newStories;
    std::string id{};  ///< of the story, beat, newsroom, tracker or page; empty for new stories

    bool operator==(const NotificationTarget&) const = default;
};

/// A message for the desktop's notification service.
struct Notification {
    std::string identifier{};  ///< a later one with the same identifier replaces it
    std::string title{};
    std::string body{};  ///< plain text; line breaks count
    std::string link{};  ///< opened by a desk without a window; may be empty
    std::optional<NotificationTarget> target{};
    bool withSound = false;

    bool operator==(const Notification&) const = default;
};

}  // namespace app
