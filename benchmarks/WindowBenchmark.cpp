// The window with a large library: how soon stories are on the screen, how long its thread is
// blocked while a pass brings 2,000 new stories into a scrolling list, its memory, and its
// processor time when idle.
#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

#include <QEventLoop>
#include <QPropertyAnimation>
#include <QQuickItem>
#include <fmt/format.h>

#include "PressRoom/Server/ScriptedHandler.h"
#include "PressRoom/Server/Server.h"
#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Pictures/PictureLoader.h"
#include "Tarnwick_Brell/Shell/AppEnvironment.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Shell/LaunchContext.h"
#include "Tarnwick_Brell/Window/DeskWindow.h"
#include "benchmarks/InventedOutlets.h"
#include "benchmarks/WindowProbe.h"

namespace {

using namespace app;
using namespace std::chrono_literals;
using probe::milliseconds;
using probe::Steady;

constexpr std::size_t kOutlets = 40;
constexpr std::size_t kStoriesPerOutlet = 50;
constexpr auto kRest = 3s;
constexpr auto kIdle = 20s;
constexpr auto kScrolling = 12s;
constexpr double kPixelsPerSecond = 4'000;
constexpr auto kPatience = 120s;

void line(const std::string& what, double value, const char* unit, const std::string& goal = {}) {
    fmt::print("{:<48}{:9.1f} {}{}\n", what, value, unit, goal.empty() ? "" : "   goal: " + goal);
    std::fflush(stdout);
}

void moment(const std::string& what, const probe::Moment& time, const std::string& more) {
    fmt::print("  {:<46}{:9.1f} ms   of a processor: {:.1f}{}\n", what, time.wall, time.processor,
               more);
}

void lines(const std::string& when, const probe::Application::Slowest& slowest) {
    fmt::print("{}\n", when);
    moment("longest turn of the event loop", slowest.turn, "   goal: 50");
    moment("longest event", slowest.event, " (" + slowest.name + ")");
    moment("longest frame", slowest.frame,
           fmt::format(" ({} frames, {} over 16 ms)", slowest.frames, slowest.longFrames));
}

/// A press room in a process of its own, so that only the window is measured.
kit::CurlTransport::Options startPressRoom(const std::filesystem::path& folder) {
    const auto authority = folder / "benchmark-authority.pem";
    int ready[2];
    if (pipe(ready) != 0) throw std::runtime_error("no pipe");
    if (fork() == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        pressroom::ScriptedHandler script;
        // Differs from every earlier run.
        const auto round = static_cast<std::size_t>(outlets::now().time_since_epoch().count());
        for (std::size_t i = 0; i < kOutlets; ++i) {
            script.on(outlets::host(i), "/feed",
                      {{.body = outlets::feed(i, round, kStoriesPerOutlet)},
                       {.body = outlets::feed(i, round + 1, kStoriesPerOutlet)}});
        }
        const pressroom::Server server(script.handler());
        server.writeAuthority(authority);
        const auto port = server.port();
        if (write(ready[1], &port, sizeof port) != sizeof port) _exit(1);
        for (;;) pause();
    }
    std::uint16_t port = 0;
    if (read(ready[0], &port, sizeof port) != sizeof port)
        throw std::runtime_error("no press room");
    return {.connectTo = "127.0.0.1:" + std::to_string(port), .caFile = authority};
}

class Bench {
public:
    Bench(probe::Application& application, NewsDesk& news, WindowModel& model, QQuickWindow& window)
        : application_(application), news_(news), model_(model), window_(window) {
        QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [this] { lookAtFrame(); });
        QObject::connect(&news_, &NewsDesk::loadFailed, [](const QString& text) {
            fmt::print("failed: {}\n", text.toStdString());
        });
    }

    void run() {
        start();
        weigh();
        pass("a pass, the list at its top");
        scroll();
        pages();
        for (const char* typed : {"iphone", "outlet 7", "bradenfol", "the"}) type(typed);
        idle();
    }

private:
    void start() {
        line("first frame", waitFor([this] { return frames_ > 0; }), "ms");
        line("first frame with stories", waitFor([this] { return showsStories_; }), "ms", "1000");
        const auto soon = application_.take();
        line("whole wire loaded", waitFor([this] { return news_.isLoaded(); }), "ms");
        line("whole wire in the list",
             waitFor([this] { return model_.storyList()->list()->isComplete(); }), "ms");
        fmt::print("    ({} stories in the list, {} in the wire)\n",
                   model_.storyList()->list()->count(), news_.stories().size());
        lines("until the first stories", soon);
        lines("from there to the whole wire", application_.take());
        restFor(kRest);
        lines("the rest of the start", application_.take());
    }

    void weigh() {
        line("memory now, shared parts divided",
             probe::megabytesIn("/proc/self/smaps_rollup", "Pss"), "MB", "450");
        line("memory at most so far", probe::megabytesIn("/proc/self/status", "VmHWM"), "MB",
             "450");
    }

    void pass(const std::string& when) {
        const auto before = news_.stories().size();
        application_.take();
        bool isOver = false;
        const auto ends = QObject::connect(&news_, &NewsDesk::passEnded, [&] { isOver = true; });
        const auto begin = Steady::now();
        news_.refreshAll();
        waitFor([&] { return isOver; });
        QObject::disconnect(ends);
        line(when + ", in all", milliseconds(Steady::now() - begin), "ms");
        // Counts and panels follow a moment later.
        restFor(kRest);
        fmt::print("    ({} new stories)\n", news_.stories().size() - before);
        lines(when, application_.take());
    }

    void scroll() {
        auto* list = storyList();
        QPropertyAnimation animation(list, "contentY");
        const double way = kPixelsPerSecond * std::chrono::duration<double>(kScrolling).count();
        animation.setDuration(std::chrono::milliseconds(kScrolling).count());
        animation.setStartValue(0.0);
        animation.setEndValue(way);
        application_.take();
        animation.start();
        restFor(kScrolling / 3);
        lines("scrolling alone", application_.take());
        pass("scrolling, with a pass");
        waitFor([&] { return animation.state() == QAbstractAnimation::Stopped; });
        list->setProperty("contentY", 0.0);
    }

    /// Goes to every place twice: its first frame must not wait, whatever the library holds.
    void pages() {
        application_.take();
        double slowest = 0;
        std::string slowestPlace;
        for (int round = 0; round < 2; ++round) {
            for (const auto& [place, title, symbol] : model_.sidebar()->destinations()) {
                const auto begin = Steady::now();
                const auto frame = frames_;
                model_.open(place.key());
                window_.update();
                waitFor([&] { return frames_ > frame; });
                const auto took = milliseconds(Steady::now() - begin);
                if (place.kind != Destination::Kind::source && round == 1)
                    line("  " + place.key().toStdString() + ", to its frame", took, "ms");
                if (took > slowest) {
                    slowest = took;
                    slowestPlace = place.key().toStdString();
                }
                restFor(200ms);
            }
        }
        line("slowest place (" + slowestPlace + ")", slowest, "ms", "300");
        lines("going to every place", application_.take());
        model_.open(QStringLiteral("wire:all"));
        restFor(kRest);
    }

    /// Types a letter every 120 ms, like a fast typist.
    void type(const std::string& word) {
        double slowest = 0, last = 0;
        auto* page = model_.storyList();
        application_.take();
        for (std::size_t length = 1; length <= word.size(); ++length) {
            bool isAnswered = false;
            const auto answers = QObject::connect(page, &StoryListController::listBegins,
                                                  [&] { isAnswered = true; });
            const auto begin = Steady::now();
            page->setSearchText(QString::fromStdString(word.substr(0, length)));
            waitFor([&] { return isAnswered; });
            const auto frame = frames_;
            window_.update();
            waitFor([&] { return frames_ > frame; });
            QObject::disconnect(answers);
            last = milliseconds(Steady::now() - begin);
            slowest = std::max(slowest, last);
            restFor(120ms);
        }
        line(fmt::format("search for “{}”, last key to the frame", word), last, "ms");
        line("  slowest key", slowest, "ms");
        moment("longest turn of the event loop", application_.take().turn, "   goal: 50");
        page->setSearchText({});
        restFor(500ms);
    }

    void idle() {
        restFor(kRest);
        const auto before = probe::processorMilliseconds();
        // The heartbeat belongs to the benchmark and uses more time than the window.
        application_.stopHeart();
        restFor(kIdle);
        const auto spent = probe::processorMilliseconds() - before;
        line("processor in 20 s of rest", spent, "ms", "100, which is 0.5 %");
    }

    QQuickItem* storyList() {
        for (auto* item : window_.findChildren<QQuickItem*>()) {
            if (item->property("model").value<QObject*>() == model_.storyList()->list())
                return item;
        }
        throw std::runtime_error("the window has no list of stories");
    }

    void lookAtFrame() {
        ++frames_;
        if (showsStories_ || model_.storyList()->list()->count() == 0) return;
        const auto* rows = storyList()->property("contentItem").value<QQuickItem*>();
        for (const auto* row : rows->childItems()) {
            showsStories_ |= row->isVisible() && !row->property("title").toString().isEmpty();
        }
    }

    /// Waits until the condition holds; returns the milliseconds since the process started.
    double waitFor(const std::function<bool()>& holds) {
        const auto end = Steady::now() + kPatience;
        while (!holds()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            if (Steady::now() > end) throw std::runtime_error("waited in vain");
        }
        return probe::sinceProcessStart();
    }

    void restFor(std::chrono::milliseconds time) {
        QEventLoop loop;
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
    }

    probe::Application& application_;
    NewsDesk& news_;
    WindowModel& model_;
    QQuickWindow& window_;
    int frames_ = 0;
    bool showsStories_ = false;
};

void prepare(const Paths& paths) {
    outlets::makeOnlySources(paths.library, kOutlets);
    // Keeps passes from starting automatically.
    LocalStore store(paths.library, Database::Access::readWrite);
    store.state().set(DeskState::kLastRefresh, currentInstant());
}

Steady::time_point runWindow(int& count, char** words, const std::filesystem::path& folder) {
    const auto network = startPressRoom(folder);
    probe::Application application(count, words);
    AppEnvironment environment({.paths = Paths::forUser(folder),
                                .network = network,
                                .clock = &currentInstant,
                                .what = "the window's benchmark"});
    UndoStack undo;
    WindowModel model(windowStores(environment, undo, &currentInstant));
    model.open(QStringLiteral("wire:all"));
    PictureLoader pictures({.folder = folder / "pictures", .network = network});
    DeskWindow window(model, pictures);
    Bench bench(application, environment.newsDesk(), model, window.window());
    window.show();
    QMetaObject::invokeMethod(qApp, [&] { environment.start(); }, Qt::QueuedConnection);
    bench.run();
    return Steady::now();
}

}  // namespace

int main(int argc, char** argv) {
    const std::string word = argc > 1 ? argv[1] : "";
    if (word.empty() || word.starts_with('-')) {
        fmt::print(
            stderr,
            "usage: bench_window FOLDER [--prepare]\n"
            "FOLDER holds a library as make_library makes it; it is changed. With --prepare its "
            "sources become those of the benchmark, which is needed before each run.\n");
        return 2;
    }
    try {
        if (argc > 2 && argv[2] == std::string("--prepare")) {
            prepare(Paths::forUser(std::filesystem::path(word)));
            return 0;
        }
        const auto end = runWindow(argc, argv, word);
        line("to shut down", milliseconds(Steady::now() - end), "ms", "1000");
        return 0;
    } catch (const std::exception& error) {
        fmt::print(stderr, "bench_window: {}\n", error.what());
        return 1;
    }
}
