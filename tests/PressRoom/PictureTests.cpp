#include <gtest/gtest.h>

#include <set>

#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

TEST(Pictures, EveryPictureOfTheSampleIsServedUnlessItIsMissing) {
    const auto sources = sampleWorld();
    const SteeredWorld world(sources);
    std::set<std::string> bodies;
    for (const auto& source : sources) {
        for (const auto& story : source.stories) {
            if (!story.picture) continue;
            const auto answer = world.get(story.picture->url);
            EXPECT_EQ(answer.status == 404, story.picture->missing.value_or(false));
            if (answer.status != 200) continue;
            EXPECT_TRUE(answer.body.starts_with("\x89PNG\r\n\x1a\n")) << story.picture->url;
            bodies.insert(answer.body);
        }
    }
    EXPECT_GT(bodies.size(), 15);
}

TEST(Pictures, AnAppHasAnIcon) {
    const SteeredWorld world(sampleWorld());
    const auto icon = world.get("https://is1-ssl.mzstatic.com/image/thumb/1/100x100bb.png");
    EXPECT_EQ(icon.status, 200);
    EXPECT_NE(icon.body,
              world.get("https://is1-ssl.mzstatic.com/image/thumb/2/100x100bb.png").body);
}

}  // namespace
}  // namespace pressroom::testing
