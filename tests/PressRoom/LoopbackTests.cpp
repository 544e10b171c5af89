#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <curl/curl.h>

#include "PressRoom/Server/Server.h"
#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

struct Answer {
    long status = 0;
    std::string body;     ///< decoded
    std::string headers;  ///< as received
    curl_off_t wireBytes = 0;
};

std::size_t append(char* bytes, std::size_t, std::size_t count, void* text) {
    static_cast<std::string*>(text)->append(bytes, count);
    return count;
}

/// One request over TLS with verification on, every host being the server on loopback.
class Reader {
public:
    explicit Reader(const Server& server)
        : route_("::127.0.0.1:" + std::to_string(server.port())),
          authority_(folder_.path() / "authority.pem") {
        server.writeAuthority(authority_);
    }

    Answer get(const std::string& address, const std::string& header = "") const {
        const std::unique_ptr<CURL, void (*)(CURL*)> curl(curl_easy_init(), curl_easy_cleanup);
        const std::unique_ptr<curl_slist, void (*)(curl_slist*)> route(
            curl_slist_append(nullptr, route_.c_str()), curl_slist_free_all);
        const std::unique_ptr<curl_slist, void (*)(curl_slist*)> headers(
            header.empty() ? nullptr : curl_slist_append(nullptr, header.c_str()),
            curl_slist_free_all);
        Answer answer;
        curl_easy_setopt(curl.get(), CURLOPT_URL, address.c_str());
        curl_easy_setopt(curl.get(), CURLOPT_CONNECT_TO, route.get());
        curl_easy_setopt(curl.get(), CURLOPT_CAINFO, authority_.c_str());
        curl_easy_setopt(curl.get(), CURLOPT_HTTPHEADER, headers.get());
        curl_easy_setopt(curl.get(), CURLOPT_ACCEPT_ENCODING, "gzip");
        curl_easy_setopt(curl.get(), CURLOPT_FOLLOWLOCATION, 1L);
        curl_easy_setopt(curl.get(), CURLOPT_TIMEOUT, 20L);
        curl_easy_setopt(curl.get(), CURLOPT_WRITEFUNCTION, append);
        curl_easy_setopt(curl.get(), CURLOPT_WRITEDATA, &answer.body);
        curl_easy_setopt(curl.get(), CURLOPT_HEADERFUNCTION, append);
        curl_easy_setopt(curl.get(), CURLOPT_HEADERDATA, &answer.headers);
        EXPECT_EQ(curl_easy_perform(curl.get()), CURLE_OK) << address;
        curl_easy_getinfo(curl.get(), CURLINFO_RESPONSE_CODE, &answer.status);
        curl_easy_getinfo(curl.get(), CURLINFO_SIZE_DOWNLOAD_T, &answer.wireBytes);
        return answer;
    }

private:
    TemporaryFolder folder_;
    std::string route_;
    std::string authority_;
};

TEST(Loopback, ARealReaderGetsGzippedFeedsAndThen304) {
    const SteeredWorld world(sampleWorld());
    const Server server([&](const Request& request) { return world.handler()(request); });
    const Reader reader(server);
    const auto feed = "https://9to5mac.com/feed/";

    const auto fresh = reader.get(feed);
    EXPECT_EQ(fresh.status, 200);
    EXPECT_NE(fresh.body.find("<rss version=\"2.0\""), std::string::npos);
    EXPECT_LT(static_cast<std::size_t>(fresh.wireBytes), fresh.body.size() / 2);

    const auto tag = SteeredWorld::headerOf(world.get(feed), "ETag");
    ASSERT_NE(fresh.headers.find(tag), std::string::npos) << fresh.headers;
    const auto unchanged = reader.get(feed, "If-None-Match: " + tag);
    EXPECT_EQ(unchanged.status, 304);
    EXPECT_TRUE(unchanged.body.empty());
}

TEST(Loopback, EverySourceAnswersUnderItsOwnHostName) {
    const auto sources = sampleWorld();
    const SteeredWorld world(sources);
    const Server server([&](const Request& request) { return world.handler()(request); });
    const Reader reader(server);
    for (const auto& source : sources) {
        const auto answer = reader.get(source.address);
        const auto expected = world.get(source.address);
        EXPECT_EQ(answer.status, expected.status) << source.id;
        EXPECT_EQ(answer.body, expected.body) << source.id;
    }
}

}  // namespace
}  // namespace pressroom::testing
