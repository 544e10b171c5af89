#include "NewsroomKit/Pages/PageWatch.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "NewsroomKit/Pages/PageKeys.h"
#include "NewsroomKit/Pages/PageReader.h"
#include "NewsroomKit/Pages/StatedDate.h"

namespace kit {
namespace {

constexpr double intervalSpread = 0.1;

/// Reads the current revision without what is left out now.
void updateCurrentKeys(PageWatch& watch) {
    const auto stable = withoutVolatile(watch.blocks, watch.state.volatileBlocks);
    const auto keys = pageKeys(stable);
    watch.state.key = keys.key;
    watch.state.orderKey = keys.orderKey;
    watch.state.linksKey = linksKey(stable);
    watch.state.statedDay = statedDay(stable);
}

/// The next text, whatever it says, is the baseline.
void beginAnew(PageWatchState& state) {
    state.rules = 0;
    state.entityTag.reset();
    state.lastModified.reset();
}

}  // namespace

void applyRules(PageWatch& watch, const PageVisit& stored) {
    auto page =
        readPageText({.bytes = stored.bytes, .url = stored.url, .contentType = stored.contentType});
    watch.blocks = std::move(page.blocks);
    updateCurrentKeys(watch);
    watch.state.rules = pageRulesVersion;
    // Keys of other rules are never met again.
    watch.state.earlier.clear();
    watch.state.earlierLinks.clear();
    watch.state.doubted.reset();
    watch.state.candidate.reset();
    watch.candidate.clear();
    watch.state.lengths.clear();
}

void forgetVolatile(PageWatch& watch, std::string_view place) {
    std::erase_if(watch.state.volatileBlocks,
                  [&](const auto& block) { return block.place == place; });
    beginAnew(watch.state);
}

void restoreVolatile(PageWatch& watch, const VolatileBlock& block) {
    auto& known = watch.state.volatileBlocks;
    if (std::ranges::find(known, block.place, &VolatileBlock::place) != known.end()) return;
    known.push_back(block);
    // Texts that are compared with the block in them don't decide any more.
    watch.state.doubted.reset();
    watch.state.candidate.reset();
    watch.candidate.clear();
    if (watch.state.rules != 0) updateCurrentKeys(watch);
}

void updateEarlierKeys(PageWatchState& state, const std::vector<VolatileBlock>& leftOutBefore,
                       std::span<const std::vector<PageBlock>> texts) {
    std::map<std::string, std::string> renamed;
    for (const auto& text : texts) {
        renamed.emplace(pageKeys(withoutVolatile(text, leftOutBefore)).key,
                        pageKeys(withoutVolatile(text, state.volatileBlocks)).key);
    }
    for (auto& known : state.earlier) {
        const auto found = renamed.find(known.key);
        if (found != renamed.end()) known.key = found->second;
    }
    // Texts that differed in what is left out now alone are the current one.
    std::erase_if(state.earlier, [&](const auto& known) { return known.key == state.key; });
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
