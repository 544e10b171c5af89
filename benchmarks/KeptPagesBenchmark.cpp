// The pages of what the user keeps over a large library: 10,000 clips, 10,000 notes, 2,000
// projects, one of them with 1,000 members. How long a page takes until it is on the screen, and a
// search.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <QEventLoop>
#include <QGuiApplication>
#include <fmt/format.h>

#include "Tarnwick_Brell/Library/KeptStore.h"
#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Models/Pages/NotesPageModel.h"
#include "Tarnwick_Brell/Models/Pages/SearchPageModel.h"
#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Pictures/PictureLoader.h"
#include "Tarnwick_Brell/Shell/AppEnvironment.h"
#include "Tarnwick_Brell/Shell/LaunchContext.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Window/DeskWindow.h"

namespace {

using namespace app;
using namespace std::chrono_literals;
using Page = LibraryPlace::Page;
using Steady = std::chrono::steady_clock;

constexpr int kRecords = 10'000;
constexpr int kProjects = 2'000;
constexpr int kMembers = 1'000;
constexpr int kRounds = 5;
constexpr auto kPatience = 120s;

std::string fill(const std::filesystem::path& library) {
    LocalStore store(library, Database::Access::readWrite);
    const auto now = currentInstant();
    // Nothing is fetched while it is measured.
    store.state().set(DeskState::kLastRefresh, now);
    std::string project;
    for (int i = 0; i < kProjects; ++i) {
        KeptStore kept(store, now - std::chrono::minutes(i));
        const auto made = kept.put(kit::Project{.name = fmt::format("Piece {}", i)});
        if (i == 0) project = made.id;
    }
    for (int i = 0; i < kRecords; ++i) {
        KeptStore kept(store, now - std::chrono::minutes(i));
        kit::Note note{.title = fmt::format("Call number {}", i),
                       .text = fmt::format("Ask **harbour {}** why the gate opens at dawn.\n\n"
                                           "- the tables of {}\n- the log of the pilots\n",
                                           i % 97, i % 31)};
        kit::Clip clip{
            .quote = fmt::format("Gate {} opens at dawn, and {} boats wait outside.", i, i % 61),
            .link = fmt::format("https://harbour.example/{}", i),
            .title = "The harbour opens its gates",
            .sourceName = "The Harbour Post"};
        clip.accessedAt = now - std::chrono::minutes(i);
        if (i < kMembers / 2) note.projectIDs = clip.projectIDs = {project};
        kept.put(std::move(note));
        kept.put(std::move(clip));
    }
    return project;
}

/// The window, and how long it takes to show something.
class PagesBench {
public:
    explicit PagesBench(WindowModel& model, QQuickWindow& window) : model_(model) {
        QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [this] { ++frames_; });
    }

    /// Milliseconds from `begin` until `holds` and the next frame.
    double time(const std::function<void()>& begin, const std::function<bool()>& holds) {
        const auto start = Steady::now();
        begin();
        waitFor(holds);
        const auto drawn = frames_;
        waitFor([&] { return frames_ > drawn; });
        return std::chrono::duration<double, std::milli>(Steady::now() - start).count();
    }
    void waitFor(const std::function<bool()>& holds) {
        const auto end = Steady::now() + kPatience;
        while (!holds()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
            if (Steady::now() > end) throw std::runtime_error("waited in vain");
        }
    }
    /// The slowest and the middle one of some rounds.
    void report(const std::string& what, const std::function<double()>& once, double goal) {
        std::vector<double> times;
        for (int round = 0; round < kRounds; ++round) times.push_back(once());
        std::ranges::sort(times);
        fmt::print("{:<44}{:8.1f} ms, at most {:.1f} ms   goal: {:.0f}\n", what,
                   times[times.size() / 2], times.back(), goal);
        std::fflush(stdout);
    }
    void reportPage(const std::string& what, const LibraryPlace& place) {
        report(
            what,
            [&] {
                model_.open(QStringLiteral("page:archive"));
                waitFor([&] { return model_.page()->state() != PanelModel::Loading; });
                return time([&] { model_.open(place.destination()); },
                            [&] { return model_.page()->state() == PanelModel::Ready; });
            },
            100);
    }
    template <class T>
    T& page() {
        return dynamic_cast<T&>(*model_.page());
    }

private:
    WindowModel& model_;
    int frames_ = 0;
};

void measure(PagesBench& bench, WindowModel& model, const std::string& project) {
    bench.reportPage("Clips", {Page::clips, {}});
    bench.reportPage("Notes", {Page::notes, {}});
    bench.reportPage("Projects", {Page::projects, {}});
    bench.reportPage("a project of 1,000 members", {Page::project, project});
    model.open(LibraryPlace{Page::search, {}}.destination());
    for (const auto* words : {"harbour 41", "dawn", "pilots"}) {
        bench.report(
            fmt::format("search for \"{}\", until it is on the screen", words),
            [&] {
                auto& search = bench.page<SearchPageModel>();
                search.setWords({});
                bench.waitFor([&] { return search.rows()->rowCount() == 0; });
                return bench.time([&] { search.setWords(QString::fromLatin1(words)); },
                                  [&] { return search.rows()->rowCount() > 0; });
            },
            50);
    }
    model.open(LibraryPlace{Page::notes, {}}.destination());
    auto& notes = bench.page<NotesPageModel>();
    bench.waitFor([&] { return notes.editor()->isOpen(); });
    int typed = 0;
    bench.report(
        "a note that is typed, until it is kept",
        [&] {
            return bench.time(
                [&] {
                    auto& editor = *notes.editor();
                    editor.setText(editor.text() + QString::number(++typed));
                },
                [&] { return notes.editor()->isKept(); });
        },
        1000);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        fmt::print(stderr, "usage: bench_kept_pages FOLDER\nFOLDER is filled when it is empty.\n");
        return 2;
    }
    try {
        const QGuiApplication application(argc, argv);
        const auto paths = Paths::forUser(std::filesystem::path(argv[1]));
        paths.createFolders();
        const auto begin = Steady::now();
        const auto project = fill(paths.library);
        fmt::print("filled in {:.1f} s\n",
                   std::chrono::duration<double>(Steady::now() - begin).count());
        AppEnvironment environment(
            {.paths = paths, .clock = &currentInstant, .what = "the benchmark of pages"});
        UndoStack undo;
        WindowModel model(windowStores(environment, undo, &currentInstant));
        PictureLoader pictures({.folder = paths.pictures});
        DeskWindow window(model, pictures);
        PagesBench bench(model, window.window());
        window.show();
        environment.start();
        bench.waitFor([&] { return environment.newsDesk().isLoaded(); });
        measure(bench, model, project);
        return 0;
    } catch (const std::exception& error) {
        fmt::print(stderr, "bench_kept_pages: {}\n", error.what());
        return 1;
    }
}
