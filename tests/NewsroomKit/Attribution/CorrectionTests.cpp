#include <gtest/gtest.h>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Clusters/ClusterOverlay.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "tests/NewsroomKit/Attribution/AttributionSamples.h"

namespace kit {
namespace {

using Kind = Correction::Kind;
using Instead = Correction::Instead;

Correction made(int at, Kind kind, std::vector<std::string> stories, Instead instead = {}) {
    return {.id = "c" + std::to_string(at),
            .kind = kind,
            .stories = std::move(stories),
            .instead = std::move(instead),
            .madeAt = minute(at)};
}

TEST(CorrectionOverlay, GivesTheLatestLabelAndCreditToAStory) {
    const CorrectionOverlay overlay(std::vector{
        made(3, Kind::label, {"a"}, {.sourcing = Sourcing::confirmed}),
        made(1, Kind::label, {"a", "b"}, {.kind = StoryKind::review, .sourcing = Sourcing::rumor}),
        made(2, Kind::label, {"b"}, {.kind = StoryKind::deal, .sourcing = Sourcing::report}),
        made(4, Kind::credit, {"a"}, {.name = "bloomberg news"}),
        made(5, Kind::credit, {"b"}, {.name = "Bloomberg", .by = "Wired"}),
        made(6, Kind::credit, {"b"}, {.name = "Wired", .by = "Reuters"}),
        made(7, Kind::label, {"gone"}, {.sourcing = Sourcing::rumor}),
    });
    std::string text;
    for (const std::string id : {"a", "b", "c"}) {
        Story story = crediting(toldBy("MacRumors", id, minute(0)), "Bloomberg");
        overlay.applyTo(story);
        text += id + " " + std::string(rawValue(story.kind)) + " " +
                std::string(rawValue(story.sourcing));
        for (const auto& credit : story.credits) text += " " + credit.name;
        text += overlay.changes(id) ? "; " : " unchanged";
    }
    EXPECT_EQ(text,
              "a review confirmed; b deal report Reuters; c coverage rumor Bloomberg unchanged");
    EXPECT_TRUE(overlay.overruled().empty()) << "the first label still gives a its kind";
}

TEST(CorrectionOverlay, NeverJoinsWhatALaterCorrectionKeepsApart) {
    struct Case {
        const char* what;
        std::vector<Correction> corrections;
        std::string expected;
    };
    const Case cases[] = {
        {"a chain of joins",
         {made(1, Kind::same, {"a", "c"}), made(2, Kind::same, {"c", "e"})},
         "abcdef"},
        {"a story that is split off", {made(1, Kind::notSame, {"b", "a"})}, "cd ef"},
        {"alone, whatever was joined before",
         {made(1, Kind::same, {"e", "c"}), made(2, Kind::notSame, {"e"})},
         "ab cd, overruled c1"},
        {"apart, then joined",
         {made(1, Kind::notSame, {"a", "b"}), made(2, Kind::same, {"a", "b"})},
         "ab cd ef, overruled c1"},
        {"joined in a circle that a later word opens",
         {made(1, Kind::same, {"a", "c"}), made(2, Kind::same, {"c", "e"}),
          made(3, Kind::notSame, {"a", "e"})},
         "ab cdef, overruled c1"},
        {"equally late: the later in the list",
         {made(1, Kind::same, {"a", "c"}), made(1, Kind::notSame, {"a", "c"})},
         "ab cd ef, overruled c1"},
        {"stories that are not there", {made(1, Kind::same, {"x", "y"})}, "ab cd ef"},
    };
    const Instant times[]{minute(1), minute(2), minute(3), minute(4), minute(5), minute(6)};
    const StoryTimes timeOf = [&](const std::string& id) {
        return id < "g" ? &times[id[0] - 'a'] : nullptr;
    };
    for (auto c : cases) {
        const CorrectionOverlay overlay(c.corrections);
        std::string text;
        std::vector<StoryCluster> clusters;
        for (const char* ids : {"ab", "cd", "ef"}) {
            clusters.push_back(
                {.id = {ids[0]}, .storyIDs = {{ids[0]}, {ids[1]}}, .whys = {"", ""}});
        }
        applyOverrides({.joined = overlay.joined(), .apart = overlay.apart()}, timeOf, clusters);
        for (const auto& cluster : clusters) {
            text += (text.empty() ? "" : " ");
            for (const auto& id : cluster.storyIDs) text += id;
        }
        for (const auto& id : overlay.overruled()) text += ", overruled " + id;
        EXPECT_EQ(text, c.expected) << c.what;
    }
}

TEST(Correction, SaysWhatIsMissing) {
    const std::pair<Correction, const char*> cases[] = {
        {made(1, Kind::label, {}, {.sourcing = Sourcing::rumor}), "stories"},
        {made(1, Kind::label, {"a"}), "instead"},
        {made(1, Kind::same, {"a", "a"}), "stories"},
        {made(1, Kind::first, {"a"}, {.outlet = " "}), "instead.outlet"},
        {made(1, Kind::credit, {"a"}), "instead.name"},
        {made(1, Kind::notSame, {"a", std::string(3'000, 'b')}), "stories"},
    };
    for (const auto& [correction, path] : cases) {
        try {
            requireSound(correction);
            ADD_FAILURE() << path;
        } catch (const RecordError& error) {
            EXPECT_EQ(error.path(), path);
        }
    }
    const auto read = decode<Correction>(parseJSON(
        R"({"id":"1","kind":"first","stories":["a"],"instead":{"outlet":"Wired","at":60},)"
        R"("note":null,"madeAt":90,"more":1})"));
    EXPECT_NO_THROW(requireSound(read));
    EXPECT_EQ(decode<Correction>(encode(read)), read);
}

}  // namespace
}  // namespace kit
