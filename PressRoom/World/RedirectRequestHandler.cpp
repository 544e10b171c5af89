#include "PressRoom/World/RedirectRequestHandler.h"

#include <boost/json.hpp>
#include <fmt/format.h>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "PressRoom/World/ItemID.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {
namespace {

namespace json = boost::json;

constexpr std::string_view redirectHost = "news.google.com";
constexpr std::string_view redirectBatchPath = "/_/DotsSplashUi/data/batchexecute";
constexpr std::string_view redirectProcedure = "Fbv4je";

std::string_view lastPiece(std::string_view path) { return path.substr(path.rfind('/') + 1); }

std::string signatureOf(std::string_view identifier, std::int64_t timestamp) {
    return "S" + itemKey(Platform::youTube, fmt::format("{}{}", identifier, timestamp));
}

/// The call that the form packs as text: its name, the reader, identifier, time stamp, signature.
json::array packedCall(std::string_view body) {
    constexpr std::string_view field = "f.req=";
    if (!body.starts_with(field)) return {};
    boost::system::error_code error;
    const auto batch = json::parse(kit::percentDecoded(body.substr(field.size())), error);
    const auto* packed = error ? nullptr : batch.find_pointer("/0/0/1", error);
    if (!packed || !packed->is_string()) return {};
    const auto call = json::parse(packed->get_string(), error);
    return !error && call.is_array() ? call.get_array() : json::array();
}

}  // namespace

RedirectRequestHandler::RedirectRequestHandler(const PublishedWorld& world) {
    for (const auto& source : world.sources()) {
        if (source.platform != Platform::googleNews) continue;
        for (const auto& item : world.items(source)) {
            const auto link = googleNewsLink(item);
            items_.emplace(lastPiece(link.substr(0, link.find('?'))), &item);
        }
    }
}

const Item* RedirectRequestHandler::find(std::string_view identifier,
                                         std::chrono::sys_seconds now) const {
    const auto item = items_.find(identifier);
    return item != items_.end() && item->second->appears <= now ? item->second : nullptr;
}

std::optional<Response> RedirectRequestHandler::answer(const Request& request,
                                                       std::chrono::sys_seconds now) const {
    if (request.host != redirectHost) return std::nullopt;
    const auto identifier = lastPiece(request.path());
    if (!find(identifier, now)) return std::nullopt;
    const auto timestamp = now.time_since_epoch().count();
    return htmlPage(200, "News",
                    fmt::format("<c-wiz><div data-n-a-id=\"{}\" data-n-a-sg=\"{}\" "
                                "data-n-a-ts=\"{}\"></div></c-wiz>",
                                identifier, signatureOf(identifier, timestamp), timestamp),
                    fmt::format("<link rel=\"canonical\" href=\"https://{}/articles/{}\">\n",
                                redirectHost, identifier));
}

std::optional<Response> RedirectRequestHandler::answerForm(const Request& request,
                                                           std::chrono::sys_seconds now) const {
    if (request.host != redirectHost || request.path() != redirectBatchPath) return std::nullopt;
    const auto call = packedCall(request.body);
    const bool complete = call.size() == 5 && call[0].is_string() && call[2].is_string() &&
                          call[3].is_int64() && call[4].is_string();
    if (!complete || call[0].get_string() != "garturlreq") return Response{.status = 400};
    const std::string_view identifier = call[2].get_string();
    const Item* item = find(identifier, now);
    const bool isSigned = call[4].get_string() == signatureOf(identifier, call[3].get_int64());
    if (!item || !isSigned) return Response{.status = 400};
    const json::array result{"garturlres", item->link, 1};
    json::array batch;
    batch.emplace_back(json::array{"wrb.fr", redirectProcedure, json::serialize(result), nullptr});
    batch.emplace_back(json::array{"di", 12});
    return Response{.headers = {{"Content-Type", "application/json; charset=utf-8"}},
                    .body = ")]}'\n\n" + json::serialize(batch) + "\n"};
}

}  // namespace pressroom
