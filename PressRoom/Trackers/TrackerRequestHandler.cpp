#include "PressRoom/Trackers/TrackerRequestHandler.h"

#include <algorithm>

#include <fmt/format.h>

#include "PressRoom/VendorService.h"
#include "PressRoom/Trackers/StatusFile.h"
#include "PressRoom/Trackers/WireService.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using std::chrono::sys_seconds;

constexpr std::string_view kAppleHost = "www.apple.com";
constexpr std::string_view kStatusPage = "/support/systemstatus/";
constexpr std::string_view kStatusFile = "/support/systemstatus/data/system_status_en_US.js";
constexpr std::string_view kDeveloperFile =
    "/support/systemstatus/data/developer/system_status_en_US.js";
constexpr std::string_view kService = "/wp-json/tb-wire/v1/";

}  // namespace

TrackerRequestHandler::TrackerRequestHandler(TrackerFiles files, sys_seconds anchor,
                                             Misbehaviours& misbehaviours)
    : files_(std::move(files)),
      anchor_(anchor),
      faults_({"status", "developer-status", "releases", "events", "quote", "quotes"},
              misbehaviours) {}

std::optional<Response> TrackerRequestHandler::answer(const Request& request,
                                                      sys_seconds now) const {
    auto path = request.path();
    if (request.host == kAppleHost) {
        if (path == kStatusPage) return statusPage(now);
        if (path == kStatusFile) return status(false, request, now);
        if (path == kDeveloperFile) return status(true, request, now);
        return std::nullopt;
    }
    if (request.host != kMakersHost || !path.starts_with(kService)) return std::nullopt;
    path.remove_prefix(kService.size());
    if (path == "releases") {
        return faults_.served(
            path, request,
            {releases(files_.releases, anchor_, now), "systems", "build", "published"});
    }
    if (path == "events") {
        return faults_.served(path, request,
                              {events(files_.calendar, anchor_, now), "events", "title", "starts"});
    }
    if (path == "quotes") {
        return faults_.served(path, request,
                              {board(files_.board, anchor_, now), "quotes", "price", "t"});
    }
    if (path == "quote") return quoteOf(request, now);
    return errorAnswer(404, "rest_no_route", "No route was found matching the URL.");
}

Response TrackerRequestHandler::status(bool isDeveloper, const Request& request,
                                       sys_seconds now) const {
    const auto& world = isDeveloper ? files_.developer : files_.consumer;
    return faults_.served(isDeveloper ? "developer-status" : "status", request,
                          {.document = statusFile(world, anchor_, now),
                           .list = "services",
                           .requiredKey = "serviceName",
                           .dateKey = "epochStartDate",
                           .isWrapped = !isDeveloper});
}

Response TrackerRequestHandler::quoteOf(const Request& request, sys_seconds now) const {
    const auto symbol = queryItem(request, "symbol");
    const auto known = std::ranges::find(files_.board.quotes, symbol, &WorldQuote::symbol);
    if (known == files_.board.quotes.end()) {
        return errorAnswer(404, "tb_wire_unknown_symbol", "There is no such symbol.");
    }
    auto document = quote(*known, queryItem(request, "range"), anchor_, now);
    if (!document) return errorAnswer(400, "tb_wire_unknown_range", "There is no such range.");
    return faults_.served("quote", request, {*std::move(document), "points", "price", "as_of"});
}

Response TrackerRequestHandler::statusPage(sys_seconds now) const {
    std::string list = "<ul>\n";
    for (const auto* audience : {&files_.consumer, &files_.developer}) {
        const auto file = statusFile(*audience, anchor_, now);
        for (const auto& service : file.at("services").as_array()) {
            const auto& events = service.at("events").as_array();
            const bool isDown = std::ranges::any_of(events, [](const json::value& event) {
                const auto* status = event.as_object().if_contains("eventStatus");
                return status == nullptr || *status == "ongoing";
            });
            const std::string_view name = service.at("serviceName").as_string();
            list += fmt::format("<li>{}: {}</li>\n", escaped(name), isDown ? "Issue" : "Available");
        }
    }
    return htmlPage(200, "System Status", list + "</ul>");
}

}  // namespace pressroom
