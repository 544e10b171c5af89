#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "PressRoom/World/WorldHandler.h"
#include "tests/support/TemporaryFolder.h"

namespace pressroom::testing {

inline constexpr std::chrono::sys_seconds anchor{std::chrono::seconds(1'795'000'000)};

inline World sampleWorld() {
    return readWorld(std::filesystem::path(BRELL_FIXTURES) / "../../PressRoom/World");
}

/// A world whose time the test sets, in minutes after the anchor.
class SteeredWorld {
public:
    explicit SteeredWorld(World world, const Misbehaviours& misbehaviours = {})
        : handler_(std::move(world),
                   {.anchor = anchor,
                    .realTime = [this] { return anchor + std::chrono::minutes(minutes_); }},
                   misbehaviours) {}

    void passTo(int minutes) { minutes_ = minutes; }

    /// Follows redirects, as a reader does.
    Response get(const std::string& address,
                 std::map<std::string, std::string, std::less<>> headers = {}) const {
        const auto slash = address.find('/', 8);
        Request request{.method = "GET",
                        .host = address.substr(8, slash - 8),
                        .target = slash == std::string::npos ? "/" : address.substr(slash),
                        .headers = std::move(headers)};
        auto response = handler_(request);
        return response.status == 302 ? get(headerOf(response, "Location"), request.headers)
                                      : response;
    }

    static std::string headerOf(const Response& response, std::string_view name) {
        for (const auto& [key, value] : response.headers) {
            if (key == name) return value;
        }
        return {};
    }

    const WorldHandler& handler() const { return handler_; }

private:
    int minutes_ = 0;
    WorldHandler handler_;
};

/// A temporary folder that files are written into.
class TemporaryFolder : public ::test::TemporaryFolder {
public:
    std::filesystem::path write(const std::string& name, std::string_view bytes) const {
        const auto file = path() / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file;
    }
};

}  // namespace pressroom::testing
