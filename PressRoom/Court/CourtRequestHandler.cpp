#include "PressRoom/Court/CourtRequestHandler.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <fmt/format.h>

#include "PressRoom/Court/CourtFeeds.h"
#include "PressRoom/Server/Conditional.h"

namespace pressroom {
namespace {

using Kind = MisbehaviourKind;
using std::chrono::sys_seconds;

constexpr std::array<std::string_view, 3> kCourtParts{"court", "court-feeds", "press"};
constexpr std::array kCourtFaults{Kind::silent,  Kind::busy,  Kind::unavailable, Kind::page,
                                  Kind::missing, Kind::empty, Kind::huge,        Kind::broken};
// No other is accepted.
constexpr std::string_view kAcceptedToken = "Token 0123456789abcdef";
constexpr std::size_t kHugeFeed = 9 * 1024 * 1024;

/// The feed without its items.
std::string emptied(std::string feed) {
    for (const std::string_view tag : {"item>", "entry>"}) {
        const auto first = feed.find("<" + std::string(tag));
        const auto last = feed.rfind("</" + std::string(tag));
        if (first == feed.npos || last == feed.npos) continue;
        feed.erase(first, last + tag.size() + 2 - first);
    }
    return feed;
}

Response refusedFor(int status, std::int64_t seconds) {
    auto response = htmlPage(status, "Busy", "<p>Please come back later.</p>");
    response.headers.emplace_back("Retry-After", std::to_string(seconds));
    return response;
}

/// The search says in words how long it wants to be spared.
Response throttled(std::int64_t seconds) {
    return {
        .status = 429,
        .headers = {{"Content-Type", "application/json"}},
        .body = fmt::format(
            R"({{"detail":"Request was throttled. Expected available in {} seconds."}})", seconds)};
}

Response feedResponse(const Request& request, std::string feed) {
    return answerConditionally(request, {.body = std::move(feed), .contentType = "text/xml"});
}

}  // namespace

CourtRequestHandler::CourtRequestHandler(CourtWorld world, sys_seconds anchor,
                                         Misbehaviours& misbehaviours)
    : world_(std::move(world)), anchor_(anchor) {
    for (const auto name : kCourtParts) {
        const auto found = misbehaviours.find(name);
        if (found == misbehaviours.end()) continue;
        if (std::ranges::find(kCourtFaults, found->second.kind) == kCourtFaults.end()) {
            throw std::runtime_error(fmt::format("{} can't misbehave as \"{}\"", name,
                                                 kit::rawValue(found->second.kind)));
        }
        misbehaviours_.insert(misbehaviours.extract(found));
    }
}

Response CourtRequestHandler::served(std::string_view name, const Request& request,
                                     std::string feed) const {
    const auto fault = misbehaviours_.find(name);
    if (fault == misbehaviours_.end()) return feedResponse(request, std::move(feed));
    switch (fault->second.kind) {
        case Kind::silent: return {.delivery = {.neverAnswers = true}};
        case Kind::busy: return refusedFor(429, fault->second.amount);
        case Kind::unavailable: return refusedFor(503, fault->second.amount);
        case Kind::page: return htmlPage(200, "Sign in", "<p>Sign in to go on.</p>");
        case Kind::missing: return htmlPage(404, "Not found", "<p>It has gone.</p>");
        case Kind::empty: return feedResponse(request, emptied(std::move(feed)));
        case Kind::huge: return feedResponse(request, feed.append(kHugeFeed, ' '));
        case Kind::broken: return feedResponse(request, feed.substr(0, feed.size() / 2));
        default: return feedResponse(request, std::move(feed));
    }
}

std::optional<Response> CourtRequestHandler::answer(const Request& request, sys_seconds now) const {
    if (request.host == "www.courtlistener.com") return docketFeed(request, now);
    if (request.host.starts_with("ecf.")) return courtFeed(request, now);
    return wire(request, now);
}

std::optional<Response> CourtRequestHandler::docketFeed(const Request& request,
                                                        sys_seconds now) const {
    if (request.path() == "/api/rest/v4/search/") return search(request, now);
    for (const auto& docket : world_.dockets.dockets) {
        if (request.path() != fmt::format("/docket/{}/feed/", docket.docket)) continue;
        return served("court", request, docketDocument(docket, anchor_, now));
    }
    return std::nullopt;
}

Response CourtRequestHandler::search(const Request& request, sys_seconds now) const {
    if (request.header("authorization") != kAcceptedToken) {
        return {.status = 401,
                .headers = {{"Content-Type", "application/json"}},
                .body = R"({"detail":"Invalid token."})"};
    }
    const auto fault = misbehaviours_.find("court");
    if (fault != misbehaviours_.end() && fault->second.kind == Kind::busy)
        return throttled(fault->second.amount);
    const std::size_t page = request.target.find("cursor=2") == std::string::npos ? 1 : 2;
    return served("court", request, searchDocument(world_.dockets, page, anchor_, now));
}

std::optional<Response> CourtRequestHandler::courtFeed(const Request& request,
                                                       sys_seconds now) const {
    const auto court = request.host.substr(4, request.host.find('.', 4) - 4);
    if (request.path() != "/cgi-bin/rss_outside.pl" || !hasCourt(world_.dockets, court))
        return std::nullopt;
    return served("court-feeds", request, courtDocument(world_.dockets, court, anchor_, now));
}

std::optional<Response> CourtRequestHandler::wire(const Request& request, sys_seconds now) const {
    const auto documentOf = [&](std::string_view id, std::string_view title) {
        return served("press", request, wireDocument(world_.releases, id, title, anchor_, now));
    };
    if (request.host == "www.globenewswire.com" && request.path().starts_with("/RssFeed/"))
        return documentOf("globenewswire", "GlobeNewswire - News about Public Companies");
    if (request.host == "www.prnewswire.com" && request.path().starts_with("/rss/")) {
        // Unknown channels get the news of all companies, without a title.
        const bool isKnown = request.path() == "/rss/news-releases-list.rss";
        return documentOf("prnewswire", isKnown ? "All News Releases" : "");
    }
    if (request.host == "feed.businesswire.com") {
        return feedResponse(request,
                            "<rss><channel><title>Business Wire</title><description>The channel "
                            "you requested is unavailable.</description></channel></rss>");
    }
    return std::nullopt;
}

}  // namespace pressroom
