#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Pages/PageBlock.h"
#include "NewsroomKit/Pages/VolatileBlocks.h"

namespace kit {

/// Why a look at a page gave no text to compare. It is never a change of the page.
enum class PageMiss {
    noAnswer,
    badStatus,
    blocked,
    notHTML,
    tooShort,
    tooLarge,
    otherHost,
    otherLanguage,
    shrunk,
    unstable
};

template <>
inline constexpr std::array<EnumRow<PageMiss>, 10> enumTable<PageMiss>{{
    {PageMiss::noAnswer, "noAnswer", "The server didn't answer."},
    {PageMiss::badStatus, "badStatus", "The server answered with an error."},
    {PageMiss::blocked, "blocked", "The server sent a page for robots instead of the page."},
    {PageMiss::notHTML, "notHTML", "The address didn't return a web page."},
    {PageMiss::tooShort, "tooShort", "The page has too little text to be read."},
    {PageMiss::tooLarge, "tooLarge", "The page is larger than 8 MB."},
    {PageMiss::otherHost, "otherHost", "The address led to another site."},
    {PageMiss::otherLanguage, "otherLanguage", "The page came in another language."},
    {PageMiss::shrunk, "shrunk", "Most of the page's text was missing."},
    {PageMiss::unstable, "unstable", "The page differs each time it is fetched."},
}};

/// What came of asking for a page.
struct PageVisit {
    Instant at{};
    bool isNotModified = false;  ///< the server says that the page is the current revision
    std::optional<PageMiss> miss{};
    std::string_view bytes{};
    std::string_view url{};  ///< where it came from in the end
    std::string_view contentType{};
    int status = 200;
    std::optional<std::string> entityTag{};
    std::optional<std::string> lastModified{};
};

/// A state of a page, which the page may return to.
struct PageStateKey {
    std::string key;
    Instant seenAt{};

    bool operator==(const PageStateKey&) const = default;
};

/// A text that differs from the current revision, and was not seen often enough yet.
struct PageCandidate {
    std::string key;
    Instant firstSeen{};  ///< when the page was first seen to differ
    Instant lastSeen{};
    std::int64_t fetches = 1;  ///< in a row that differed from the current revision

    bool operator==(const PageCandidate&) const = default;
};

/// What is remembered of a watched page between looks, without texts.
struct PageWatchState {
    std::int64_t rules = 0;  ///< version of the rules the current revision was read with; 0: none
    std::string key;         ///< of the current revision
    std::string orderKey;
    std::string linksKey;
    Instant seenAt{};       ///< when the current revision was first seen
    Instant unchangedAt{};  ///< when it was last seen
    std::optional<Instant> statedDay{};
    std::string host;
    std::string language;
    std::vector<PageStateKey> earlier;       ///< the last eight states, the latest first
    std::vector<PageStateKey> earlierLinks;  ///< the last eight, by where their links led
    bool hasVaryingLinks = false;            ///< which lead elsewhere at each fetch
    std::optional<PageStateKey> doubted;     ///< must stay for a day before it is believed
    std::optional<PageCandidate> candidate;
    std::vector<VolatileBlock> volatileBlocks;
    std::vector<std::int64_t> lengths;  ///< of the last five texts
    std::int64_t misses = 0;            ///< in a row
    std::optional<PageMiss> miss{};
    std::optional<Instant> missedSince{};
    std::optional<std::string> entityTag{};  ///< of the current revision
    std::optional<std::string> lastModified{};

    bool operator==(const PageWatchState&) const = default;
};

/// A watched page with its texts. Blocks are kept as they were read, volatile ones among them.
struct PageWatch {
    PageWatchState state{};
    std::vector<PageBlock> blocks{};     ///< of the current revision
    std::vector<PageBlock> candidate{};  ///< of the candidate
};

struct PageOutcome {
    enum class Kind {
        baseline,  ///< the first look, or the first with other rules
        unchanged,
        order,      ///< the same blocks in another order
        doubted,    ///< an earlier text, or one with an older date, as old copies of servers are
        candidate,  ///< differs; another look within minutes decides
        changed,    ///< two looks agree
        returned,   ///< an earlier text has stayed for a day
        learned,    ///< what differs at each fetch is left out from now on
        unreadable,
    };

    Kind kind = Kind::unchanged;
    std::optional<PageMiss> miss{};
    bool isFailureNews = false;  ///< it has failed so often that people want to know
    // Of changed and returned pages:
    std::vector<PageBlock> before{};  ///< without volatile blocks
    std::vector<PageBlock> after{};
    std::optional<Instant> dayBefore{};  ///< that the earlier text states
    std::optional<Instant>
        earlierSeenAt{};  ///< when the text that it has returned to was last seen
    Instant seenAt{};
    Instant unchangedAt{};  ///< when the earlier text was last seen
};

/// Looks in a row without a text before anybody is told.
inline constexpr std::int64_t kMissesToTell = 4;

/// Decides on one look. Never waits: the caller looks again when nextLook() says so.
PageOutcome applyVisit(PageWatch& watch, const PageVisit& visit);

/// Reads the current revision again, with the present rules; no change of the page.
void applyRules(PageWatch& watch, const PageVisit& stored);

/// Reads what was volatile as text from now on, which is no change of the page.
void forgetVolatile(PageWatch& watch, std::string_view place);

/// Leaves the block out again, which is no change of the page either.
void restoreVolatile(PageWatch& watch, const VolatileBlock& block);

/// What is left out has changed: finds the keys of the earlier states anew, so that a return to one
/// of them is still seen. `texts` are those that are kept; of a state without a text the key stays.
void updateEarlierKeys(PageWatchState& state, const std::vector<VolatileBlock>& leftOutBefore,
                       std::span<const std::vector<PageBlock>> texts);

/// `spread` is between -1 and 1.
Instant nextLook(const PageWatchState& state, Instant lookedAt, std::chrono::minutes interval,
                 double spread);

template <>
struct JSONFields<PageStateKey> {
    static constexpr auto fields =
        std::tuple{field("key", &PageStateKey::key), field("seenAt", &PageStateKey::seenAt)};
};

template <>
struct JSONFields<PageCandidate> {
    static constexpr auto fields = std::tuple{
        field("key", &PageCandidate::key), field("firstSeen", &PageCandidate::firstSeen),
        field("lastSeen", &PageCandidate::lastSeen), field("fetches", &PageCandidate::fetches)};
};

template <>
struct JSONFields<PageWatchState> {
    static constexpr auto fields = std::tuple{
        field("rules", &PageWatchState::rules),
        field("key", &PageWatchState::key),
        field("orderKey", &PageWatchState::orderKey),
        field("linksKey", &PageWatchState::linksKey),
        field("seenAt", &PageWatchState::seenAt),
        field("unchangedAt", &PageWatchState::unchangedAt),
        field("statedDay", &PageWatchState::statedDay),
        field("host", &PageWatchState::host),
        field("language", &PageWatchState::language),
        field("earlier", &PageWatchState::earlier),
        field("earlierLinks", &PageWatchState::earlierLinks),
        field("varyingLinks", &PageWatchState::hasVaryingLinks),
        field("doubted", &PageWatchState::doubted),
        field("candidate", &PageWatchState::candidate),
        field("volatileBlocks", &PageWatchState::volatileBlocks),
        field("lengths", &PageWatchState::lengths),
        field("misses", &PageWatchState::misses),
        field("miss", &PageWatchState::miss),
        field("missedSince", &PageWatchState::missedSince),
        field("entityTag", &PageWatchState::entityTag),
        field("lastModified", &PageWatchState::lastModified),
    };
};

}  // namespace kit
