#include <gtest/gtest.h>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Stories/StoryJSON.h"

namespace kit {
namespace {

Instant at(const char* text) { return parseISO8601(text).value(); }

Story sampleStory() {
    return {.id = "af63",
            .link = "https://example.com/a",
            .title = "A title",
            .summary = "",
            .publishedAt = at("2026-11-02T08:30:00.25Z"),
            .sourceID = "example",
            .sourceName = "Example",
            .kind = StoryKind::advertisement,
            .sourcing = Sourcing::onRecord,
            .credits = {{.kind = SourceCredit::Kind::post, .platform = "Bluesky", .name = "@a"}}};
}

TEST(Codec, AStoryIsWrittenInFieldOrderWithoutItsAbsentValues) {
    EXPECT_EQ(
        json::serialize(encode(sampleStory())),
        R"({"id":"af63","link":"https://example.com/a","title":"A title","summary":"",)"
        R"("publishedAt":"2026-11-02T08:30:00.25Z","sourceID":"example",)"
        R"("sourceName":"Example","isAppleSource":false,"kind":"advertisement",)"
        R"("sourcing":"onRecord","credits":[{"kind":"post","platform":"Bluesky","name":"@a"}]})");
}

TEST(Codec, BothDateStylesReadBackEqual) {
    Story story = sampleStory();
    story.author = "Nadia";
    story.wordpressID = -7;
    story.articleLink = "https://example.com/real";
    for (auto style : {DateStyle::iso8601, DateStyle::secondsSince1970}) {
        const auto text = json::serialize(encode(story, style));
        EXPECT_EQ(decode<Story>(parseJSON(text)), story) << text;
        EXPECT_EQ(decode<Story>(parseJSON("\xEF\xBB\xBF" + text)), story) << text;
    }
}

TEST(Codec, WholeNumbersAreWrittenPlainly) {
    EXPECT_EQ(json::serialize(numberValue(600)), "600");
    EXPECT_EQ(json::serialize(numberValue(-1e15)), "-1000000000000000");
    EXPECT_EQ(json::parse(json::serialize(numberValue(0.5))).get_double(), 0.5);
}

TEST(Codec, NullMeansAbsentOnlyForOptionalKeys) {
    auto value = encode(sampleStory());
    value.get_object()["author"] = nullptr;
    EXPECT_FALSE(decode<Story>(value).author);
    value.get_object()["title"] = nullptr;
    EXPECT_THROW(decode<Story>(value), RecordError);
}

TEST(Codec, AFaultIsNamedByItsPath) {
    struct Case {
        const char* key;
        json::value replacement;
        const char* message;
    };
    const Case cases[] = {
        {"isAppleSource", 1, "isAppleSource: true or false is expected"},
        {"kind", "gossip", "kind: unknown value \"gossip\""},
        {"publishedAt", "last Tuesday", "publishedAt: Unreadable date last Tuesday"},
        {"wordpressID", 1.5, "wordpressID: a whole number is expected"},
        {"credits", json::array{json::object{{"kind", "post"}}},
         "credits[0].name: the key is missing"},
    };
    for (const auto& c : cases) {
        auto value = encode(sampleStory());
        value.get_object()[c.key] = c.replacement;
        try {
            decode<Story>(value);
            ADD_FAILURE() << c.key << " was accepted";
        } catch (const RecordError& error) {
            EXPECT_STREQ(error.what(), c.message);
        }
    }
}

}  // namespace
}  // namespace kit
