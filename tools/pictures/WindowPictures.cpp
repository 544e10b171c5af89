// Draws every view of the window, in light and dark and in several sizes, into PNG files.
#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include <QDir>
#include <QFile>
#include <QFont>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <fmt/format.h>

#include "Tarnwick_Brell/Arguments/Arguments.h"
#include "Tarnwick_Brell/Models/Pages/ArchivePageModel.h"
#include "Tarnwick_Brell/Models/Pages/LedgerPageModel.h"
#include "Tarnwick_Brell/Models/Pages/RacesPageModel.h"
#include "Tarnwick_Brell/Models/Pages/MarketsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/SourcesPageModel.h"
#include "Tarnwick_Brell/Models/Sheets/AddSourceSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/BeatSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/ImportOutlinesSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/SettingsSheetModel.h"
#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Pictures/PictureID.h"
#include "Tarnwick_Brell/Pictures/PictureLoader.h"
#include "Tarnwick_Brell/Shell/AppEnvironment.h"
#include "Tarnwick_Brell/Shell/DeskOptions.h"
#include "Tarnwick_Brell/Shell/LaunchContext.h"
#include "Tarnwick_Brell/Window/DeskWindow.h"
#include "Tarnwick_Brell/Window/Translations.h"
#include "tools/pictures/PastMonths.h"
#include "tools/pictures/PictureView.h"
#include "tools/pictures/LibraryViews.h"
#include "tools/pictures/SubjectViews.h"

namespace {

using namespace app;
using namespace pictures;
using namespace std::chrono_literals;

constexpr std::array kSizes{QSize(960, 600), QSize(1360, 860), QSize(1920, 1080)};

/// Selects a story that credits another one, because it has a trace.
void chooseCredited(WindowModel& model, NewsDesk& news) {
    for (std::size_t place = 0; place < news.stories().size(); ++place) {
        const auto story = news.stories()[place].unpacked().story;
        const bool links = std::any_of(story.credits.begin(), story.credits.end(),
                                       [](const auto& credit) { return credit.url.has_value(); });
        if (!links) continue;
        model.openStory(QString::fromStdString(story.id));
        return;
    }
}

void showSettings(WindowModel& model, int section) {
    model.open(QStringLiteral("wire:all"));
    model.actions()->trigger(DeskAction::ShowSettings);
    if (auto* sheet = qobject_cast<SettingsSheetModel*>(model.sheet())) sheet->setSection(section);
}

/// A file with a list of feeds as another reader exports it.
QString listOfFeeds() {
    static QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("harbour.opml"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("can't write the list");
    file.write("<opml version='2.0'><head><title>Harbour reading</title></head><body>");
    for (int i = 1; i <= 40; ++i) {
        file.write(fmt::format("<outline text='Quay notes {0}' "
                               "xmlUrl='https://quay{0}.example/feed'/>",
                               i)
                       .c_str());
    }
    file.write("<outline text='Old' xmlUrl='http://old.example/rss'/></body></opml>");
    return path;
}

void chooseStoryWithPicture(WindowModel& model, NewsDesk& news) {
    for (std::size_t place = 0; place < news.stories().size(); ++place) {
        const auto& story = news.stories()[place];
        if (pictureID(story.imageURL()).isEmpty()) continue;
        model.openStory(QString::fromStdString(std::string(story.id())));
        return;
    }
}

std::vector<View> viewsOf(NewsDesk& news, LibraryStore& kept) {
    std::vector<View> views{
        {"today", [](WindowModel& model) { model.open(QStringLiteral("")); }},
        {"wire",
         [&news](WindowModel& model) {
             model.open(QStringLiteral("wire:all"));
             chooseStory(model, news);
         }},
        {"trace",
         [&news](WindowModel& model) {
             model.open(QStringLiteral("wire:all"));
             chooseCredited(model, news);
             model.actions()->trigger(DeskAction::TraceStory);
             const auto* trace = model.selectedStory()->reader()->trace();
             waitUntil("the trace", [&] { return trace->state() != TraceModel::Running; });
         }},
        {"wire-pictures",
         [&news](WindowModel& model) {
             model.actions()->trigger(DeskAction::TogglePictures);
             model.open(QStringLiteral("wire:all"));
             chooseStoryWithPicture(model, news);
             // The picture follows the size of the window after a pause.
             runFor(500ms);
         }},
        {"today-pictures",
         [](WindowModel& model) {
             model.actions()->trigger(DeskAction::TogglePictures);
             model.open(QStringLiteral(""));
         }},
        {"charts-pictures",
         [](WindowModel& model) {
             model.actions()->trigger(DeskAction::TogglePictures);
             model.open(QStringLiteral("tracker:charts"));
         }},
        {"wire-list", [](WindowModel& model) { model.open(QStringLiteral("wire:unread")); }},
        {"clusters",
         [](WindowModel& model) {
             model.open(QStringLiteral("wire:unread"));
             model.setClustered(true);
             auto& clusters = *model.clusters();
             waitUntil("the rows of clusters", [&] { return clusters.count() > 3; });
             for (int row = 0; row < clusters.count(); ++row) {
                 if (!clusters.index(row).data(ClusterListModel::CanOpen).toBool()) continue;
                 clusters.choose(row);
                 clusters.setOpen(row, true);
                 break;
             }
         }},
        {"close-to-tray",
         [](WindowModel& model) { model.showSheet(QStringLiteral("close-to-tray")); }},
        {"search", [](WindowModel& model) { model.searchFor(QStringLiteral("iphone")); }},
        {"empty", [](WindowModel& model) { model.open(QStringLiteral("wire:saved")); }},
        {"failing", [](WindowModel& model) { model.open(QStringLiteral("source:webkit")); }},
        {"sources", [](WindowModel& model) { model.open(QStringLiteral("page:sources")); }},
        {"sources-open",
         [](WindowModel& model) {
             model.open(QStringLiteral("page:sources"));
             dynamic_cast<SourcesPageModel&>(*model.page()).open(0);
         }},
        {"source-add",
         [](WindowModel& model) {
             model.open(QStringLiteral("page:sources"));
             model.showSheet(QStringLiteral(
                 "add-source:https://bsky.app/profile/did:plc:n4x8tb3csampleworld3writer"));
             auto& sheet = dynamic_cast<AddSourceSheetModel&>(*model.sheet());
             waitUntil("the feed", [&] { return !sheet.isChecking(); });
         }},
        {"sources-import",
         [](WindowModel& model) {
             model.open(QStringLiteral("page:sources"));
             model.showSheet(QStringLiteral("import-outlines:") + listOfFeeds());
             auto& sheet = dynamic_cast<ImportOutlinesSheetModel&>(*model.sheet());
             waitUntil("the list",
                       [&] { return sheet.state() == ImportOutlinesSheetModel::Looking; });
         }},
        {"sources-import-file",
         [](WindowModel& model) { model.showSheet(QStringLiteral("import-outlines")); }},
        {"sources-export",
         [](WindowModel& model) { model.showSheet(QStringLiteral("export-outlines")); }},
        {"status", [](WindowModel& model) { model.open(QStringLiteral("tracker:status")); }},
        {"software", [](WindowModel& model) { model.open(QStringLiteral("tracker:software")); }},
        {"markets", [](WindowModel& model) { model.open(QStringLiteral("tracker:markets")); }},
        {"markets-compared",
         [](WindowModel& model) {
             model.open(QStringLiteral("tracker:markets"));
             auto& page = dynamic_cast<MarketsPageModel&>(*model.page());
             page.compareNothing();
             for (const int row : {1, 3}) page.compareRow(row);
             waitUntil("the compared quotes", [&] {
                 const auto& lines = page.chart()->lines()->rows();
                 return std::ranges::none_of(lines, &QString::isEmpty, &ChartLine::change);
             });
         }},
        {"events", [](WindowModel& model) { model.open(QStringLiteral("tracker:events")); }},
        {"signing", [](WindowModel& model) { model.open(QStringLiteral("tracker:signing")); }},
        {"signing-devices",
         [](WindowModel& model) {
             model.open(QStringLiteral("tracker:signing"));
             model.showSheet(QStringLiteral("signing-devices"));
         }},
        {"updates", [](WindowModel& model) { model.open(QStringLiteral("tracker:updates")); }},
        {"charts", [](WindowModel& model) { model.open(QStringLiteral("tracker:charts")); }},
        {"newsroom-edit",
         [](WindowModel& model) {
             model.open(QStringLiteral(""));
             model.actions()->trigger(DeskAction::EditNewsroom);
         }},
        {"newsroom-drag",
         [](WindowModel& model) {
             model.open(QStringLiteral(""));
             model.actions()->trigger(DeskAction::AddPanel);
             model.editor()->beginDrag(1, NewsroomEditor::NoEdge);
             model.editor()->drag(-4, 2);
         }},
        {"panel-options",
         [](WindowModel& model) {
             model.open(QStringLiteral(""));
             model.editor()->openOptions(4);
         }},
        {"new-newsroom",
         [](WindowModel& model) {
             model.open(QStringLiteral(""));
             model.actions()->trigger(DeskAction::NewNewsroom);
         }},
        {"archive",
         [](WindowModel& model) {
             model.open(QStringLiteral("page:archive"));
             const auto* page = qobject_cast<ArchivePageModel*>(model.page());
             waitUntil("the archive", [&] { return !page->isAsking(); });
         }},
        {"races",
         [](WindowModel& model) {
             model.open(QStringLiteral("page:races"));
             auto* page = qobject_cast<RacesPageModel*>(model.page());
             waitUntil("the races", [&] { return page->state() == PanelModel::Ready; });
             if (!page->pairTitle().isEmpty()) return;
             page->pick(0);
             page->pick(1);
         }},
        {"ledger",
         [](WindowModel& model) {
             model.open(QStringLiteral("page:ledger"));
             const auto* page = qobject_cast<LedgerPageModel*>(model.page());
             waitUntil("the ledger", [&] { return page->state() == PanelModel::Ready; });
         }},
        {"find",
         [](WindowModel& model) {
             model.open(QStringLiteral("wire:all"));
             model.actions()->trigger(DeskAction::FindInPage);
             model.find()->setText(QStringLiteral("phone"));
         }},
        {"find-table",
         [](WindowModel& model) {
             model.open(QStringLiteral("tracker:software"));
             runFor(100ms);
             model.actions()->trigger(DeskAction::FindInPage);
             model.find()->setText(QStringLiteral("beta"));
         }},
        {"find-panels",
         [](WindowModel& model) {
             model.open(QStringLiteral(""));
             runFor(100ms);
             model.actions()->trigger(DeskAction::FindInPage);
             model.find()->setText(QStringLiteral("phone"));
         }},
        {"board",
         [](WindowModel& model) {
             model.open(QStringLiteral(""));
             model.actions()->trigger(DeskAction::ShowBoard);
         }},
        {"palette",
         [&news](WindowModel& model) {
             model.open(QStringLiteral("wire:all"));
             chooseStory(model, news);
             model.actions()->trigger(DeskAction::ShowPalette);
             model.palette()->setText(QStringLiteral("sto"));
         }},
        {"beat",
         [&news](WindowModel& model) {
             model.open(QStringLiteral("wire:all"));
             chooseStory(model, news);
             model.actions()->trigger(DeskAction::FollowStory);
             if (auto* sheet = qobject_cast<BeatSheetModel*>(model.sheet())) {
                 sheet->addWords(QStringLiteral("iPhone, beta, chip"));
                 sheet->addExcludedWords(QStringLiteral("case"));
                 sheet->setTyped(QStringLiteral("update"));
             }
             runFor(600ms);
         }},
        {"beat-new", [](WindowModel& model) { model.actions()->trigger(DeskAction::NewBeat); }},
        {"settings", [](WindowModel& model) { showSettings(model, 0); }},
        {"settings-appearance", [](WindowModel& model) { showSettings(model, 1); }},
        {"settings-alerts", [](WindowModel& model) { showSettings(model, 3); }},
        {"settings-trackers", [](WindowModel& model) { showSettings(model, 4); }},
        {"settings-library", [](WindowModel& model) { showSettings(model, 5); }},
        {"settings-privacy", [](WindowModel& model) { showSettings(model, 6); }},
        {"settings-about", [](WindowModel& model) { showSettings(model, 7); }},
        {"keys", [](WindowModel& model) { model.actions()->trigger(DeskAction::ShowKeys); }},
    };
    std::ranges::move(subjectViews(news), std::back_inserter(views));
    std::ranges::move(libraryViews(news, kept), std::back_inserter(views));
    return views;
}

void draw(WindowModel& model, DeskWindow& window, NewsDesk& news, LibraryStore& kept,
          const QString& folder, const std::string& only) {
    for (const auto look : {Appearance::Light, Appearance::Dark}) {
        model.appearance()->setChoice(look);
        for (const auto& view : viewsOf(news, kept)) {
            if (!only.empty() && only != view.name) continue;
            for (const auto size : kSizes) {
                window.window().resize(size);
                view.open(model);
                runFor(350ms);
                const auto file = fmt::format("{}-{}-{}x{}.png", view.name,
                                              look == Appearance::Dark ? "dark" : "light",
                                              size.width(), size.height());
                if (!window.window().grabWindow().save(folder + u'/' +
                                                       QString::fromStdString(file)))
                    throw std::runtime_error("can't write " + file);
                emit model.viewClosed();
                if (model.appearance()->showsPictures())
                    model.actions()->trigger(DeskAction::TogglePictures);
                model.closeSheet();
                model.board()->close();
                model.find()->close();
                if (model.clusters()->isShown()) model.setClustered(false);
                model.editor()->end();
            }
        }
    }
}

struct Pictures {
    std::string folder;
    std::string only;        ///< one view; empty for all
    std::int64_t text = 13;  ///< the height of the desktop's font, in pixels
};

int run(int& count, char** words, const DeskOptions& options, const Pictures& pictures) {
    const auto& [folder, only, text] = pictures;
    LaunchContext launch(options, currentInstant());
    auto network =
        launch.network([](const std::string& sentence) { fmt::print(stderr, "{}\n", sentence); });
    QGuiApplication application(count, words);
    // A fixed font and size, so that pictures can be compared.
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(static_cast<int>(text));
    QGuiApplication::setFont(font);
    QDir().mkpath(QString::fromStdString(folder));
    installTranslations();
    {
        LocalStore store(launch.paths().library, Database::Access::readWrite);
        addPastMonths(store, currentInstant());
    }
    PictureLoader loader({.folder = launch.paths().pictures, .network = network});
    AppEnvironment environment({.paths = launch.paths(),
                                .network = std::move(network),
                                .clock = &currentInstant,
                                .what = "the window's pictures"});
    auto& news = environment.newsDesk();
    UndoStack undo;
    WindowModel model(windowStores(environment, undo, &currentInstant));
    model.open(QString());
    DeskWindow window(model, loader);
    window.show();
    environment.start();
    waitUntil("the library", [&] { return news.isLoaded(); });
    news.refreshAll();
    waitUntil("the first pass", [&] { return news.lastRefresh() && !news.isRefreshing(); });
    waitUntil("the trackers", [&] {
        auto& trackers = environment.trackers();
        return trackers.quote().value && trackers.board().value && trackers.releases().value &&
               trackers.events().value && trackers.developerStatus().value;
    });
    waitUntil("firmware, updates and charts", [&] {
        auto& trackers = environment.trackers();
        const auto devices = trackers.devices();
        return trackers.updates().value && trackers.chart(TrackerStore::Chart::topPaid).value &&
               (devices.empty() || trackers.signing(devices.back()).value);
    });
    waitUntil("clusters", [&] { return news.clusters() && !news.clusters()->empty(); });
    // Some of it read and saved, as on a desk in use.
    std::vector<std::string> read, saved;
    for (std::size_t place = 3; place < std::min<std::size_t>(news.stories().size(), 60);
         place += 3)
        read.emplace_back(news.stories()[place].id());
    for (const std::size_t place : {4u, 9u})
        if (place < news.stories().size()) saved.emplace_back(news.stories()[place].id());
    news.setRead(read, true);
    if (only != "empty") news.setSaved(saved, true);
    runFor(1500ms);
    draw(model, window, news, environment.kept(), QString::fromStdString(folder), only);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    arguments::Parser parser("window_pictures", "Draws every view of the window into PNG files.");
    DeskOptions options;
    Pictures pictures;
    auto program = parser.root();
    addDeskOptions(program, options);
    program.option("FOLDER", pictures.folder, "Where they go").required();
    program.option("--only", pictures.only, "One view");
    program.number("--text", pictures.text, {6, 60},
                   "The height of the desktop's font, in pixels; 29 is twice the usual size");
    try {
        if (const auto text = parser.parse(argc, argv)) {
            fmt::print("{}", *text);
            return 0;
        }
        return run(argc, argv, options, pictures);
    } catch (const arguments::UsageError& error) {
        fmt::print(stderr, "window_pictures: {}\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        fmt::print(stderr, "window_pictures: {}\n", error.what());
        return 1;
    }
}
