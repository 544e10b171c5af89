#include "PressRoom/World/FeedAnswerer.h"

#include "PressRoom/Server/Conditional.h"
#include "PressRoom/World/Address.h"
#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {

FeedAnswerer::FeedAnswerer(const PublishedWorld& world, SilentHosts silentHosts)
    : world_(world), silentHosts_(silentHosts) {
    for (const auto& source : world_.sources()) {
        const auto key = lookupKey(source.address);
        if (source.platform != Platform::bluesky || !source.account) {
            feeds_.emplace(key, &source);
            continue;
        }
        // A feed asked for by handle is redirected to the account's permanent identifier.
        const auto permanent = "https://bsky.app/profile/" + *source.account + "/rss";
        moved_.emplace(key, permanent);
        feeds_.emplace(lookupKey(permanent), &source);
    }
}

std::optional<Response> FeedAnswerer::answer(const Request& request,
                                             std::chrono::sys_seconds now) const {
    const auto key = lookupKey(request);
    if (const auto moved = moved_.find(key); moved != moved_.end())
        return redirect(302, moved->second);
    const auto feed = feeds_.find(key);
    if (feed == feeds_.end()) return std::nullopt;

    const auto& source = *feed->second;
    if (auto response = fault(source, now)) return response;
    const auto edition = world_.edition(source, now);
    return answerConditionally(request, {.body = renderFeed(edition),
                                         .contentType = feedContentType(source.platform),
                                         .lastModified = edition.changed});
}

std::optional<Response> FeedAnswerer::fault(const WorldSource& source,
                                            std::chrono::sys_seconds now) const {
    if (!source.fault) return std::nullopt;
    const auto& fault = *source.fault;
    if (fault.silentOnRequest.value_or(false)) {
        if (silentHosts_ == SilentHosts::no) return std::nullopt;
        Response silent;
        silent.delivery.neverAnswers = true;
        return silent;
    }
    if (fault.untilMinutesAgo && now >= world_.instant(*fault.untilMinutesAgo)) return std::nullopt;
    auto response = htmlPage(static_cast<int>(fault.status.value_or(200)), source.title,
                             fault.page.value_or("<p>This page is not available.</p>"));
    if (fault.retryAfter)
        response.headers.emplace_back("Retry-After", std::to_string(*fault.retryAfter));
    return response;
}

}  // namespace pressroom
