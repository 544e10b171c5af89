#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/StatusContent.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/StatusText.h"
#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"

namespace cli {

namespace {

using kit::AppleServiceStatus;
using kit::StatusFeed;
using Services = AppleServiceStatus::Services;

struct StatusOptions {
    bool developer = false;
    bool recent = false;
    bool stored = false;
    bool log = false;
    std::string logText;

    StatusFeed audience() const { return developer ? StatusFeed::developer : StatusFeed::consumer; }
};

boost::json::array reportList(const std::vector<AppleServiceStatus::Report>& reports) {
    boost::json::array list;
    for (const auto& report : reports) {
        auto object = kit::encode(report).get_object();
        object["id"] = report.id();
        list.push_back(std::move(object));
    }
    return list;
}

kit::StatusContent contentOf(StatusFeed audience, const kit::CachedValue<Services>& file,
                             kit::Instant now) {
    return audience == StatusFeed::consumer ? kit::statusContent(file, {}, now)
                                            : kit::statusContent({}, file, now);
}

int showStatus(Session& session, const StatusOptions& options) {
    const auto cutOff = session.now() - kit::kRecentIncidents;
    const auto audience = options.audience();
    const auto reading = fetchOrLoad(session, options.stored,
                                     [&](const auto& files) { return files.status(audience); });
    return showTracker<Services>(
        session, options.stored, reading,
        {.json =
             [&](const Services& services) {
                 boost::json::object object{
                     {"services", kit::encode(services)},
                     {"ongoing", reportList(AppleServiceStatus::ongoingReports(services))}};
                 if (options.recent) {
                     object["recent"] =
                         reportList(AppleServiceStatus::recentReports(cutOff, services));
                 }
                 return object;
             },
         .text =
             [&](const Services&) {
                 const auto content = contentOf(audience, reading, session.now());
                 printStatus(session.out(), audience, content);
                 if (options.recent) printRecentIncidents(session.out(), content);
             }});
}

int showLog(Session& session, const StatusOptions& options) {
    // More than Apple has had in years.
    constexpr std::size_t most = 10'000;
    auto incidents = session.storeForReading().incidents().find(options.logText, most);
    if (options.developer) {
        std::erase_if(incidents, [](const app::LoggedIncident& incident) {
            return incident.audience != StatusFeed::developer;
        });
    }
    if (session.options().json) {
        session.out().line(boost::json::serialize(kit::encode(incidents)));
    } else {
        printIncidentLog(session.out(), incidents);
    }
    return kDone;
}

int runStatus(Session& session, const StatusOptions& options) {
    return options.log ? showLog(session, options) : showStatus(session, options);
}

}  // namespace

void addStatusCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<StatusOptions>();
    auto command = app.subcommand("status", "Whether Apple's services are up");
    command.flag("--developer", options->developer,
                 "The services for developers instead of those for everybody");
    auto recent = command.flag("--recent", options->recent,
                               "Also the incidents of the last 14 days that are over");
    auto log = command
                   .option("--log", options->logText,
                           "Instead, every incident that this desk has ever seen, the newest "
                           "first; with TEXT, those whose service or message contains it")
                   .shownAs("[TEXT]")
                   .mayLackValue()
                   .excludes(recent);
    addStoredFlag(command, options->stored);
    command.footer(
        "The log has the incidents of all services, with --developer only those of developer "
        "services. It grows whenever a status is fetched: by this command, by brell watch or by "
        "the window.");
    command.whenChosen([options, log, &chosen] {
        options->log = log.isGiven();
        chosen = [options](Session& session) { return runStatus(session, *options); };
    });
}

}  // namespace cli
