#include "Tarnwick_Brell/Shell/DemoPressRoom.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <fstream>
#include <optional>
#include <system_error>

#include "NewsroomKit/Log/Log.h"
#include "NewsroomKit/Records/Codec.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"

namespace app {

namespace {

namespace fs = std::filesystem;

// The sample world is densest around its start; after this time it would look inactive.
constexpr std::chrono::hours kWorldLasts{6};

constexpr const char* kNotStarted = "The demonstration's press room could not be started.";

fs::path pressRoomProgram() {
    std::error_code error;
    const auto self = fs::read_symlink("/proc/self/exe", error);
    const auto program = self.parent_path() / "pressroom";
    if (error || !fs::exists(program)) {
        throw DemoError("The demonstration needs the program pressroom beside " +
                        self.filename().string() + " (" + program.string() + ").");
    }
    return program;
}

/// The stored start in seconds since 1970, if it is recent.
std::optional<std::int64_t> rememberedStart(const fs::path& file, std::int64_t now) {
    std::ifstream stream(file);
    std::int64_t start = 0;
    if (!(stream >> start) || start > now) return std::nullopt;
    return now - start < std::chrono::seconds(kWorldLasts).count() ? std::optional(start)
                                                                   : std::nullopt;
}

/// The start time of the sample world. A new world begins with an empty store, because stories of
/// an older one would only be confusing. Only a demonstration's own folder is emptied; any other
/// library is refused.
std::string worldStart(const fs::path& dataDir, kit::Instant now) {
    const auto seconds = static_cast<std::int64_t>(std::floor(kit::secondsSince1970(now)));
    const auto file = dataDir / "world-start";
    const auto library = Paths::forUser(dataDir).library;
    if (fs::exists(library) && !fs::exists(file)) {
        throw DemoError("The folder " + dataDir.string() +
                        " holds a library that is not the demonstration's. It was left untouched.");
    }
    auto start = rememberedStart(file, seconds);
    if (!start) {
        std::error_code ignored;
        for (const char* ending : {"", "-wal", "-shm"}) {
            fs::remove(library.string() + ending, ignored);
        }
        fs::remove_all(dataDir / "backups", ignored);
        fs::create_directories(dataDir, ignored);
        std::ofstream(file) << seconds << '\n';
        start = seconds;
    }
    return std::to_string(*start);
}

struct Pipe {
    std::array<int, 2> ends{-1, -1};
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) throw DemoError(kNotStarted);
    }
};

}  // namespace

fs::path demoDataDir() { return Paths::forUser(std::nullopt).library.parent_path() / "demo"; }

void claimForDemo(const fs::path& dataDir, kit::Instant now) {
    std::error_code ignored;
    if (!fs::exists(Paths::forUser(dataDir).library, ignored)) worldStart(dataDir, now);
}

DemoPressRoom::DemoPressRoom(const fs::path& dataDir, kit::Instant now) {
    start(pressRoomProgram(), worldStart(dataDir, now));
}

void DemoPressRoom::start(const fs::path& program, const std::string& anchor) {
    Pipe input, output;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input.ends[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output.ends[1], STDOUT_FILENO);
    std::string name = program.string();
    std::array<std::string, 4> words{"--ready-json", "--exit-with-parent", "--anchor", anchor};
    std::array<char*, 6> arguments{name.data(),     words[0].data(), words[1].data(),
                                   words[2].data(), words[3].data(), nullptr};
    const int error =
        posix_spawn(&process_, name.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(input.ends[0]);
    close(output.ends[1]);
    lifeline_ = input.ends[1];
    if (error != 0) {
        process_ = -1;
        close(output.ends[0]);
        throw DemoError(kNotStarted);
    }
    readAddress(output.ends[0]);
}

void DemoPressRoom::readAddress(int output) {
    std::string line;
    char c = 0;
    while (line.size() < 4096 && read(output, &c, 1) == 1 && c != '\n') line += c;
    close(output);
    try {
        const auto ready = kit::parseJSON(line);
        address_ = kit::decode<std::string>(ready.at("host")) + ":" +
                   std::to_string(kit::decode<std::int64_t>(ready.at("port")));
        authority_ = kit::decode<std::string>(ready.at("authority"));
        kit::log(kit::LogCategory::press, kit::LogLevel::info, "the press room answers at {}",
                 address_);
    } catch (const std::exception&) {
        throw DemoError(kNotStarted);
    }
}

DemoPressRoom::~DemoPressRoom() {
    if (lifeline_ >= 0) close(lifeline_);
    if (process_ > 0) waitpid(process_, nullptr, 0);
}

}  // namespace app
