#include "NewsroomKit/Pages/PageWatch.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Pages/PageKeys.h"
#include "NewsroomKit/Pages/PageReader.h"
#include "NewsroomKit/Pages/VisitedText.h"

namespace kit {
namespace {

using OutcomeKind = PageOutcome::Kind;
using std::chrono::minutes;

constexpr std::size_t mostEarlierStates = 8;
constexpr std::size_t mostLengths = 5;
/// A page of which less than this is left was not sent whole.
constexpr double leastTextLeft = 0.4;
/// Servers are known to send old copies for two days, now and then.
constexpr std::chrono::hours beliefTime{24};
/// Looks that people ask for within a minute don't make a failure last.
constexpr std::chrono::hours failureTime{1};
/// So many fetches in a row that all differ show that a page differs each time.
constexpr std::int64_t fetchesToLearn = 3;
/// What differs between fetches further apart may be a change.
constexpr minutes closeFetches{15};
/// Begins the keys of states that differ in their links alone.
constexpr std::string_view linksPrefix = "links ";

std::int64_t median(std::vector<std::int64_t> numbers) {
    const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
    std::nth_element(numbers.begin(), middle, numbers.end());
    return *middle;
}

PageOutcome ofKind(OutcomeKind kind) {
    PageOutcome outcome;
    outcome.kind = kind;
    return outcome;
}

/// One look at one page.
class PageLook {
public:
    PageLook(PageWatch& watch, const PageVisit& visit)
        : watch_(watch), state_(watch.state), visit_(visit) {}

    PageOutcome decide() {
        // 1. What can't be read is no change.
        if (visit_.miss) return missed(*visit_.miss);
        if (visit_.isNotModified) return unchanged();
        auto text = readVisit(visit_, state_.volatileBlocks);
        if (!text) return missed(text.error());
        text_ = std::move(text).value();
        if (state_.rules != pageRulesVersion) return beginAnew();
        if (text_.host != state_.host) return missed(PageMiss::otherHost);
        const bool hasLanguages = !text_.language.empty() && !state_.language.empty();
        if (hasLanguages && text_.language != state_.language)
            return missed(PageMiss::otherLanguage);
        // 2. The current text, if in another order.
        if (text_.keys.key == state_.key) return withSameText();
        if (text_.keys.orderKey == state_.orderKey) return reordered();
        // 3. What is rather a server's mistake has to stay for a day.
        if (isShrunk())
            return isBelieved() ? accept(OutcomeKind::changed) : missed(PageMiss::shrunk);
        if (const auto* earlier = earlierState()) {
            if (!isBelieved()) return ofKind(OutcomeKind::doubted);
            const auto seenAt = earlier->seenAt;
            auto outcome = accept(OutcomeKind::returned);
            outcome.earlierSeenAt = seenAt;
            return outcome;
        }
        if (text_.statedDay && state_.statedDay && *text_.statedDay < *state_.statedDay)
            return isBelieved() ? accept(OutcomeKind::changed) : ofKind(OutcomeKind::doubted);
        state_.doubted.reset();
        // 4. Anything else has to be seen twice in a row.
        return confirm();
    }

private:
    PageOutcome missed(PageMiss miss) {
        if (state_.misses++ == 0) state_.missedSince = visit_.at;
        state_.miss = miss;
        auto outcome = ofKind(OutcomeKind::unreadable);
        outcome.miss = miss;
        // The log takes the signal of one failure once.
        outcome.isFailureNews = state_.misses >= kMissesToTell &&
                                visit_.at - state_.missedSince.value_or(visit_.at) >= failureTime;
        return outcome;
    }

    void clearMisses() {
        state_.misses = 0;
        state_.miss.reset();
        state_.missedSince.reset();
    }

    void becomeCurrent() {
        state_.rules = pageRulesVersion;
        state_.key = text_.keys.key;
        state_.orderKey = text_.keys.orderKey;
        state_.linksKey = text_.linksKey;
        state_.statedDay = text_.statedDay;
        state_.host = text_.host;
        state_.language = text_.language;
        watch_.blocks = text_.blocks;
        settle();
    }

    /// The current revision has been seen.
    void settle() {
        clearMisses();
        state_.unchangedAt = visit_.at;
        state_.doubted.reset();
        state_.candidate.reset();
        watch_.candidate.clear();
        if (visit_.isNotModified) return;
        state_.entityTag = visit_.entityTag;
        state_.lastModified = visit_.lastModified;
        state_.lengths.push_back(text_.length());
        if (state_.lengths.size() > mostLengths) state_.lengths.erase(state_.lengths.begin());
    }

    PageOutcome beginAnew() {
        becomeCurrent();
        state_.seenAt = visit_.at;
        return ofKind(OutcomeKind::baseline);
    }

    PageOutcome unchanged() {
        settle();
        return ofKind(OutcomeKind::unchanged);
    }

    /// Links that lead elsewhere are a change too, which is confirmed like any other.
    PageOutcome withSameText() {
        if (text_.linksKey == state_.linksKey || state_.hasVaryingLinks) return unchanged();
        const bool isEarlier = std::ranges::find(state_.earlierLinks, text_.linksKey,
                                                 &PageStateKey::key) != state_.earlierLinks.end();
        if (isEarlier)
            return isBelieved() ? accept(OutcomeKind::changed) : ofKind(OutcomeKind::doubted);
        state_.doubted.reset();
        return confirm();
    }

    /// The key of what differs from the current revision: its text, else its links.
    std::string differingKey() const {
        return text_.keys.key == state_.key ? fmt::format("{}{}", linksPrefix, text_.linksKey)
                                            : text_.keys.key;
    }

    PageOutcome reordered() {
        rememberCurrent();
        becomeCurrent();
        return ofKind(OutcomeKind::order);
    }

    bool isShrunk() const {
        return !state_.lengths.empty() &&
               static_cast<double>(text_.length()) <
                   leastTextLeft * static_cast<double>(median(state_.lengths));
    }

    const PageStateKey* earlierState() const {
        const auto found = std::ranges::find(state_.earlier, text_.keys.key, &PageStateKey::key);
        return found == state_.earlier.end() ? nullptr : &*found;
    }

    bool isBelieved() {
        state_.candidate.reset();
        watch_.candidate.clear();
        if (!state_.doubted || state_.doubted->key != differingKey()) {
            state_.doubted = {differingKey(), visit_.at};
            return false;
        }
        return visit_.at - state_.doubted->seenAt >= beliefTime;
    }

    static void forget(std::vector<PageStateKey>& states, const std::string& key) {
        std::erase_if(states, [&](const auto& known) { return known.key == key; });
    }

    void remember(std::vector<PageStateKey>& states, const std::string& key) const {
        forget(states, key);
        states.insert(states.begin(), {key, state_.unchangedAt});
        if (states.size() > mostEarlierStates) states.pop_back();
    }

    void rememberCurrent() {
        remember(state_.earlier, state_.key);
        remember(state_.earlierLinks, state_.linksKey);
    }

    PageOutcome accept(OutcomeKind kind) {
        PageOutcome outcome;
        outcome.kind = kind;
        outcome.before = withoutVolatile(watch_.blocks, state_.volatileBlocks);
        outcome.after = text_.stable;
        outcome.dayBefore = state_.statedDay;
        outcome.unchangedAt = state_.unchangedAt;
        outcome.seenAt = visit_.at;
        if (state_.candidate) outcome.seenAt = state_.candidate->firstSeen;
        if (state_.doubted) outcome.seenAt = state_.doubted->seenAt;
        rememberCurrent();
        forget(state_.earlier, text_.keys.key);
        forget(state_.earlierLinks, text_.linksKey);
        becomeCurrent();
        state_.seenAt = outcome.seenAt;
        return outcome;
    }

    PageOutcome confirm() {
        auto& candidate = state_.candidate;
        if (candidate && candidate->key == differingKey()) return accept(OutcomeKind::changed);
        // A page that differs each time has been read, but not understood.
        if (state_.miss != PageMiss::unstable) clearMisses();
        const bool isClose = candidate && visit_.at - candidate->lastSeen <= closeFetches;
        if (isClose && candidate->fetches + 1 >= fetchesToLearn) return learn();
        setCandidate(candidate ? candidate->firstSeen : visit_.at,
                     isClose ? candidate->fetches + 1 : 1);
        return ofKind(OutcomeKind::candidate);
    }

    void setCandidate(Instant firstSeen, std::int64_t fetches) {
        state_.candidate = {differingKey(), firstSeen, visit_.at, fetches};
        watch_.candidate = text_.blocks;
    }

    PageOutcome learn() {
        if (text_.keys.key == state_.key) return learnLinks();
        auto learned = learnedVolatile(watch_.candidate, text_.blocks, state_.volatileBlocks);
        const auto firstSeen = state_.candidate->firstSeen;
        state_.candidate.reset();
        watch_.candidate.clear();
        if (!learned || *learned == state_.volatileBlocks) return missed(PageMiss::unstable);
        state_.volatileBlocks = std::move(*learned);
        const auto current = pageKeys(withoutVolatile(watch_.blocks, state_.volatileBlocks));
        state_.key = current.key;
        state_.orderKey = current.orderKey;
        state_.linksKey = linksKey(withoutVolatile(watch_.blocks, state_.volatileBlocks));
        text_.leaveOut(state_.volatileBlocks);
        if (text_.keys.key == state_.key) {
            settle();
        } else {
            setCandidate(firstSeen, 1);
        }
        return ofKind(OutcomeKind::learned);
    }

    PageOutcome learnLinks() {
        // A text that came and went in between says nothing of the links.
        if (!state_.candidate->key.starts_with(linksPrefix)) {
            setCandidate(state_.candidate->firstSeen, 1);
            return ofKind(OutcomeKind::candidate);
        }
        state_.hasVaryingLinks = true;
        settle();
        return ofKind(OutcomeKind::learned);
    }

    PageWatch& watch_;
    PageWatchState& state_;
    const PageVisit& visit_;
    VisitedText text_;
};

}  // namespace

PageOutcome applyVisit(PageWatch& watch, const PageVisit& visit) {
    return PageLook(watch, visit).decide();
}

}  // namespace kit
