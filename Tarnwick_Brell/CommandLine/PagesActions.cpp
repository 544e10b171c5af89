#include "Tarnwick_Brell/CommandLine/PagesActions.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Newsrooms/UUID.h"
#include "Tarnwick_Brell/CommandLine/BlockingFetcher.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"

namespace cli {

namespace {

using app::VisitedPage;
using kit::FollowedPage;
using kit::PageOutcome;

std::string newPageAddress(const std::string& text) {
    if (auto address = app::pageAddressIn(text)) return *address;
    throw WrongUsage("\"" + text + "\" is no https address.");
}

void add(app::LocalStore& store, const std::string& address, const PagesOptions& options) {
    auto page = app::followedPageNamed(store, address)
                    .value_or(FollowedPage{.id = kit::UUID::random().text(),
                                           .address = address,
                                           .name = app::pageNameFor(address),
                                           .added = currentInstant()});
    if (!options.name.empty()) page.name = options.name;
    page.isUrgent = options.urgent;
    app::followPage(store, page);
}

std::string visitText(const VisitedPage& visited) {
    if (!visited.outcome) return visited.reason;
    switch (visited.outcome->kind) {
        case PageOutcome::Kind::baseline: return "This is the first look.";
        case PageOutcome::Kind::unchanged: return "It hasn't changed.";
        case PageOutcome::Kind::order: return "Only the order of its parts has changed.";
        case PageOutcome::Kind::doubted:
            return "The server sent an older text. It counts once it stays for a day.";
        case PageOutcome::Kind::candidate: return "It differs. The next look decides.";
        case PageOutcome::Kind::changed: return "It has changed.";
        case PageOutcome::Kind::returned: return "It went back to an earlier text.";
        case PageOutcome::Kind::learned:
            return "Parts of it differ at each look. They are left out from now on.";
        case PageOutcome::Kind::unreadable:
            return std::string(label(visited.outcome->miss.value_or(kit::PageMiss::noAnswer)));
    }
    return {};
}

std::vector<FollowedPage> wantedPages(app::LocalStore& store, const PagesOptions& options) {
    if (!options.page.empty()) return {pageIn(store, options.page).page};
    std::vector<FollowedPage> pages;
    for (auto& status : app::followedPages(store)) pages.push_back(std::move(status.page));
    return pages;
}

}  // namespace

kit::PageStatus pageIn(app::LocalStore& store, const std::string& text) {
    const auto address = app::pageAddressIn(text);
    const auto named = app::followedPageNamed(store, text);
    for (auto& status : app::followedPages(store)) {
        const bool isNamed = named && status.page.id == named->id && !named->id.empty();
        if (isNamed || status.page.address == address) return status;
    }
    throw WrongUsage("\"" + text + "\" isn't followed. brell pages lists what is.");
}

std::vector<VisitedPage> lookAtPages(Session& session, const PagesOptions& options,
                                     ChoosePages choose) {
    // Before the store: the demonstration's network comes first.
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        app::TrackerFetcher trackerFetcher(store, fetcher.http(), &currentInstant);
        app::PageRounds rounds(trackerFetcher);
        return fetcher.await(rounds.visit(choose(store, options)));
    });
}

int finishLooks(const std::vector<VisitedPage>& visited) {
    std::string sentences;
    for (const auto& one : visited) {
        if (one.outcome && !one.outcome->miss) continue;
        sentences += (sentences.empty() ? "" : "\n") + one.page.name + ": " + visitText(one);
    }
    if (!sentences.empty()) throw WorkFailed(sentences);
    return kDone;
}

int addPage(Session& session, const PagesOptions& options) {
    if (options.page.empty() == !options.suggested)
        throw WrongUsage("Give the address of a page, or --suggested.");
    std::vector<std::string> addresses;
    if (options.suggested) {
        for (const auto& page : kit::kSuggestedPages) addresses.emplace_back(page.address);
    } else {
        addresses.push_back(newPageAddress(options.page));
    }
    session.storing([&](app::LocalStore& store) {
        auto transaction = store.transaction();
        for (const auto& address : addresses) add(store, address, options);
        transaction.commit();
        return kDone;
    });
    for (const auto& address : addresses)
        session.out().line(kit::maskedSecrets(address) + " is followed.");
    return kDone;
}

int removePage(Session& session, const PagesOptions& options) {
    session.storing([&](app::LocalStore& store) {
        const auto page = app::followedPageNamed(store, options.page);
        if (!page) throw WrongUsage("\"" + options.page + "\" isn't followed by you.");
        auto transaction = store.transaction();
        app::unfollowPage(store, page->id, currentInstant());
        transaction.commit();
        return kDone;
    });
    session.out().line("The page is no longer followed. What was seen of it stays.");
    return kDone;
}

int unmutePage(Session& session, const PagesOptions& options) {
    session.storing([&](app::LocalStore& store) {
        const auto status = pageIn(store, options.page);
        const auto& muted = status.state.volatileBlocks;
        const auto index = static_cast<std::size_t>(options.muted - 1);
        if (index >= muted.size())
            throw WrongUsage(fmt::format("The page has {} parts that are left out.", muted.size()));
        auto transaction = store.transaction();
        app::comparePart(store, status.page.address, muted[index]);
        transaction.commit();
        return kDone;
    });
    session.out().line("The part counts again from the next look on.");
    return kDone;
}

int checkPages(Session& session, const PagesOptions& options) {
    const auto visited = lookAtPages(session, options, &wantedPages);
    if (visited.empty()) session.advise("No page is followed yet.");
    if (session.options().json) {
        boost::json::array list;
        for (const auto& one : visited) {
            list.push_back({{"address", one.page.address},
                            {"name", one.page.name},
                            {"outcome", visitText(one)}});
        }
        session.out().line(boost::json::serialize(list));
    } else {
        for (const auto& one : visited)
            session.out().line(printable(one.page.name) + ": " + visitText(one));
    }
    return finishLooks(visited);
}

}  // namespace cli
