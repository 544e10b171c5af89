// A desk with a large library: how soon the wire is loaded, its memory, and how long the main
// thread is blocked when a pass brings 2,000 new stories, when all stories are marked as read, and
// during a search.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include <QCoreApplication>
#include <QTimer>
#include <fmt/format.h>

#include "PressRoom/Server/ScriptedHandler.h"
#include "PressRoom/Server/Server.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "benchmarks/InventedOutlets.h"

namespace {

using namespace std::chrono_literals;
using Steady = std::chrono::steady_clock;

constexpr std::size_t kSources = 50;
constexpr std::size_t kStoriesPerSource = 40;

double milliseconds(Steady::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

long residentMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) return std::stol(line.substr(6)) / 1024;
    }
    return 0;
}

/// Measures the longest time for which the event loop was blocked.
class Watchdog {
public:
    Watchdog() {
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            const auto now = Steady::now();
            longest_ = std::max(longest_, now - last_);
            last_ = now;
        });
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.start(1);
    }
    double take() {
        const auto longest = std::exchange(longest_, Steady::duration::zero());
        last_ = Steady::now();
        return milliseconds(longest);
    }

private:
    QTimer timer_;
    Steady::time_point last_ = Steady::now();
    Steady::duration longest_{};
};

void waitFor(const std::function<bool()>& holds) {
    while (!holds()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

int run(const std::filesystem::path& folder) {
    const auto paths = app::Paths::forUser(folder);
    outlets::makeOnlySources(paths.library, kSources);
    pressroom::ScriptedHandler script;
    for (std::size_t i = 0; i < kSources; ++i) {
        script.on(outlets::host(i), "/feed",
                  {{.body = outlets::feed(i, 1, kStoriesPerSource)},
                   {.body = outlets::feed(i, 2, kStoriesPerSource)}});
    }
    pressroom::Server server(script.handler());
    const auto authority = folder / "benchmark-authority.pem";
    server.writeAuthority(authority);

    int count = 0;
    QCoreApplication application(count, nullptr);
    app::Defaults defaults(paths.settings);
    const auto before = residentMegabytes();
    const auto start = Steady::now();
    app::NewsDesk newsDesk(
        paths.library,
        {.connectTo = "127.0.0.1:" + std::to_string(server.port()), .caFile = authority}, defaults,
        &outlets::now);
    QObject::connect(&newsDesk, &app::NewsDesk::failed,
                     [](const QString& text) { fmt::print("failed: {}\n", text.toStdString()); });
    Watchdog watchdog;
    newsDesk.start();
    waitFor([&] { return newsDesk.stories().size() > 0; });
    fmt::print("first stories after          {:8.1f} ms\n", milliseconds(Steady::now() - start));
    waitFor([&] { return newsDesk.isLoaded(); });
    fmt::print("whole wire after             {:8.1f} ms  ({} stories)\n",
               milliseconds(Steady::now() - start), newsDesk.stories().size());
    fmt::print("  main thread kept           {:8.1f} ms\n", watchdog.take());
    fmt::print("memory                       {:8} MB  ({} before)\n", residentMegabytes(), before);

    for (int round = 1; round <= 2; ++round) {
        const auto stories = newsDesk.stories().size();
        Steady::time_point began{}, ended{};
        bool done = false;
        const auto arrivals = QObject::connect(&newsDesk, &app::NewsDesk::wireChanged,
                                               [&] { ended = Steady::now(); });
        Steady::time_point fetched{};
        const auto progress = QObject::connect(&newsDesk, &app::NewsDesk::refreshChanged, [&] {
            const auto now = newsDesk.progress();
            if (now.done == now.total && fetched == Steady::time_point()) fetched = Steady::now();
        });
        const auto ends = QObject::connect(&newsDesk, &app::NewsDesk::passEnded,
                                           [&](const auto&) { done = true; });
        watchdog.take();
        began = Steady::now();
        newsDesk.refreshAll();
        waitFor([&] { return done; });
        fmt::print("pass {} with {} new stories  {:8.1f} ms in all\n", round,
                   newsDesk.stories().size() - stories, milliseconds(Steady::now() - began));
        if (ended > fetched) {
            fmt::print("  last fetch to the wire     {:8.1f} ms\n", milliseconds(ended - fetched));
        }
        fmt::print("  main thread kept           {:8.1f} ms\n", watchdog.take());
        QObject::disconnect(arrivals);
        QObject::disconnect(progress);
        QObject::disconnect(ends);
    }
    std::vector<std::int64_t> all;
    for (std::size_t i = 0; i < newsDesk.stories().size(); ++i) {
        all.push_back(newsDesk.stories()[i].number());
    }
    watchdog.take();
    const auto marking = Steady::now();
    const auto marked = newsDesk.markAllRead(all);
    fmt::print("{} stories marked read   {:8.1f} ms on the main thread\n", marked,
               milliseconds(Steady::now() - marking));
    for (const char* typed : {"outlet 7", "ap", "battery launch", "zzzz"}) {
        bool found = false;
        std::size_t hits = 0;
        const auto begin = Steady::now();
        newsDesk.search(typed, 50, [&](const auto& numbers) {
            hits = numbers.size();
            found = true;
        });
        waitFor([&] { return found; });
        fmt::print("search {:<22}{:8.1f} ms  ({} shown){}\n", fmt::format("\"{}\"", typed),
                   milliseconds(Steady::now() - begin), hits,
                   typed == std::string("outlet 7") ? ", after the marks were written" : "");
    }
    fmt::print("memory at the end            {:8} MB\n", residentMegabytes());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        fmt::print(stderr,
                   "usage: bench_desk FOLDER\n"
                   "FOLDER holds a library as make_library makes it; it is changed.\n");
        return 2;
    }
    try {
        return run(argv[1]);
    } catch (const std::exception& error) {
        fmt::print(stderr, "bench_desk: {}\n", error.what());
        return 1;
    }
}
