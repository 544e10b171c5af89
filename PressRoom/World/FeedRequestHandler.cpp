#include "PressRoom/World/FeedRequestHandler.h"

#include <algorithm>
#include <stdexcept>

#include "PressRoom/Server/Conditional.h"
#include "PressRoom/World/Address.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {

FeedRequestHandler::FeedRequestHandler(const PublishedWorld& world,
                                       const Misbehaviours& misbehaviours)
    : world_(world) {
    for (const auto& source : world_.sources()) {
        if (const auto found = misbehaviours.find(source.id); found != misbehaviours.end()) {
            misbehaving_.emplace(&source, std::make_unique<MisbehavingFeed>(found->second));
        }
        const auto key = lookupKey(source.address);
        if (source.platform != Platform::bluesky || !source.account) {
            feeds_.emplace(key, &source);
            continue;
        }
        // A feed requested by handle redirects to the account's permanent identifier.
        const auto permanent = "https://bsky.app/profile/" + *source.account + "/rss";
        moved_.emplace(key, permanent);
        feeds_.emplace(lookupKey(permanent), &source);
    }
    for (const auto& [id, misbehaviour] : misbehaviours) {
        const auto isSource = [&id](const WorldSource& source) { return source.id == id; };
        if (std::ranges::none_of(world_.sources(), isSource)) {
            throw std::runtime_error("there is no source with the id " + id);
        }
    }
}

std::optional<Response> FeedRequestHandler::answer(const Request& request,
                                                   std::chrono::sys_seconds now) const {
    const auto key = lookupKey(request);
    if (const auto moved = moved_.find(key); moved != moved_.end())
        return redirect(302, moved->second);
    const auto feed = feeds_.find(key);
    if (feed == feeds_.end()) return std::nullopt;

    const auto& source = *feed->second;
    const auto edition = world_.edition(source, now);
    if (const auto found = misbehaving_.find(&source); found != misbehaving_.end()) {
        return found->second->answer(request, edition, now);
    }
    if (auto response = fault(source, now)) return response;
    return answerConditionally(request, {.body = renderFeed(edition),
                                         .contentType = feedContentType(source.platform),
                                         .lastModified = edition.changed});
}

std::optional<Response> FeedRequestHandler::fault(const WorldSource& source,
                                                  std::chrono::sys_seconds now) const {
    if (!source.fault) return std::nullopt;
    const auto& fault = *source.fault;
    if (fault.untilMinutesAgo && now >= world_.instant(*fault.untilMinutesAgo)) return std::nullopt;
    auto response = htmlPage(static_cast<int>(fault.status.value_or(200)), source.title,
                             fault.page.value_or("<p>This page is not available.</p>"));
    if (fault.retryAfter)
        response.headers.emplace_back("Retry-After", std::to_string(*fault.retryAfter));
    return response;
}

}  // namespace pressroom
