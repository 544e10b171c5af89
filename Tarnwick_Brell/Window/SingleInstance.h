#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <QLocalServer>
#include <QObject>
#include <QString>

#include "Tarnwick_Brell/Storage/Safety/LibraryLock.h"

namespace app {

/// A library has one window: a second start asks the first one, over a socket beside the
/// library, to come to the front. Only this user's processes are spoken to.
class SingleInstance : public QObject {
    Q_OBJECT
public:
    /// What stands in the library's lock for the window.
    static constexpr std::string_view kWhat = "the window";

    explicit SingleInstance(const std::filesystem::path& library);

    /// Asks the window at this library to come to the front, with the right to do so that the
    /// desktop has given to this start. False when there is none, or none that answers in
    /// time. Needs no application object; to be called before there is one, since Qt takes
    /// that right out of the environment.
    bool raiseFirst(std::chrono::milliseconds patience = std::chrono::seconds(2)) const;

    /// Becomes the first one. To be called while holding the library's lock: a socket that is
    /// there then belongs to nobody any more, and is replaced. False when there can't be one,
    /// so that second starts only learn that the library is in use.
    bool listen();

    /// What the user is told when something else than an answering window holds the library.
    static std::string refusal(const LibraryInUseError& held);

signals:
    /// A second start wishes so. The token is empty when the desktop gave none.
    void raiseWanted(const QString& activationToken);

private:
    void greet();
    void read(QLocalSocket* socket);

    std::vector<std::string> addresses_;  ///< where the socket may be, the best first
    QLocalServer server_;
};

/// Where the socket of a library's window may be: beside it, or, since the addresses of sockets
/// are short, in the user's runtime folder.
std::vector<std::string> socketAddresses(const std::filesystem::path& library,
                                         const std::optional<std::string>& runtimeFolder);

}  // namespace app
