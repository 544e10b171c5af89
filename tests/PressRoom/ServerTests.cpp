#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "PressRoom/Server/Conditional.h"
#include "PressRoom/Server/Server.h"

namespace pressroom {
namespace {

using namespace std::chrono_literals;
using Headers = std::map<std::string, std::string, std::less<>>;

constexpr std::chrono::sys_seconds october = std::chrono::sys_days(2026y / 10 / 1) + 8h + 30min;

std::string headerOf(const Response& response, std::string_view name) {
    for (const auto& [key, value] : response.headers) {
        if (key == name) return value;
    }
    return "-";
}

Response ask(Headers headers) {
    return answerConditionally(
        {.headers = std::move(headers)},
        {.body = "news", .contentType = "text/plain", .lastModified = october});
}

TEST(ConditionalAnswers, sayNotModifiedWhileTheValidatorsHold) {
    const auto tag = entityTag("news");
    struct Case {
        const char* name;
        Headers headers;
        int status;
    };
    const std::vector<Case> cases{
        {"none", {}, 200},
        {"the tag", {{"if-none-match", tag}}, 304},
        {"the tag without its weak mark", {{"if-none-match", tag.substr(2)}}, 304},
        {"the tag in a list", {{"if-none-match", "\"a\", " + tag + " ,\"b\""}}, 304},
        {"any tag", {{"if-none-match", "*"}}, 304},
        {"another tag", {{"if-none-match", entityTag("other")}}, 200},
        {"another tag outweighs the date",
         {{"if-none-match", "\"a\""}, {"if-modified-since", httpDate(october)}},
         200},
        {"the tag outweighs an older date",
         {{"if-none-match", tag}, {"if-modified-since", httpDate(october - 1h)}},
         304},
        {"the same date", {{"if-modified-since", httpDate(october)}}, 304},
        {"an older date", {{"if-modified-since", httpDate(october - 1s)}}, 200},
        {"no date", {{"if-modified-since", "yesterday"}}, 200},
    };
    for (const auto& [name, headers, status] : cases) {
        const auto response = ask(headers);
        EXPECT_EQ(response.status, status) << name;
        EXPECT_EQ(response.body, status == 304 ? "" : "news") << name;
        EXPECT_EQ(headerOf(response, "ETag"), tag) << name;
    }
}

TEST(ConditionalAnswers, areGzippedOnlyForThoseWhoTakeIt) {
    EXPECT_EQ(headerOf(ask({}), "Content-Encoding"), "-");
    const auto packed = ask({{"accept-encoding", "deflate, gzip, br"}});
    EXPECT_EQ(headerOf(packed, "Content-Encoding"), "gzip");
    EXPECT_EQ(packed.body, gzip("news"));
}

TEST(HTTPDates, readBackAsTheyWereWritten) {
    EXPECT_EQ(httpDate(std::chrono::sys_seconds(784111777s)), "Sun, 06 Nov 1994 08:49:37 GMT");
    for (const auto instant : {std::chrono::sys_seconds(0s), october,
                               std::chrono::sys_seconds(std::chrono::sys_days(2041y / 2 / 28))}) {
        EXPECT_EQ(parseHTTPDate(httpDate(instant)), instant);
    }
    EXPECT_EQ(parseHTTPDate("Sun, 06 Nov 1994 08:49:37 GMT or so"), std::nullopt);
}

TEST(Server, listensOnLoopbackOnly) {
    const Handler nothing = [](const Request&) { return Response{}; };
    EXPECT_THROW(Server(nothing, {.address = "0.0.0.0"}), std::invalid_argument);
    const Server first(nothing);
    EXPECT_THROW(Server(nothing, {.port = first.port()}), std::runtime_error);
}

}  // namespace
}  // namespace pressroom
