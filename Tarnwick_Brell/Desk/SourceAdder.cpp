#include "Tarnwick_Brell/Desk/SourceAdder.h"

#include <algorithm>
#include <chrono>
#include <set>

#include <boost/asio/use_awaitable.hpp>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Feeds/TextTruncation.h"
#include "NewsroomKit/HTTP/HTTPClientError.h"
#include "NewsroomKit/Sources/SourceAddress.h"
#include "Tarnwick_Brell/Desk/FetchStack.h"
#include "Tarnwick_Brell/Desk/StoryIntake.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace asio = boost::asio;

using kit::NewsSource;
using kit::SourceFetch;
using kit::WebAddress;

namespace {

constexpr std::size_t kLongestName = 60;
constexpr std::size_t kStoriesShown = 5;

std::string hostOf(const std::string& address) {
    const auto parsed = WebAddress::parse(address);
    return parsed ? parsed->host : address;
}

std::string siteOf(const std::string& address) {
    const auto parsed = WebAddress::parse(address);
    return parsed ? parsed->scheme + "://" + parsed->host + "/" : address;
}

/// "@name" alone reads as an address, but of a host that cannot be.
bool isPlausible(const std::string& address) {
    const auto host = hostOf(address);
    return host.find_first_of(".:") != std::string::npos || host == "localhost";
}

std::vector<std::string> plausibleCandidates(std::string_view typed) {
    auto candidates = kit::SourceAddress::candidates(typed);
    std::erase_if(candidates, [](const auto& address) { return !isPlausible(address); });
    return candidates;
}

/// A source as it would be fetched before the desk knows it.
NewsSource trial(const std::string& address) {
    return {.id = "trial",
            .name = address,
            .feedURL = address,
            .siteURL = address,
            .kind = NewsSource::Kind::custom,
            .category = NewsSource::Category::custom};
}

std::string nameOf(const SourceFetch::Stories& stories) {
    for (const auto& title : {stories.feedTitle, stories.pageTitle}) {
        const auto name = kit::cutAtWord(kit::cleanHeadline(title), kLongestName);
        if (!name.empty()) return name;
    }
    return hostOf(stories.feedURL);
}

}  // namespace

std::string AddSourceError::description() const {
    switch (kind) {
        case Kind::alreadyAdded: return detail + " is already one of your sources.";
        case Kind::invalidAddress: return "That doesn't look like a web address or a handle.";
        case Kind::empty: return "That feed has no stories in it.";
        case Kind::fetchFailed: return detail;
    }
    return {};
}

SourceAdder::SourceAdder(LocalStore& store, SourceRegistry& registry, FetchStack& stack,
                         kit::Clock clock, std::chrono::duration<double> retention)
    : store_(store),
      registry_(registry),
      stack_(stack),
      clock_(std::move(clock)),
      retention_(retention) {}

AddressCheck SourceAdder::describe(const std::string& candidate,
                                   const SourceFetch::Stories& stories) const {
    AddressCheck check{.name = shortenedName(nameOf(stories)),
                       .feedURL = stories.feedURL,
                       .siteURL = siteOf(candidate)};
    const auto now = stack_.feeds().clockCheck().corrected(clock_());
    const auto oldest = now - std::chrono::duration_cast<kit::Instant::duration>(retention_);
    std::set<std::string_view> ids;
    const auto kept = storiesToStore(trial(candidate), stories.list, {oldest, now});
    for (const auto& story : kept) {
        if (!ids.insert(story.id).second) continue;
        check.aboutApple += isAboutApple(story) ? 1 : 0;
        if (check.first.size() < kStoriesShown) check.first.push_back(story);
    }
    check.storyCount = ids.size();
    check.collapsed = kept.size() - ids.size();
    check.tooOld = static_cast<std::size_t>(
        std::count_if(stories.list.begin(), stories.list.end(),
                      [&](const auto& story) { return story.publishedAt < oldest; }));
    check.newestStory = newestOf(stories.list);
    return check;
}

asio::awaitable<SourceAdder::Checked> SourceAdder::check(std::string typed, kit::FetchWatch watch) {
    AddSourceError reason{AddSourceError::Kind::invalidAddress};
    // 1. What the text may mean is tried in order; a page's feeds come with the page.
    for (const auto& candidate : plausibleCandidates(typed)) {
        if (const auto* known = registry_.findByFeed(candidate)) {
            co_return AddSourceError{AddSourceError::Kind::alreadyAdded, known->name};
        }
        // "Unchanged" would be no answer here: the stories themselves are wanted.
        stack_.http().validators().forget(candidate);
        auto source = trial(candidate);
        const auto fetched = co_await stack_.feeds().fetch(std::move(source), watch);
        // 2. The first feed with a story counts, unless the desk has it under another address.
        if (const auto* stories = std::get_if<SourceFetch::Stories>(&fetched.outcome)) {
            if (const auto* known = registry_.findByFeed(stories->feedURL)) {
                co_return AddSourceError{AddSourceError::Kind::alreadyAdded, known->name};
            }
            if (stories->list.empty()) {
                reason = AddSourceError{AddSourceError::Kind::empty};
                continue;
            }
            co_return describe(candidate, *stories);
        }
        // 3. Without any, the last failure is told.
        if (const auto* failed = std::get_if<SourceFetch::Failed>(&fetched.outcome)) {
            reason = AddSourceError{AddSourceError::Kind::fetchFailed, failed->text};
        }
    }
    co_return reason;
}

asio::awaitable<SourceAdder::Added> SourceAdder::add(std::string typed) {
    const auto checked = co_await check(std::move(typed));
    if (const auto* error = std::get_if<AddSourceError>(&checked)) co_return *error;
    const auto& found = std::get<AddressCheck>(checked);
    co_return write(found.name, found.feedURL, found.siteURL);
}

SourceAdder::Added SourceAdder::addWithoutFetching(std::string_view typed) {
    const auto candidates = plausibleCandidates(typed);
    if (candidates.empty()) return AddSourceError{AddSourceError::Kind::invalidAddress};
    const auto& address = candidates.front();
    const auto parsed = WebAddress::parse(address);
    if (!parsed || parsed->scheme != "https") {
        const kit::HTTPClientError error{.kind = kit::HTTPClientError::Kind::notHTTPS};
        return AddSourceError{AddSourceError::Kind::fetchFailed, kit::description(error)};
    }
    const auto name = hostOf(address) + kit::percentDecoded(parsed->path);
    // What stands in a name is shown everywhere.
    return write(kit::cutAtWord(kit::maskedSecrets(name), kLongestName), address, siteOf(address));
}

/// Another program may have added the same feed while this one waited for the network.
SourceAdder::Added SourceAdder::write(const std::string& name, const std::string& feedURL,
                                      const std::string& siteURL) {
    auto transaction = store_.transaction();
    registry_.reload();
    if (const auto* known = registry_.findByFeed(feedURL)) {
        return AddSourceError{AddSourceError::Kind::alreadyAdded, known->name};
    }
    auto source = registry_.add(name, feedURL, siteURL);
    transaction.commit();
    return source;
}

}  // namespace app
