#pragma once

#include <optional>
#include <string>

namespace app {

/// What a desk with a window shows when the user chooses a notification.
struct NotificationTarget {
    enum class Kind { story, newStories, beat, newsroom, tracker };

    Kind kind = Kind::newStories;
    std::string id{};  ///< of the story, beat, newsroom or tracker page; empty for new stories

    bool operator==(const NotificationTarget&) const = default;
};

/// Something to tell the user outside of the desk's own windows.
struct Notification {
    std::string identifier{};  ///< a later one of the same identifier takes its place
    std::string title{};
    std::string body{};  ///< plain text; line breaks count
    std::string link{};  ///< opened by a desk without a window; empty: nothing
    std::optional<NotificationTarget> target{};
    bool withSound = false;

    bool operator==(const Notification&) const = default;
};

}  // namespace app
