#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace app {

/// The process at the other end of a connected socket belongs to this user.
bool isOwnPeer(int descriptor);

/// Somebody listens at the local socket.
bool takesConnections(const std::string& address);

/// Connects to the local socket, sends the line and gives the line that is answered. Nothing
/// when nobody listens, when that is another user's process, or when time runs out.
std::optional<std::string> callSocket(const std::string& address, std::string_view line,
                                      std::chrono::milliseconds patience);

}  // namespace app
