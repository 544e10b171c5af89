#include <gtest/gtest.h>

#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Desk/StoryIntake.h"

namespace app {
namespace {

using kit::Story;

std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

const StoryTimes kAnyTime{kit::Instant::min(), kit::Instant::max()};

TEST(StoryIntake, TextsAreCutBetweenCharactersAndNothingHasMegabytes) {
    // A family is one character of 25 bytes, and one letter here has a hundred thousand accents.
    const std::string family = "👩‍👩‍👧‍👦",
                      accents = "e" + repeated("\u0301", 100'000);
    Story story{.link = "https://a.example/1",
                .title = repeated(family, 2500),
                .summary = accents,
                .author = accents,
                .imageURL = "https://a.example/" + std::string(1'000'000, 'x'),
                .sourceName = repeated("n", 500),
                .destinationName = repeated("d", 500)};
    story.credits.resize(80, {.name = accents, .detail = accents});
    story.credits[0].url = "https://a.example/" + std::string(1'000'000, 'x');
    const auto kept = storiesToStore({}, {story, {.title = accents}}, kAnyTime);
    EXPECT_EQ(kept[0].title, repeated(family, 2000));
    EXPECT_EQ(kept[0].sourceName.size(), 200u);
    EXPECT_EQ(kept[0].destinationName->size(), 200u);
    EXPECT_FALSE(kept[0].imageURL.has_value());
    EXPECT_EQ(kept[0].credits.size(), 50u);
    for (const auto* text : {&kept[0].summary, &*kept[0].author, &kept[0].credits[0].name,
                             &*kept[0].credits[0].detail, &kept[1].title}) {
        EXPECT_LE(text->size(), 65'536u);
        EXPECT_TRUE(kit::isValidUTF8(*text));
        EXPECT_TRUE(text->starts_with("e\u0301"));
    }
}

TEST(StoryIntake, AStoryThatNoBrowserCouldOpenIsLeftOut) {
    const auto link = [](std::size_t size) {
        return "https://a.example/" + std::string(size, 'x');
    };
    const auto kept = storiesToStore(
        {}, {{.link = link(1'000'000), .title = "No"}, {.link = link(2000), .title = "Yes"}},
        kAnyTime);
    ASSERT_EQ(kept.size(), 1u);
    EXPECT_EQ(kept[0].title, "Yes");
}

TEST(StoryIntake, NamesOfSourcesAreCutToo) {
    EXPECT_EQ(shortenedName(repeated("ü", 900)), repeated("ü", 200));
    EXPECT_EQ(shortenedName("Harbor Wire"), "Harbor Wire");
}

}  // namespace
}  // namespace app
