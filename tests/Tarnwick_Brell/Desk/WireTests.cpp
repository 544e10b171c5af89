#include <gtest/gtest.h>

#include <random>
#include <set>

#include "Tarnwick_Brell/Desk/Wire.h"

namespace app {
namespace {

StoredStory stored(std::int64_t number, const std::string& title = "T") {
    return {.story = {.id = "id" + std::to_string(number), .link = "l", .title = title},
            .number = number};
}

Wire::Batch batch(const std::vector<StoredStory>& stories) {
    Wire::Batch packed;
    for (const auto& story : stories) packed.push_back(PackedStory::make(story));
    return packed;
}

std::string text(const Wire& wire) {
    std::string numbers;
    for (std::size_t i = 0; i < wire.size(); ++i) {
        numbers += std::to_string(wire[i].number()) + wire[i].title().data()[0] + " ";
    }
    return numbers;
}

TEST(PackedStory, EveryFieldComesBack) {
    StoredStory full{.number = -7, .firstSeen = kit::Instant(std::chrono::seconds(9))};
    full.story = {.id = "1f",
                  .link = "https://a.example/",
                  .title = std::string("nul\0inside", 10),
                  .summary = "",
                  .author = "",
                  .publishedAt = kit::Instant(std::chrono::microseconds(-3)),
                  .imageURL = "https://a.example/p",
                  .sourceID = "a",
                  .sourceName = "A",
                  .destinationName = std::nullopt,
                  .isAppleSource = true,
                  .kind = kit::StoryKind::post,
                  .sourcing = kit::Sourcing::rumor,
                  .wordpressID = 0,
                  .articleLink = "https://b.example/",
                  .credits = {{.name = "B", .detail = "via"}}};
    full.arrival = Arrival::bulk;
    // Around the size from which the places of texts take more than 16 bits.
    for (const std::size_t size : {0u, 65'000u, 65'473u, 65'474u, 65'475u, 200'000u}) {
        full.story.summary = std::string(size, 's');
        const auto packed = PackedStory::make(full);
        const auto back = packed->unpacked();
        EXPECT_EQ(back.story, full.story) << size;
        EXPECT_EQ(back.number, -7);
        EXPECT_EQ(back.firstSeen, full.firstSeen);
        EXPECT_EQ(back.arrival, Arrival::bulk);
    }
}

TEST(Wire, ChangesTellExactlyWhatListsMustDo) {
    Wire wire;
    EXPECT_TRUE(wire.replace(batch({stored(10), stored(30), stored(20)})).isReset);
    const auto change =
        wire.merge(batch({stored(5), stored(20, "Revised"), stored(40), stored(25)}));
    EXPECT_EQ(text(wire), "40T 30T 25T 20R 10T 5T ");
    EXPECT_EQ(change.inserted, (std::vector<std::size_t>{0, 2, 5}));
    EXPECT_EQ(change.revised, std::vector<std::size_t>{3});
    EXPECT_EQ(wire.find("id25"), &wire[2]);

    wire.setSaved({10}, true);
    EXPECT_EQ(wire.drop(25, 100).removed, (std::vector<std::size_t>{5, 3}));
    EXPECT_EQ(text(wire), "40T 30T 25T 10T ");
    EXPECT_EQ(wire.find("id5"), nullptr);
    EXPECT_EQ(wire.drop(0, 2).removed, (std::vector<std::size_t>{2, 1}));
    EXPECT_EQ(text(wire), "40T 10T ");
    EXPECT_TRUE(wire.drop(0, 2).isEmpty());
}

TEST(Wire, CountsFollowMarksThroughEveryChange) {
    Wire wire;
    wire.replace(batch({stored(1), stored(2), stored(3)}));
    EXPECT_EQ(wire.setSaved({1, 2, 9}, true), (std::vector<std::int64_t>{1, 2}));
    EXPECT_EQ(wire.setSaved({2, 3}, true), std::vector<std::int64_t>{3});
    EXPECT_EQ(wire.savedCount(), 3u);
    wire.merge(batch({stored(2), stored(4)}));
    EXPECT_EQ(wire.savedCount(), 2u) << "the newer state of 2 is not saved";
    EXPECT_EQ(wire.setSaved({3}, false), std::vector<std::int64_t>{3});
    EXPECT_EQ(wire.savedCount(), 1u);
}

TEST(Wire, RandomBatchesAgreeWithASortedSet) {
    std::mt19937 random(7);
    Wire wire;
    std::set<std::int64_t, std::greater<>> expected;
    for (int round = 0; round < 200; ++round) {
        std::vector<StoredStory> fresh;
        std::set<std::int64_t> picked;
        for (auto i = random() % 20; i > 0; --i) {
            picked.insert(static_cast<std::int64_t>(random() % 500));
        }
        for (const auto number : picked) fresh.push_back(stored(number));
        expected.insert(picked.begin(), picked.end());
        wire.merge(batch(fresh));
        if (round % 10 == 0) {
            const auto lowest = static_cast<std::int64_t>(random() % 50);
            wire.drop(lowest, 300);
            while (!expected.empty() && (*expected.rbegin() < lowest || expected.size() > 300)) {
                expected.erase(std::prev(expected.end()));
            }
        }
        ASSERT_EQ(wire.size(), expected.size());
        std::size_t place = 0;
        for (const auto number : expected) {
            ASSERT_EQ(wire[place].number(), number);
            ASSERT_EQ(wire.placeOf(number), place);
            ++place;
        }
    }
}

}  // namespace
}  // namespace app
