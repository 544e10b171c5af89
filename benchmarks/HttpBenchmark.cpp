#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/detached.hpp>
#include <boost/asio/io_context.hpp>
#include <sys/wait.h>
#include <unistd.h>

#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/HTTP/HTTPClient.h"
#include "PressRoom/Server/Server.h"

namespace {

namespace asio = boost::asio;
using namespace kit;

constexpr std::size_t limit = 6 * 1024 * 1024;
constexpr const char* systemBundle = "/etc/ssl/certs/ca-certificates.crt";

/// The server runs in a process of its own, so that CPU time is the client's alone.
class ServerProcess {
public:
    ServerProcess() {
        std::array<int, 2> news{};
        std::array<int, 2> life{};
        if (pipe(news.data()) != 0 || pipe(life.data()) != 0) throw std::runtime_error("pipe");
        process_ = fork();
        if (process_ == 0) {
            close(life[1]);
            serve(news[1], life[0]);
        }
        close(news[1]);
        close(life[0]);
        lifeline_ = life[1];
        std::string announcement;
        std::array<char, 4096> buffer{};
        for (ssize_t n = 0; (n = read(news[0], buffer.data(), buffer.size())) > 0;) {
            announcement.append(buffer.data(), static_cast<std::size_t>(n));
        }
        close(news[0]);
        const auto lineEnd = announcement.find('\n');
        port_ = announcement.substr(0, lineEnd);
        authority_ = announcement.substr(lineEnd + 1);
    }

    ~ServerProcess() {
        close(lifeline_);
        waitpid(process_, nullptr, 0);
    }

    const std::string& port() const { return port_; }
    const std::string& authority() const { return authority_; }

private:
    [[noreturn]] static void serve(int news, int life) {
        std::mt19937 dice(1);
        std::string body(50'000, ' ');
        std::ranges::generate(body, [&] { return static_cast<char>('a' + dice() % 26); });
        pressroom::Server server(
            [&](const pressroom::Request& request) {
                return request.target == "/tiny" ? pressroom::Response{.body = "x"}
                                                 : pressroom::Response{.body = body};
            },
            {.threads = 2});
        const auto announcement = std::to_string(server.port()) + "\n" + server.authorityPEM();
        if (write(news, announcement.data(), announcement.size()) < 0) _exit(1);
        close(news);
        char ignored = 0;
        static_cast<void>(!read(life, &ignored, 1));
        _exit(0);
    }

    pid_t process_ = 0;
    int lifeline_ = -1;
    std::string port_;
    std::string authority_;
};

std::unique_ptr<ServerProcess> server;

asio::awaitable<void> fetchInTurn(HTTPClient& client, std::vector<std::string>& urls,
                                  std::size_t& failures) {
    while (!urls.empty()) {
        auto url = std::move(urls.back());
        urls.pop_back();
        const auto result = co_await client.fetch(std::move(url), Conditional::no, limit);
        if (result.has_error()) ++failures;
    }
}

/// Each host name is used once, so that every fetch opens a connection.
std::vector<std::string> freshAddresses(std::size_t count, const char* target) {
    static std::size_t used = 0;
    std::vector<std::string> urls;
    for (std::size_t i = 0; i < count; ++i) {
        urls.push_back("https://host-" + std::to_string(used++) + ".example" + target);
    }
    return urls;
}

std::size_t fetchAll(HTTPClient& client, std::vector<std::string> urls, std::size_t atOnce) {
    asio::io_context io;
    std::size_t failures = 0;
    for (std::size_t i = 0; i < atOnce; ++i) {
        asio::co_spawn(io, fetchInTurn(client, urls, failures), asio::detached);
    }
    io.run();
    return failures;
}

std::filesystem::path bundleFile(bool full) {
    const auto path = std::filesystem::temp_directory_path() /
                      ("brell-bench-" + std::to_string(getpid()) + (full ? "-full" : "-tiny"));
    std::ofstream out(path);
    if (full) out << std::ifstream(systemBundle).rdbuf();
    out << server->authority();
    return path;
}

void measure(benchmark::State& state, bool fullBundle, std::size_t sources, std::size_t atOnce,
             const char* target) {
    const auto bundle = bundleFile(fullBundle);
    CurlTransport transport({.connectTo = "127.0.0.1:" + server->port(), .caFile = bundle});
    HTTPClient client(transport);
    // The bundle is parsed once per transport, which is not measured here.
    std::size_t failures = fetchAll(client, freshAddresses(1, target), 1);
    for (auto _ : state) failures += fetchAll(client, freshAddresses(sources, target), atOnce);
    if (failures > 0) state.SkipWithError("fetches failed");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(sources));
    state.counters["CPU/source"] = benchmark::Counter(
        static_cast<double>(sources),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    std::filesystem::remove(bundle);
}

void newConnection(benchmark::State& state, bool fullBundle) {
    measure(state, fullBundle, 250, 12, "/tiny");
}
BENCHMARK_CAPTURE(newConnection, tinyBundle, false)
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(newConnection, systemBundle, true)
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);

/// Feeds of 50 KB: sources, and how many of them at once.
void coldPass(benchmark::State& state) {
    measure(state, true, static_cast<std::size_t>(state.range(0)),
            static_cast<std::size_t>(state.range(1)), "/feed");
}
BENCHMARK(coldPass)
    ->Args({250, 12})
    ->Args({250, 250})
    ->Args({1000, 12})
    ->Args({1000, 1000})
    ->MeasureProcessCPUTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int count, char** arguments) {
    server = std::make_unique<ServerProcess>();  // forks before there are threads
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    server.reset();
    return 0;
}
