#include "Tarnwick_Brell/CommandLine/CourtActions.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Addresses/WebAddress.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Trackers/FollowedFeeds.h"

namespace cli {

std::int64_t docketIn(const std::string& text) {
    if (const auto docket = app::docketNumberIn(text)) return *docket;
    throw WrongUsage("\"" + text +
                     "\" names no docket. Dockets are named by their page at CourtListener "
                     "(https://www.courtlistener.com/docket/NUMBER/…) or by its number.");
}

std::string feedAddressIn(const std::string& text) {
    const auto address = kit::WebAddress::parse(text);
    if (!address || address->scheme != "https")
        throw WrongUsage("\"" + text + "\" is no https address.");
    return address->text();
}

int followCase(Session& session, const CourtOptions& options) {
    const auto docket = docketIn(options.docket);
    app::FollowedFeeds followed(session.defaults());
    followed.follow({docket, options.note});
    session.out().line(fmt::format("Docket {} is followed.", docket));
    return kDone;
}

int unfollowCase(Session& session, const CourtOptions& options) {
    const auto docket = docketIn(options.docket);
    if (!app::FollowedFeeds(session.defaults()).unfollow(docket))
        throw WrongUsage(fmt::format("Docket {} isn't followed.", docket));
    session.out().line(fmt::format("Docket {} is no longer followed.", docket));
    return kDone;
}

int noteCase(Session& session, const CourtOptions& options) {
    const auto docket = docketIn(options.docket);
    app::FollowedFeeds followed(session.defaults());
    const auto cases = followed.cases();
    if (std::ranges::find(cases, docket, &app::FollowedCase::docket) == cases.end())
        throw WrongUsage(fmt::format("Docket {} isn't followed.", docket));
    followed.follow({docket, options.note});
    session.out().line(fmt::format("Docket {}: {}", docket, printable(options.note)));
    return kDone;
}

int addCourtFeed(Session& session, const CourtOptions& options) {
    const auto address = feedAddressIn(options.address);
    app::FollowedFeeds(session.defaults()).addCourtFeed({address, options.name});
    session.out().line(kit::maskedSecrets(address) + " is followed.");
    return kDone;
}

int removeCourtFeed(Session& session, const CourtOptions& options) {
    if (!app::FollowedFeeds(session.defaults()).removeCourtFeed(feedAddressIn(options.address)))
        throw WrongUsage("There is no such feed.");
    session.out().line("The feed is no longer followed.");
    return kDone;
}

}  // namespace cli
