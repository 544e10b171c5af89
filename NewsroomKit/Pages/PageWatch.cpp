#include "NewsroomKit/Pages/PageWatch.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Pages/PageKeys.h"
#include "NewsroomKit/Pages/PageReader.h"
#include "NewsroomKit/Pages/StatedDate.h"
#include "NewsroomKit/Text/Unicode.h"

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
constexpr double intervalSpread = 0.1;

PageMiss missOf(PageProblem problem) {
    switch (problem) {
        case PageProblem::blocked: return PageMiss::blocked;
        case PageProblem::notHTML: return PageMiss::notHTML;
        case PageProblem::tooShort: return PageMiss::tooShort;
        case PageProblem::tooLarge: return PageMiss::tooLarge;
    }
    return PageMiss::notHTML;
}

std::string pageHost(std::string_view url) {
    const auto address = WebAddress::parse(url);
    return address ? address->host : std::string();
}

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
        const PageAnswer answer{.bytes = visit_.bytes,
                                .url = visit_.url,
                                .contentType = visit_.contentType,
                                .status = visit_.status};
        if (visit_.status != 200 && problemOf(answer) != PageProblem::blocked)
            return missed(PageMiss::badStatus);
        auto page = readPage(answer);
        if (!page) return missed(missOf(page.error()));
        read(std::move(page).value());
        if (state_.rules != pageRulesVersion) return beginAnew();
        if (host_ != state_.host) return missed(PageMiss::otherHost);
        const bool hasLanguages = !language_.empty() && !state_.language.empty();
        if (hasLanguages && language_ != state_.language) return missed(PageMiss::otherLanguage);
        // 2. The current text, if in another order.
        if (keys_.key == state_.key) return unchanged();
        if (keys_.orderKey == state_.orderKey) return reordered();
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
        if (day_ && state_.statedDay && *day_ < *state_.statedDay)
            return isBelieved() ? accept(OutcomeKind::changed) : ofKind(OutcomeKind::doubted);
        state_.doubted.reset();
        // 4. Anything else has to be seen twice in a row.
        return confirm();
    }

private:
    void read(Page page) {
        blocks_ = std::move(page.blocks);
        language_ = lowercasedASCII(page.language);
        host_ = pageHost(visit_.url);
        compare();
        day_ = statedDay(stable_);
    }

    /// With the volatile blocks that are known now.
    void compare() {
        stable_ = withoutVolatile(blocks_, state_.volatileBlocks);
        keys_ = pageKeys(stable_);
    }

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
        state_.key = keys_.key;
        state_.orderKey = keys_.orderKey;
        state_.statedDay = day_;
        state_.host = host_;
        state_.language = language_;
        watch_.blocks = blocks_;
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
        state_.lengths.push_back(length());
        if (state_.lengths.size() > mostLengths) state_.lengths.erase(state_.lengths.begin());
    }

    std::int64_t length() const {
        std::size_t bytes = 0;
        for (const auto& block : stable_) bytes += block.text.size();
        return static_cast<std::int64_t>(bytes);
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

    PageOutcome reordered() {
        rememberCurrent();
        becomeCurrent();
        return ofKind(OutcomeKind::order);
    }

    bool isShrunk() const {
        return !state_.lengths.empty() &&
               static_cast<double>(length()) <
                   leastTextLeft * static_cast<double>(median(state_.lengths));
    }

    const PageStateKey* earlierState() const {
        const auto found = std::ranges::find(state_.earlier, keys_.key, &PageStateKey::key);
        return found == state_.earlier.end() ? nullptr : &*found;
    }

    bool isBelieved() {
        state_.candidate.reset();
        watch_.candidate.clear();
        if (!state_.doubted || state_.doubted->key != keys_.key) {
            state_.doubted = {keys_.key, visit_.at};
            return false;
        }
        return visit_.at - state_.doubted->seenAt >= beliefTime;
    }

    void rememberCurrent() {
        std::erase_if(state_.earlier, [&](const auto& known) { return known.key == state_.key; });
        state_.earlier.insert(state_.earlier.begin(), {state_.key, state_.unchangedAt});
        if (state_.earlier.size() > mostEarlierStates) state_.earlier.pop_back();
    }

    PageOutcome accept(OutcomeKind kind) {
        PageOutcome outcome;
        outcome.kind = kind;
        outcome.before = withoutVolatile(watch_.blocks, state_.volatileBlocks);
        outcome.after = stable_;
        outcome.dayBefore = state_.statedDay;
        outcome.unchangedAt = state_.unchangedAt;
        outcome.seenAt = visit_.at;
        if (state_.candidate) outcome.seenAt = state_.candidate->firstSeen;
        if (state_.doubted) outcome.seenAt = state_.doubted->seenAt;
        rememberCurrent();
        std::erase_if(state_.earlier, [&](const auto& known) { return known.key == keys_.key; });
        becomeCurrent();
        state_.seenAt = outcome.seenAt;
        return outcome;
    }

    PageOutcome confirm() {
        auto& candidate = state_.candidate;
        if (candidate && candidate->key == keys_.key) return accept(OutcomeKind::changed);
        // A page that differs each time has been read, but not understood.
        if (state_.miss != PageMiss::unstable) clearMisses();
        const bool isClose = candidate && visit_.at - candidate->lastSeen <= closeFetches;
        if (isClose && candidate->fetches + 1 >= fetchesToLearn) return learn();
        setCandidate(candidate ? candidate->firstSeen : visit_.at,
                     isClose ? candidate->fetches + 1 : 1);
        return ofKind(OutcomeKind::candidate);
    }

    void setCandidate(Instant firstSeen, std::int64_t fetches) {
        state_.candidate = {keys_.key, firstSeen, visit_.at, fetches};
        watch_.candidate = blocks_;
    }

    PageOutcome learn() {
        auto learned = learnedVolatile(watch_.candidate, blocks_, state_.volatileBlocks);
        const auto firstSeen = state_.candidate->firstSeen;
        state_.candidate.reset();
        watch_.candidate.clear();
        if (!learned || *learned == state_.volatileBlocks) return missed(PageMiss::unstable);
        state_.volatileBlocks = std::move(*learned);
        const auto current = pageKeys(withoutVolatile(watch_.blocks, state_.volatileBlocks));
        state_.key = current.key;
        state_.orderKey = current.orderKey;
        compare();
        if (keys_.key == state_.key) {
            settle();
        } else {
            setCandidate(firstSeen, 1);
        }
        return ofKind(OutcomeKind::learned);
    }

    PageWatch& watch_;
    PageWatchState& state_;
    const PageVisit& visit_;
    std::vector<PageBlock> blocks_;
    std::vector<PageBlock> stable_;
    PageKeys keys_;
    std::optional<Instant> day_;
    std::string host_;
    std::string language_;
};

}  // namespace

PageOutcome applyVisit(PageWatch& watch, const PageVisit& visit) {
    return PageLook(watch, visit).decide();
}

void applyRules(PageWatch& watch, const PageVisit& stored) {
    auto page =
        readPageText({.bytes = stored.bytes, .url = stored.url, .contentType = stored.contentType});
    watch.blocks = std::move(page.blocks);
    const auto stable = withoutVolatile(watch.blocks, watch.state.volatileBlocks);
    const auto keys = pageKeys(stable);
    watch.state.key = keys.key;
    watch.state.orderKey = keys.orderKey;
    watch.state.statedDay = statedDay(stable);
    watch.state.rules = pageRulesVersion;
    // Keys of other rules are never met again.
    watch.state.earlier.clear();
    watch.state.doubted.reset();
    watch.state.candidate.reset();
    watch.candidate.clear();
    watch.state.lengths.clear();
}

void forgetVolatile(PageWatch& watch, std::string_view place) {
    std::erase_if(watch.state.volatileBlocks,
                  [&](const auto& block) { return block.place == place; });
    // The next text, whatever it says, is the baseline.
    watch.state.rules = 0;
    watch.state.entityTag.reset();
    watch.state.lastModified.reset();
}

Instant nextLook(const PageWatchState& state, Instant lookedAt, std::chrono::minutes interval,
                 double spread) {
    using std::chrono::seconds;
    if (state.candidate) return lookedAt + seconds(240 + std::llround(60 * spread));
    const auto pause = std::chrono::duration_cast<seconds>(interval).count();
    return lookedAt +
           seconds(std::llround(static_cast<double>(pause) * (1 + intervalSpread * spread)));
}

}  // namespace kit
