#include <csignal>
#include <exception>
#include <filesystem>
#include <functional>
#include <iostream>
#include <map>
#include <mutex>
#include <string>

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "PressRoom/CommandLine.h"
#include "PressRoom/Files/FilesRequestHandler.h"
#include "PressRoom/Pages/PagesRequestHandler.h"
#include "PressRoom/Server/Conditional.h"
#include "PressRoom/Server/Server.h"
#include "PressRoom/AppleData/AppleDataRequestHandler.h"
#include "PressRoom/Backend/BackendRequestHandler.h"
#include "PressRoom/Court/CourtRequestHandler.h"
#include "PressRoom/Filings/FilingsRequestHandler.h"
#include "PressRoom/Trackers/TrackerRequestHandler.h"
#include "PressRoom/World/WorldHandler.h"

namespace {

using namespace pressroom;
namespace fs = std::filesystem;

/// The default folder of the sample world: for an installed program ../share/tarnwick-brell/world
/// beside it, otherwise the source tree it was built from.
fs::path defaultWorldDirectory() {
    std::error_code unknown;
    const auto program = fs::read_symlink("/proc/self/exe", unknown);
    if (!unknown) {
        const auto installed = program.parent_path().parent_path() / "share/tarnwick-brell/world";
        if (fs::is_directory(installed)) return installed;
    }
    return PRESSROOM_WORLD;
}

/// The folder of the authorities' certificates: the caller's, or a temporary one that is removed at
/// exit.
class AuthorityFolder {
public:
    explicit AuthorityFolder(const std::optional<fs::path>& wanted) : isTemporary_(!wanted) {
        if (wanted) {
            fs::create_directories(*wanted);
            path_ = fs::canonical(*wanted);
            return;
        }
        auto pattern = (fs::temp_directory_path() / "press-room-XXXXXX").string();
        if (!mkdtemp(pattern.data())) {
            throw std::system_error(errno, std::generic_category(),
                                    "cannot make a temporary folder");
        }
        path_ = pattern;
    }
    ~AuthorityFolder() {
        std::error_code ignored;
        if (isTemporary_) fs::remove_all(path_, ignored);
    }
    AuthorityFolder(const AuthorityFolder&) = delete;
    AuthorityFolder& operator=(const AuthorityFolder&) = delete;

    fs::path authority() const { return path_ / "authority.pem"; }
    fs::path privateAuthority() const { return path_ / "private-authority.pem"; }

private:
    fs::path path_;
    bool isTemporary_;
};

/// Waits for SIGINT and SIGTERM. Construct it before any thread starts, so that all threads block
/// these signals.
class EndSignals {
public:
    EndSignals() {
        sigset_t set;
        sigemptyset(&set);
        sigaddset(&set, SIGINT);
        sigaddset(&set, SIGTERM);
        sigprocmask(SIG_BLOCK, &set, nullptr);
        descriptor_ = signalfd(-1, &set, SFD_CLOEXEC);
        if (descriptor_ < 0) throw std::system_error(errno, std::generic_category(), "signalfd");
    }
    ~EndSignals() { close(descriptor_); }
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    /// Returns at a signal or, when `withParent`, at the end of standard input.
    void wait(bool withParent) const {
        pollfd waited[] = {{descriptor_, POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
        for (;;) {
            if (poll(waited, withParent ? 2 : 1, -1) < 0 && errno != EINTR) return;
            if (waited[0].revents != 0) return;
            char sink[256];
            if (waited[1].revents != 0 && read(STDIN_FILENO, sink, sizeof sink) <= 0) return;
        }
    }

private:
    int descriptor_ = -1;
};

Handler logging(Handler handler) {
    return [handler = std::move(handler),
            mutex = std::make_shared<std::mutex>()](const Request& request) {
        auto response = handler(request);
        const auto status =
            response.delivery.neverAnswers ? "silent" : std::to_string(response.status);
        const auto line = fmt::format("{} {} https://{}{} {} bytes\n", status, request.method,
                                      request.host, request.target, response.body.size());
        const std::lock_guard lock(*mutex);
        std::cerr << line << std::flush;
        return response;
    };
}

Handler delayed(Handler handler, std::chrono::milliseconds delay) {
    return [handler = std::move(handler), delay](const Request& request) {
        auto response = handler(request);
        response.delivery.delay += delay;
        return response;
    };
}

/// Adds the Date header that every server sends.
Handler dated(Handler handler, std::chrono::days ahead) {
    return [handler = std::move(handler), ahead](const Request& request) {
        auto response = handler(request);
        const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
        response.headers.emplace_back("Date", httpDate(now + ahead));
        return response;
    };
}

void announce(const CommandLine& options, const Server& server, const AuthorityFolder& folder) {
    if (options.readyJSON) {
        const boost::json::object ready{{"host", "127.0.0.1"},
                                        {"port", server.port()},
                                        {"authority", folder.authority().string()},
                                        {"privateAuthority", folder.privateAuthority().string()}};
        std::cout << boost::json::serialize(ready) << std::endl;
        return;
    }
    std::cout << fmt::format(
        "The press room is open on 127.0.0.1:{0}\n\n"
        "Try the desk against it:\n"
        "    brell --connect-to 127.0.0.1:{0} --ca-file {1} refresh\n\n",
        server.port(), folder.authority().string());
    if (options.files) {
        std::cout << fmt::format("Files of {}: https://{}/\n\n", options.files->string(),
                                 FilesRequestHandler::host);
    }
    std::cout << "Ctrl+C closes it." << std::endl;
}

/// Apple's update catalogue has a certificate that systems do not trust. Here that is optional, so
/// that one authority suffices for the whole world.
std::map<std::string, Server::Certificate, std::less<>> certificates(const CommandLine& options) {
    if (!options.privateCatalogue) return {};
    return {{"gdmf.apple.com", Server::Certificate::privateAuthority}};
}

int run(const CommandLine& options) {
    const EndSignals signals;
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const auto anchor =
        options.anchor ? std::chrono::sys_seconds(std::chrono::seconds(*options.anchor)) : now;

    const auto directory = options.world.value_or(defaultWorldDirectory());
    auto misbehaviours = options.misbehaviours;
    RequestHandlers further;
    further.push_back(
        std::make_unique<TrackerRequestHandler>(readTrackers(directory), anchor, misbehaviours));
    further.push_back(
        std::make_unique<AppleDataRequestHandler>(readAppleData(directory), anchor, misbehaviours));
    further.push_back(
        std::make_unique<CourtRequestHandler>(readCourtWorld(directory), anchor, misbehaviours));
    further.push_back(
        std::make_unique<BackendRequestHandler>(readPublicFiles(directory), anchor, misbehaviours));
    further.push_back(std::make_unique<PagesRequestHandler>(readWebPages(directory), anchor));
    further.push_back(std::make_unique<FilingsRequestHandler>(readFilingsWorld(directory), anchor,
                                                              misbehaviours));
    if (options.files) further.push_back(std::make_unique<FilesRequestHandler>(*options.files));
    const WorldHandler world(readWorld(directory), {.anchor = anchor, .speed = options.speed},
                             misbehaviours, std::move(further));

    const AuthorityFolder folder(options.authorityDirectory);
    Handler handler = dated(std::cref(world), std::chrono::days(options.clockAhead));
    if (options.delay > 0) handler = delayed(handler, std::chrono::milliseconds(options.delay));
    Server server(options.log ? logging(handler) : handler,
                  {.port = static_cast<std::uint16_t>(options.port),
                   .threads = 2,
                   .certificates = certificates(options)});
    server.writeAuthority(folder.authority());
    server.writePrivateAuthority(folder.privateAuthority());
    announce(options, server, folder);
    signals.wait(options.exitWithParent);
    server.stop();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const auto options = readCommandLine(argc, argv);
    if (const auto* status = std::get_if<int>(&options)) return *status;
    try {
        return run(std::get<CommandLine>(options));
    } catch (const std::exception& error) {
        std::cerr << "pressroom: " << error.what() << '\n';
        return 1;
    }
}
