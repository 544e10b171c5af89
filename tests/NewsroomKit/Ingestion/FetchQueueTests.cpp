#include <gtest/gtest.h>

#include "NewsroomKit/Ingestion/FetchQueue.h"

namespace kit {
namespace {

NewsSource at(std::string feed) { return {.id = feed, .feedURL = feed}; }

std::string takenFrom(FetchQueue& queue) {
    const auto source = queue.next();
    return source ? source->feedURL : "";
}

TEST(FetchQueue, AHostIsNeverCrowdedAndOthersDoNotWaitForIt) {
    FetchQueue queue({at("https://a.example/1"), at("https://a.example/2"),
                      at("https://A.example/3"), at("https://b.example/1")},
                     {.perHost = 2});
    EXPECT_EQ(takenFrom(queue), "https://a.example/1");
    EXPECT_EQ(takenFrom(queue), "https://a.example/2");
    EXPECT_EQ(takenFrom(queue), "https://b.example/1")
        << "the third of the busy host is passed over";
    EXPECT_EQ(takenFrom(queue), "") << "what is left waits";
    EXPECT_FALSE(queue.isEmpty());
    queue.finished(at("https://b.example/1"));
    EXPECT_EQ(takenFrom(queue), "");
    queue.finished(at("https://a.example/2"));
    EXPECT_EQ(takenFrom(queue), "https://A.example/3");
    EXPECT_TRUE(queue.isEmpty());
}

TEST(FetchQueue, RedditIsAskedOneAtATimeUnderAllItsNames) {
    FetchQueue queue({at("https://www.reddit.com/r/a/.rss"), at("https://old.reddit.com/r/b/.rss")},
                     {});
    EXPECT_NE(takenFrom(queue), "");
    EXPECT_EQ(takenFrom(queue), "");
}

}  // namespace
}  // namespace kit
