#include "NewsroomKit/Ingestion/SocialPosts.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/PlatformHosts.h"

namespace kit {

namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

std::optional<std::uint64_t> wholeNumber(std::string_view digits) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return number;
}

/// Rejects decoded times outside 2006 to 2099: such numbers don't contain a time.
std::optional<Instant> plausible(Instant instant) {
    const bool sane = instant > Instant(std::chrono::sys_days(std::chrono::year{2006} / 1 / 1)) &&
                      instant < Instant(std::chrono::sys_days(std::chrono::year{2100} / 1 / 1));
    return sane ? std::optional(instant) : std::nullopt;
}

// X's post numbers have the milliseconds since its own epoch above 22 bits. Before November 2010
// they were a plain count.
std::optional<Instant> timeOfXPost(std::uint64_t number) {
    constexpr std::int64_t epoch = 1288834974657;
    constexpr std::uint64_t lastCounted = 30'000'000'000;
    if (number < lastCounted) return std::nullopt;
    return plausible(Instant(milliseconds(static_cast<std::int64_t>(number >> 22) + epoch)));
}

// Mastodon's post numbers have the milliseconds since 1970 above 16 bits.
std::optional<Instant> timeOfMastodonPost(std::uint64_t number) {
    return plausible(Instant(milliseconds(static_cast<std::int64_t>(number >> 16))));
}

// Bluesky's record keys are 13 characters of sortable base 32: microseconds since 1970
// above ten bits of clock number.
std::optional<Instant> timeOfBlueskyPost(std::string_view key) {
    constexpr std::string_view alphabet = "234567abcdefghijklmnopqrstuvwxyz";
    if (key.size() != 13) return std::nullopt;
    std::uint64_t number = 0;
    for (const char c : key) {
        const auto digit = alphabet.find(c);
        if (digit == std::string_view::npos) return std::nullopt;
        number = number << 5 | digit;
    }
    return plausible(Instant(microseconds(static_cast<std::int64_t>(number >> 10))));
}

}  // namespace

std::optional<SocialPost> socialPost(std::string_view text) {
    // The path of every post's address has one of these, so most links need no parsing.
    const bool possible = text.find("/@") != std::string_view::npos ||
                          text.find("/status/") != std::string_view::npos ||
                          text.find("/post/") != std::string_view::npos;
    if (!possible) return std::nullopt;
    const auto address = WebAddress::parse(text);
    if (!address || !address->isHTTP()) return std::nullopt;
    const auto pieces = address->pathPieces();
    const std::string_view host = address->host;

    if ((isHostOrSubhost(host, "x.com") || isHostOrSubhost(host, "twitter.com")) &&
        pieces.size() >= 3 && pieces[1] == "status") {
        const auto number = wholeNumber(pieces[2]);
        if (!number) return std::nullopt;
        return SocialPost{"X", "@" + pieces[0], timeOfXPost(*number)};
    }
    if (host == hosts::kBluesky && pieces.size() >= 4 && pieces[0] == "profile" &&
        pieces[2] == "post") {
        return SocialPost{"Bluesky", "@" + pieces[1], timeOfBlueskyPost(pieces[3])};
    }
    const bool account = pieces.size() >= 2 && pieces[0].size() > 1 && pieces[0].starts_with('@');
    if (account && (isHostOrSubhost(host, "threads.net") || isHostOrSubhost(host, "threads.com")) &&
        pieces.size() >= 3 && pieces[1] == "post") {
        return SocialPost{"Threads", pieces[0], std::nullopt};
    }
    if (account && pieces.size() == 2 && pieces[1].size() >= 15) {
        if (const auto number = wholeNumber(pieces[1])) {
            return SocialPost{"Mastodon", pieces[0] + "@" + address->host,
                              timeOfMastodonPost(*number)};
        }
    }
    return std::nullopt;
}

}  // namespace kit
