#include "NewsroomKit/Pages/VolatileBlocks.h"

#include <algorithm>
#include <set>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Pages/PageDiff.h"
#include "NewsroomKit/Pages/PageKeys.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::size_t mostVolatileBlocks = 100;
/// Of a short page a few blocks may be more than its share.
constexpr std::size_t fewVolatileBlocks = 3;
constexpr std::size_t leastStablePart = 3;  ///< one block in so many may be volatile
constexpr std::size_t longestSample = 120;

/// Names the places of blocks, one after another.
class BlockPlaces {
public:
    std::string placeOf(const PageBlock& block) const {
        PageBlock named{
            .kind = block.kind, .level = {}, .headings = {}, .text = anchor_, .links = {}};
        for (const auto& heading : block.headings) named.text += "\n" + heading;
        return fmt::format("{}/{}/{}", rawValue(block.kind), pageKeys({named}).key, offset_);
    }
    void passVolatile() { ++offset_; }
    void passStable(const PageBlock& block) {
        anchor_ = block.text;
        offset_ = 0;
    }

private:
    std::string anchor_;
    std::size_t offset_ = 0;  ///< volatile blocks since the anchor
};

std::set<std::string, std::less<>> placesOf(const std::vector<VolatileBlock>& blocks) {
    std::set<std::string, std::less<>> places;
    for (const auto& block : blocks) places.insert(block.place);
    return places;
}

void learn(const std::vector<PageBlock>& blocks, const std::set<std::size_t>& differing,
           std::vector<VolatileBlock>& known) {
    auto knownPlaces = placesOf(known);
    BlockPlaces places;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const auto place = places.placeOf(blocks[i]);
        if (!differing.contains(i) && !knownPlaces.contains(place)) {
            places.passStable(blocks[i]);
            continue;
        }
        places.passVolatile();
        if (!knownPlaces.insert(place).second) continue;
        known.push_back({place, std::string(firstCharacters(blocks[i].text, longestSample))});
    }
}

}  // namespace

std::vector<PageBlock> withoutVolatile(const std::vector<PageBlock>& blocks,
                                       const std::vector<VolatileBlock>& volatileBlocks) {
    if (volatileBlocks.empty()) return blocks;
    const auto known = placesOf(volatileBlocks);
    std::vector<PageBlock> stable;
    BlockPlaces places;
    for (const auto& block : blocks) {
        if (known.contains(places.placeOf(block))) {
            places.passVolatile();
            continue;
        }
        places.passStable(block);
        stable.push_back(block);
    }
    return stable;
}

std::optional<std::vector<VolatileBlock>> learnedVolatile(const std::vector<PageBlock>& first,
                                                          const std::vector<PageBlock>& second,
                                                          std::vector<VolatileBlock> known) {
    std::set<std::size_t> inFirst, inSecond;
    for (const auto& change : comparePages(first, second).changes) {
        if (change.kind == PageChange::Kind::links) continue;
        if (change.before) inFirst.insert(*change.before);
        if (change.after) inSecond.insert(*change.after);
    }
    const auto most = std::max(fewVolatileBlocks, second.size() / leastStablePart);
    if (std::max(inFirst.size(), inSecond.size()) > most) return std::nullopt;
    learn(first, inFirst, known);
    learn(second, inSecond, known);
    if (known.size() > mostVolatileBlocks) return std::nullopt;
    return known;
}

}  // namespace kit
