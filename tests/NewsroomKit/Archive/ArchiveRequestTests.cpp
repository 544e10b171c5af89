#include <gtest/gtest.h>

#include <limits>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>

#include "NewsroomKit/Archive/ArchiveFetch.h"
#include "NewsroomKit/Archive/StoryArchiveAPI.h"
#include "NewsroomKit/Archive/TraceAPI.h"
#include "tests/support/TestServer.h"

namespace kit {
namespace {

namespace asio = boost::asio;

/// "answer", or the failure's description.
template <class T>
std::string outcome(asio::awaitable<FetchResult<T>> fetch) {
    asio::io_context io;
    std::string text;
    asio::co_spawn(
        io,
        [](auto waited, std::string& place) -> asio::awaitable<void> {
            const auto result = co_await std::move(waited);
            place = result ? "answer" : result.error().description();
        }(std::move(fetch), text),
        [](const std::exception_ptr& failure) {
            if (failure) std::rethrow_exception(failure);
        });
    io.run();
    return text;
}

TEST(ArchiveAddresses, PeriodsAreSentInWholeSecondsWithTheFractionDropped) {
    const ArchiveAddresses addresses{"b/"};
    EXPECT_EQ(addresses.stories({1767225600.9, 1767312000}, 0, 50),
              "b/stories?after=1767225600&before=1767312000&offset=0&limit=50");
    EXPECT_EQ(addresses.stories({-86400.9, -0.5}, 100, 1),
              "b/stories?after=-86400&before=0&offset=100&limit=1");
    for (const double wrong : {std::numeric_limits<double>::infinity(), std::nan(""), -1e300}) {
        EXPECT_THROW(addresses.stories({wrong, 0}, 0, 1), UnsendableInstant) << wrong;
        EXPECT_THROW(addresses.stories({0, wrong}, 0, 1), UnsendableInstant) << wrong;
    }
}

TEST(ArchiveAddresses, OnlyTheCommasBetweenStoriesStayCommas) {
    EXPECT_EQ(ArchiveAddresses{"b/"}.credits(
                  {"https://z.example/1,2", "https://a.example/?q=a+b&c", "https://m.example/é"}),
              "b/credits?urls=https%3A%2F%2Fz.example%2F1%2C2,"
              "https%3A%2F%2Fa.example%2F%3Fq%3Da%2Bb%26c,https%3A%2F%2Fm.example%2F%C3%A9");
}

TEST(StoryArchiveAPI, EachOperationHasItsAddressAndAFailureIsTheClients) {
    test::TestServer harness;
    const StoryArchiveAPI archive{archiveBaseAt("https://desk.example//"), harness.client};
    const TraceAPI tracing{archive.base, harness.client};
    const std::string folder = "/wp-json/tb-archive/v1/";
    const std::string credits = R"({"credits":{},"pending":[]})";
    harness.script.on("desk.example", folder + "stories?after=1&before=2&offset=3&limit=4",
                      {{.body = R"({"total":0,"offset":3,"items":[]})"}});
    harness.script.on("desk.example", folder + "status",
                      {{.body = R"({"complete":true,"sources":[]})"}});
    harness.script.on("desk.example", folder + "credits?urls=a,b",
                      {{.body = credits + std::string(kArchiveByteLimit - credits.size(), ' ')},
                       {.body = credits + std::string(kArchiveByteLimit + 1 - credits.size(), ' ')},
                       {.status = 404}});
    harness.script.on("desk.example", folder + "trace?url=a",
                      {{.body = R"({"url":"a","nodes":[]})"}});
    EXPECT_EQ(outcome(archive.stories({1.5, 2}, 3, 4)), "answer");
    EXPECT_EQ(outcome(archive.status()), "answer");
    EXPECT_EQ(outcome(tracing.trace("a")), "answer");
    using Kind = HTTPClientError::Kind;
    EXPECT_EQ(outcome(archive.credits({"a", "b"})), "answer") << "the limit itself is allowed";
    for (const auto& error :
         {HTTPClientError{Kind::tooLarge}, HTTPClientError{Kind::status, 404}}) {
        EXPECT_EQ(outcome(archive.credits({"a", "b"})), description(error));
    }
    const StoryArchiveAPI insecure{archiveBaseAt("http://desk.example"), harness.client};
    EXPECT_EQ(outcome(insecure.status()), description(HTTPClientError{Kind::notHTTPS}));
}

}  // namespace
}  // namespace kit
