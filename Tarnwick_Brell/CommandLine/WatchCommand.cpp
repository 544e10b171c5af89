#include <exception>
#include <memory>
#include <map>
#include <string>
#include <vector>

#include <QCoreApplication>
#include <QProcess>
#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/StoryRow.h"
#include "Tarnwick_Brell/Shell/AppEnvironment.h"
#include "Tarnwick_Brell/Shell/ShutdownSignals.h"
#include "NewsroomKit/Trackers/Signing/SigningNews.h"

namespace cli {

namespace {

struct WatchOptions {
    QueryOptions query{};
    bool live = false;
};

/// Prints a desk's events as they occur.
class Watch {
public:
    Watch(Session& session, app::AppEnvironment& environment, const kit::StoryQuery& query)
        : session_(session),
          desk_(environment.newsDesk()),
          trackers_(environment.trackers()),
          notifier_(environment.notifier()),
          wanted_(query.compiled()) {}

    void connect() {
        connectDesk();
        connectTrackers();
        QObject::connect(&notifier_, &app::Notifier::linkActivated, &desk_, &Watch::openLink);
    }

    /// Why the event loop has ended, unless the user ended it.
    const std::exception_ptr& failure() const { return failure_; }

private:
    void connectDesk() {
        using app::NewsDesk;
        QObject::connect(&desk_, &NewsDesk::newsStored, &desk_,
                         [this](const auto& numbers) { printStories(numbers); });
        QObject::connect(&desk_, &NewsDesk::refreshChanged, &desk_, [this] { printProgress(); });
        QObject::connect(&desk_, &NewsDesk::passEnded, &desk_, [this](const auto& report) {
            noticeNetwork(report);
            noticeClock();
        });
        QObject::connect(&desk_, &NewsDesk::failed, &desk_,
                         [](const QString& sentence) { printNotice(sentence.toStdString()); });
        // Restoring needs exclusive access to the library, so the desk must end.
        for (const auto signal : {&NewsDesk::libraryDamaged, &NewsDesk::loadFailed}) {
            QObject::connect(&desk_, signal, &desk_,
                             [this](const QString& sentence) { giveUp(sentence.toStdString()); });
        }
    }

    void connectTrackers() {
        using app::Alerts;
        using app::TrackerStore;
        QObject::connect(&trackers_, &TrackerStore::refreshChanged, &desk_,
                         [this] { reportTrackers(); });
        QObject::connect(
            &trackers_, &TrackerStore::onServiceProblem, &desk_, [this](const auto& it) {
                printEvent(
                    Alerts::ofProblem(it),
                    {{"event", "serviceProblem"}, {"id", it.id()}, {"report", kit::encode(it)}});
            });
        QObject::connect(&trackers_, &TrackerStore::onServiceRestored, &desk_,
                         [this](const auto& it) {
                             printEvent(Alerts::ofRecovery(it, currentInstant()),
                                        {{"event", "serviceRestored"}, {"service", it}});
                         });
        QObject::connect(&trackers_, &TrackerStore::onNewRelease, &desk_, [this](const auto& it) {
            printEvent(Alerts::ofRelease(it), {{"event", "newRelease"},
                                               {"platform", it.platform.platform},
                                               {"channel", rawValue(it.channel)},
                                               {"release", kit::encode(it.release)}});
        });
        QObject::connect(&trackers_, &TrackerStore::onSigningChanges, &desk_,
                         [this](const auto& changes) { printSigning(changes); });
        QObject::connect(&trackers_, &TrackerStore::onOfferChanges, &desk_,
                         [this](const auto& changes) { printOffers(changes); });
        QObject::connect(&trackers_, &TrackerStore::onSignals, &desk_,
                         [this](const auto& logged) { printSignals(logged); });
    }

    /// Those that have no event of their own.
    void printSignals(const std::vector<kit::Signal>& logged) {
        for (const auto& signal : logged) {
            switch (signal.kind) {
                case kit::SignalKind::release:
                case kit::SignalKind::service:
                case kit::SignalKind::signing:
                case kit::SignalKind::update: continue;
                default: break;
            }
            printEvent(signal.title + ".", {{"event", "signal"}, {"signal", kit::encode(signal)}});
        }
    }

    void printOffers(const std::vector<app::OfferChange>& changes) {
        for (const auto& it : changes) {
            printEvent(kit::sentence(it), {{"event", "offerChange"}, {"change", kit::encode(it)}});
        }
    }

    /// Text names a build once; JSON has a record for each device.
    void printSigning(const std::vector<app::SigningChange>& changes) {
        if (session_.options().json) {
            for (const auto& it : changes) {
                printEvent("", {{"event", "signingChange"}, {"change", kit::encode(it)}});
            }
            return;
        }
        for (const auto& news : kit::signingNews(changes)) printEvent(news.sentence(), {});
    }

    /// Reports when a tracker begins to fail and when it works again. The files of a tracker share
    /// a server, so that the failure of one stands for all.
    void reportTrackers() {
        if (wasOffline_) return;
        std::map<app::Tracker, app::TrackerStore::FileState> failing;
        for (auto& file : trackers_.fileStates()) {
            if (file.error) failing.emplace(file.tracker, std::move(file));
        }
        for (const auto& [tracker, file] : failing) {
            if (failing_.emplace(tracker, file.title).second) printNotice(*file.error);
        }
        std::erase_if(failing_, [&](const auto& known) {
            const bool works = !failing.contains(known.first);
            if (works) printNotice(known.second + " can be read again.");
            return works;
        });
    }

    static void openLink(const QString& link) {
        if (QProcess::startDetached("xdg-open", {link})) return;
        printNotice("There is no xdg-open to open " +
                    printable(kit::maskedLogins(link.toStdString())) + " with.");
    }

    static void printNotice(const std::string& sentence) {
        showProgress("");
        fmt::print(stderr, "brell: {}\n", printable(sentence));
    }

    void printStories(const std::vector<std::int64_t>& numbers) {
        print([&] {
            // Oldest first, so that the newest is on the last line.
            for (auto number = numbers.rbegin(); number != numbers.rend(); ++number) {
                const auto place = desk_.stories().placeOf(*number);
                if (place) printStory(desk_.stories()[*place].unpacked());
            }
        });
    }

    void printEvent(const app::Notification& event, const boost::json::object& record) {
        printEvent(event.title + ". " + event.body, record);
    }

    void printEvent(const std::string& text, const boost::json::object& record) {
        print([&] {
            Output& out = session_.out();
            out.line(session_.options().json ? boost::json::serialize(record)
                                             : out.bold("» " + printable(text)));
        });
    }

    template <class Lines>
    void print(Lines lines) {
        showProgress("");
        try {
            lines();
            session_.out().flush();
        } catch (const OutputError&) {
            failure_ = std::current_exception();
            QCoreApplication::quit();
        }
    }

    void printStory(const app::StoredStory& stored) {
        if (!wanted_.matches(stored.story)) return;
        Output& out = session_.out();
        out.line(session_.options().json ? boost::json::serialize(storyRecord(stored))
                                         : wireLine(out, stored, currentInstant()));
    }

    void giveUp(const std::string& sentence) {
        if (!failure_) failure_ = std::make_exception_ptr(WorkFailed(sentence));
        QCoreApplication::quit();
    }

    void printProgress() {
        const auto progress = desk_.progress();
        showProgress(desk_.isRefreshing()
                         ? fmt::format("Refreshing, {} of {}", progress.done, progress.total)
                         : "");
    }

    void noticeNetwork(const app::PassReport& report) {
        if (report.cancelled || report.offline == wasOffline_) return;
        wasOffline_ = report.offline;
        printNotice(report.offline ? "No server can be reached: this computer seems to be offline."
                                   : "The network is back.");
    }

    void noticeClock() {
        if (desk_.clockSeemsWrong() == clockSeemedWrong_) return;
        clockSeemedWrong_ = desk_.clockSeemsWrong();
        printNotice(clockSeemedWrong_ ? std::string(app::kClockSeemsWrong)
                                      : "This computer's clock agrees with the servers again.");
    }

    Session& session_;
    app::NewsDesk& desk_;
    app::TrackerStore& trackers_;
    app::Notifier& notifier_;
    kit::CompiledStoryQuery wanted_;
    bool wasOffline_ = false;
    bool clockSeemedWrong_ = false;
    std::map<app::Tracker, std::string> failing_;  ///< with the title of the file that failed
    std::exception_ptr failure_;
};

int runWatch(Session& session, const WatchOptions& options) {
    auto network = session.network();
    const auto query = options.query.query();
    if (!options.query.sources.empty()) {
        requireKnownSources(session.storeForReading(), options.query.sources);
    }
    int argumentCount = 0;
    QCoreApplication application(argumentCount, nullptr);
    const app::ShutdownSignals stop([] { QCoreApplication::quit(); });
    app::AppEnvironment environment({.paths = session.paths(),
                                     .network = std::move(network),
                                     .clock = &currentInstant,
                                     .what = "brell watch"});
    auto& newsDesk = environment.newsDesk();
    Watch watch(session, environment, query);
    watch.connect();
    if (options.live) {
        QObject::connect(&newsDesk, &app::NewsDesk::loaded, &newsDesk, [&] {
            newsDesk.goLive(currentInstant() + app::RefreshCadence::kLongestLive);
        });
    }
    environment.start();
    QCoreApplication::exec();
    showProgress("");
    if (watch.failure()) std::rethrow_exception(watch.failure());
    return kDone;
}

}  // namespace

void addWatchCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<WatchOptions>();
    auto command = app.subcommand(
        "watch", "Keep running, refresh on the timer, and print new stories and other events");
    options->query.addTo(command);
    command.flag("--live", options->live, "Refresh every minute for the first two hours");
    command.footer(
        "Stories of a source's first fetch are stored without being printed; brell wire lists "
        "them. Problems of Apple's services, their ends and new releases are printed too, and "
        "shown as notifications where the desktop supports them; so are changes of firmware "
        "signing "
        "and of the update catalogue, as notifications only for panels with alerts. With --json "
        "each story is one line "
        "and each other event one with the key \"event\". Ctrl-C ends it.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runWatch(session, *options); };
    });
}

}  // namespace cli
