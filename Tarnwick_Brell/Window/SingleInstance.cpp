#include "Tarnwick_Brell/Window/SingleInstance.h"

#include <cstdlib>
#include <system_error>

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QTimer>

#include "Tarnwick_Brell/Window/SocketCall.h"

namespace app {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// The system takes 107 bytes; Qt makes the socket in a folder of its own at first.
constexpr std::size_t kLongestAddress = 88;
constexpr int kHashBytes = 8;
constexpr qint64 kLongestLine = 2'000;
constexpr auto kLineComesWithin = 2s;
constexpr const char* kRaise = "raise";
constexpr const char* kDone = "raised";

std::optional<std::string> environment(const char* name) {
    const char* value = std::getenv(name);
    return value && *value ? std::optional<std::string>(value) : std::nullopt;
}

/// Given to this start by the desktop; one line, whatever the environment holds.
std::string activationToken() {
    auto token = environment("XDG_ACTIVATION_TOKEN");
    if (!token) token = environment("DESKTOP_STARTUP_ID");
    if (!token || token->size() > kLongestLine / 2 || token->find('\n') != std::string::npos)
        return {};
    return *token;
}

}  // namespace

std::vector<std::string> socketAddresses(const fs::path& library,
                                         const std::optional<std::string>& runtimeFolder) {
    std::error_code ignored;
    // One library has one name, whatever links lead to it.
    auto path = fs::weakly_canonical(fs::absolute(library, ignored), ignored);
    if (path.empty()) path = library;
    std::vector<std::string> addresses;
    const auto beside = fs::path(path).replace_extension(".window").string();
    if (beside.size() <= kLongestAddress) addresses.push_back(beside);
    if (runtimeFolder && runtimeFolder->starts_with('/')) {
        const auto hash = QCryptographicHash::hash(QByteArray::fromStdString(path.string()),
                                                   QCryptographicHash::Sha256);
        const auto name = "tarnwick-brell-" + hash.first(kHashBytes).toHex().toStdString();
        const auto inRuntime = (fs::path(*runtimeFolder) / name).string();
        if (inRuntime.size() <= kLongestAddress) addresses.push_back(inRuntime);
    }
    return addresses;
}

SingleInstance::SingleInstance(const fs::path& library)
    : addresses_(socketAddresses(library, environment("XDG_RUNTIME_DIR"))) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &SingleInstance::greet);
}

bool SingleInstance::raiseFirst(std::chrono::milliseconds patience) const {
    const auto line = std::string(kRaise) + ' ' + activationToken() + '\n';
    for (const auto& address : addresses_) {
        if (callSocket(address, line, patience) == kDone) return true;
    }
    return false;
}

bool SingleInstance::listen() {
    if (server_.isListening()) return true;
    for (const auto& address : addresses_) {
        const auto name = QString::fromStdString(address);
        QLocalServer::removeServer(name);
        if (server_.listen(name)) return true;
    }
    return false;
}

void SingleInstance::greet() {
    while (auto* socket = server_.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (!isOwnPeer(static_cast<int>(socket->socketDescriptor()))) {
            socket->abort();
            continue;
        }
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { read(socket); });
        QTimer::singleShot(kLineComesWithin, socket, [socket] { socket->abort(); });
        if (socket->bytesAvailable() > 0) read(socket);
    }
}

void SingleInstance::read(QLocalSocket* socket) {
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() > kLongestLine) socket->abort();
        return;
    }
    const auto words = QString::fromUtf8(socket->readLine(kLongestLine)).trimmed();
    if (words.section(u' ', 0, 0) == QLatin1String(kRaise)) {
        socket->write(QByteArray(kDone) + '\n');
        emit raiseWanted(words.section(u' ', 1));
    }
    socket->disconnectFromServer();
}

std::string SingleInstance::refusal(const LibraryInUseError& held) {
    if (held.holder().what == kWhat)
        return std::string(held.what()) + " It does not answer; if it hangs, end it first.";
    return std::string(held.what()) + " End that first, then open the window.";
}

}  // namespace app
