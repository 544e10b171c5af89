#pragma once

#include <string>

namespace desk {

/// Something to tell the user outside of the desk's own windows.
struct Notification {
    std::string identifier{};  ///< a later one of the same identifier takes its place
    std::string title{};
    std::string body{};  ///< plain text; line breaks count
    std::string link{};  ///< opened when the user chooses the notification; empty: nothing
    bool withSound = false;

    bool operator==(const Notification&) const = default;
};

}  // namespace desk
