#include <gtest/gtest.h>

#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>

#include "NewsroomKit/Trackers/SignalsAPI.h"
#include "tests/support/TestServer.h"

namespace kit {
namespace {

namespace asio = boost::asio;

template <class T>
asio::awaitable<void> keep(asio::awaitable<FetchResult<T>> fetch,
                           std::optional<FetchResult<T>>& place) {
    place = co_await std::move(fetch);
}

template <class T>
FetchResult<T> outcome(asio::awaitable<FetchResult<T>> fetch) {
    asio::io_context io;
    std::optional<FetchResult<T>> place;
    asio::co_spawn(io, keep(std::move(fetch), place), [](const std::exception_ptr& failure) {
        if (failure) std::rethrow_exception(failure);
    });
    io.run();
    return std::move(place).value();
}

TEST(SignalsAPI, EachIsAskedForAtItsHostAndRefusedAboveSixMebibytes) {
    test::TestServer bench;
    const SignalsAPI api{bench.client};
    const std::string device = R"({"name":"iPhone","firmwares":[]})";
    bench.script.on("api.ipsw.me", "/v4/device/iPhone17,3?type=ipsw", {{.body = device}});
    bench.script.on("api.ipsw.me", "/v4/device/a%2Fb%3Fc?type=ipsw",
                    {{.body = device + std::string(SignalsAPI::kByteLimit, ' ')}});
    bench.script.on("gdmf.apple.com", "/v2/pmv", {{.body = R"({"PublicAssetSets":{}})"}});
    bench.script.on("rss.marketingtools.apple.com", "/api/v2/us/apps/top-paid/25/apps.json",
                    {{.body = R"({"feed":{"results":[]}})"}});
    EXPECT_EQ(outcome(api.signingStatus("iPhone17,3")).value().name, "iPhone");
    EXPECT_TRUE(outcome(api.updateOffers()).has_value());
    EXPECT_TRUE(outcome(api.chart(AppStoreCharts::Kind::topPaid)).has_value());
    const auto large = outcome(api.signingStatus("a/b?c"));
    ASSERT_TRUE(large.has_error());
    EXPECT_EQ(large.error(), FetchError(HTTPClientError{.kind = HTTPClientError::Kind::tooLarge}));
    EXPECT_TRUE(outcome(api.chart(AppStoreCharts::Kind::topFree)).has_error());
}

}  // namespace
}  // namespace kit
