#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "Tarnwick_Brell/Desk/LiveQuery.h"

namespace app {
namespace {

using namespace std::chrono_literals;

constexpr auto kLeast = 0ns;  ///< one stride of a step

/// A wire whose stories come, change and go at random, and what a query should find in it.
class RandomWire {
public:
    explicit RandomWire(unsigned seed) : random_(seed) {}

    const Wire& wire() const { return wire_; }
    std::int64_t below(std::int64_t count) {
        return static_cast<std::int64_t>(random_() % static_cast<std::uint64_t>(count));
    }

    Wire::Batch stories(std::int64_t most) {
        std::map<std::int64_t, PackedStory::Owner> picked;
        for (auto left = below(most + 1); left > 0; --left) {
            const auto number = below(3000);
            picked[number] = PackedStory::make(StoredStory{
                .story = {.id = "id" + std::to_string(number),
                          .title = below(3) == 0 ? "An orchard grows" : "A harbour freezes",
                          .sourceID = below(4) == 0 ? "post" : "tide"},
                .number = number});
        }
        Wire::Batch batch;
        for (auto& [number, story] : picked) batch.push_back(std::move(story));
        return batch;
    }
    WireChange change() {
        switch (below(30)) {
            case 0: return wire_.replace(stories(2500));
            case 1: return wire_.drop(below(2000), 3000);
            case 2: return wire_.drop(0, static_cast<std::size_t>(1 + below(1500)));
            case 3: wire_.setSaved({below(3000), below(3000), below(3000)}, true); [[fallthrough]];
            default: return wire_.merge(stories(below(10) == 0 ? 1000 : 20));
        }
    }
    std::vector<std::int64_t> wanted() const {
        std::vector<std::int64_t> numbers;
        for (std::size_t i = 0; i < wire_.size(); ++i) {
            const auto& story = wire_[i];
            if (story.sourceID() == "tide" && story.title().starts_with("An orchard")) {
                numbers.push_back(story.number());
            }
        }
        return numbers;
    }

private:
    std::mt19937 random_;
    Wire wire_;
};

/// A list that knows of the changes only, as a window's list does.
void apply(const WireChange& change, const LiveQuery& live, std::vector<std::int64_t>& list) {
    if (change.isReset) list = live.numbers();
    ASSERT_TRUE(std::is_sorted(change.removed.rbegin(), change.removed.rend()));
    ASSERT_TRUE(std::is_sorted(change.inserted.begin(), change.inserted.end()));
    ASSERT_TRUE(std::is_sorted(change.revised.begin(), change.revised.end()));
    ASSERT_EQ(change.removed.size(), change.removedNumbers.size());
    for (std::size_t i = 0; i < change.removed.size(); ++i) {
        ASSERT_EQ(list.at(change.removed[i]), change.removedNumbers[i]);
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(change.removed[i]));
    }
    for (const auto place : change.inserted) {
        ASSERT_LE(place, list.size());
        list.insert(list.begin() + static_cast<std::ptrdiff_t>(place), live.numbers()[place]);
    }
}

TEST(LiveQuery, FollowsAnyChangesAlsoWhileItIsBeingFilled) {
    RandomWire random(3);
    LiveQuery live({.anyTerms = {"orchard"}, .sourceIDs = {"tide"}});
    std::vector<std::int64_t> list;
    apply(live.begin(), live, list);
    std::size_t whileFilling = 0, found = 0;
    for (int round = 0; round < 2000; ++round) {
        const auto change = random.change();
        const auto followed = live.follow(random.wire(), change);
        apply(followed, live, list);
        for (const auto place : followed.revised) {
            const auto inWire = random.wire().placeOf(live.numbers().at(place));
            ASSERT_EQ(std::count(change.revised.begin(), change.revised.end(), *inWire), 1);
        }
        ASSERT_EQ(list, live.numbers());
        if (live.isComplete()) {
            ASSERT_EQ(list, random.wanted());
            found += followed.isEmpty() ? 0U : 1U;
        } else {
            ++whileFilling;
            apply(live.continueFor(random.wire(), kLeast), live, list);
        }
    }
    EXPECT_GT(whileFilling, 200U);
    EXPECT_GT(found, 1000U);

    LiveQuery other({.anyTerms = {"orchard"}, .sourceIDs = {"tide"}});
    other.rebuild(random.wire());
    EXPECT_EQ(other.numbers(), random.wanted());
}

TEST(LiveQuery, TellsOfARevisedStoryWhetherItCameStayedOrLeft) {
    const auto titled = [](std::int64_t number, const char* title) {
        return PackedStory::make(StoredStory{
            .story = {.id = "id" + std::to_string(number), .title = title}, .number = number});
    };
    Wire wire;
    const auto merge = [&](const char* one, const char* two, const char* three) {
        Wire::Batch batch;
        batch.push_back(titled(1, one));
        batch.push_back(titled(2, two));
        batch.push_back(titled(3, three));
        return wire.merge(std::move(batch));
    };
    LiveQuery live({.anyTerms = {"orchard"}});
    live.rebuild(wire);
    live.follow(wire, merge("Orchard", "Orchard", "Harbour"));
    EXPECT_EQ(live.numbers(), (std::vector<std::int64_t>{2, 1}));
    const auto change = live.follow(wire, merge("Orchards", "Orchard again", "Orchard"));
    EXPECT_EQ(live.numbers(), (std::vector<std::int64_t>{3, 2}));
    EXPECT_EQ(change.removed, std::vector<std::size_t>{1});
    EXPECT_EQ(change.inserted, std::vector<std::size_t>{0});
    EXPECT_EQ(change.revised, std::vector<std::size_t>{1});
}

}  // namespace
}  // namespace app
