#include "Tarnwick_Brell/Window/SocketCall.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace app {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::size_t kLongestAnswer = 200;

class Connection {
public:
    Connection() : descriptor_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {}
    ~Connection() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    int descriptor() const { return descriptor_; }

    bool open(const std::string& path) {
        sockaddr_un address{};
        if (descriptor_ < 0 || path.size() >= sizeof address.sun_path) return false;
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, path.data(), path.size());
        // A local socket is connected at once, or not at all.
        return connect(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
               0;
    }

    bool send(std::string_view text) {
        return ::send(descriptor_, text.data(), text.size(), MSG_NOSIGNAL) ==
               static_cast<ssize_t>(text.size());
    }

    std::optional<std::string> readLine(SteadyClock::time_point end) {
        std::string line;
        while (line.size() < kLongestAnswer) {
            const auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(end - SteadyClock::now())
                    .count();
            pollfd waiting{.fd = descriptor_, .events = POLLIN, .revents = 0};
            if (left <= 0 || poll(&waiting, 1, static_cast<int>(left)) <= 0) return std::nullopt;
            char c = 0;
            if (recv(descriptor_, &c, 1, 0) != 1) return std::nullopt;
            if (c == '\n') return line;
            line += c;
        }
        return std::nullopt;
    }

private:
    int descriptor_;
};

}  // namespace

bool isOwnPeer(int descriptor) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.uid == geteuid();
}

bool takesConnections(const std::string& address) {
    return !address.empty() && Connection().open(address);
}

std::optional<std::string> callSocket(const std::string& address, std::string_view line,
                                      std::chrono::milliseconds patience) {
    const auto end = SteadyClock::now() + patience;
    Connection connection;
    if (!connection.open(address) || !isOwnPeer(connection.descriptor()) || !connection.send(line))
        return std::nullopt;
    return connection.readLine(end);
}

}  // namespace app
