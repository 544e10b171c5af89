#include "Tarnwick_Brell/Trackers/FollowedFeeds.h"

#include <algorithm>
#include <charconv>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace {

constexpr std::string_view kFollowedCases = "followedCases";
constexpr std::string_view kCourtFeeds = "courtFeeds";
constexpr std::string_view kPressFeeds = "pressFeeds";

std::optional<std::int64_t> wholeDocketNumber(std::string_view text) {
    std::int64_t number = 0;
    const auto* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || rest != end || number <= 0) return std::nullopt;
    return number;
}

}  // namespace

std::vector<FollowedCase> FollowedFeeds::cases() const {
    std::vector<FollowedCase> cases;
    for (const auto& [docket, note] : defaults_.memory(kFollowedCases).value_or(Defaults::Memory()))
        if (const auto number = wholeDocketNumber(docket)) cases.push_back({*number, note});
    std::ranges::sort(cases, {}, &FollowedCase::docket);
    return cases;
}

std::string FollowedFeeds::courtListenerToken() const { return defaults_.courtListenerToken(); }

std::vector<AddedFeed> FollowedFeeds::feeds(std::string_view key) const {
    std::vector<AddedFeed> feeds;
    for (const auto& [address, name] : defaults_.memory(key).value_or(Defaults::Memory()))
        feeds.push_back({address, name});
    return feeds;
}

std::vector<AddedFeed> FollowedFeeds::courtFeeds() const { return feeds(kCourtFeeds); }

std::vector<AddedFeed> FollowedFeeds::pressFeeds() const { return feeds(kPressFeeds); }

void FollowedFeeds::follow(const FollowedCase& followed) {
    add(kFollowedCases, std::to_string(followed.docket), followed.note);
}

bool FollowedFeeds::unfollow(std::int64_t docket) {
    return remove(kFollowedCases, std::to_string(docket));
}

void FollowedFeeds::addCourtFeed(const AddedFeed& feed) {
    add(kCourtFeeds, feed.address, feed.name);
}

void FollowedFeeds::addPressFeed(const AddedFeed& feed) {
    add(kPressFeeds, feed.address, feed.name);
}

bool FollowedFeeds::removeCourtFeed(std::string_view address) {
    return remove(kCourtFeeds, address);
}

bool FollowedFeeds::removePressFeed(std::string_view address) {
    return remove(kPressFeeds, address);
}

void FollowedFeeds::add(std::string_view key, const std::string& name, const std::string& value) {
    auto memory = defaults_.memory(key).value_or(Defaults::Memory());
    memory[name] = value;
    defaults_.remember(key, memory);
}

bool FollowedFeeds::remove(std::string_view key, std::string_view name) {
    auto memory = defaults_.memory(key).value_or(Defaults::Memory());
    if (memory.erase(std::string(name)) == 0) return false;
    defaults_.remember(key, memory);
    return true;
}

std::optional<std::int64_t> docketNumberIn(std::string_view text) {
    if (const auto number = wholeDocketNumber(text)) return number;
    const auto address = kit::WebAddress::parse(text);
    if (!address || !kit::isHostOrSubhost(address->host, "courtlistener.com")) return std::nullopt;
    const auto pieces = address->pathPieces();
    if (pieces.size() < 2 || pieces[0] != "docket") return std::nullopt;
    return wholeDocketNumber(pieces[1]);
}

}  // namespace app
