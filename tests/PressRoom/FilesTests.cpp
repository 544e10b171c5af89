#include <gtest/gtest.h>

#include "PressRoom/Files/FilesRequestHandler.h"
#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

class Files : public ::testing::Test {
protected:
    Files() {
        folder_.write("outside.txt", "secret");
        folder_.write("served/plain.xml", "<rss/>");
        folder_.write("served/deep/odd, name & more.rss", "<rss>odd</rss>");
        folder_.write("served/page.html", "<p>");
        folder_.write("served/data.json", "{}");
        folder_.write("served/blob.bin", "x");
        std::filesystem::create_symlink(folder_.path() / "outside.txt",
                                        folder_.path() / "served/link.txt");
        files_ = std::make_unique<FilesRequestHandler>(folder_.path() / "served");
    }

    std::optional<Response> get(
        std::string target, std::map<std::string, std::string, std::less<>> headers = {}) const {
        return files_->answer({.method = "GET",
                               .host = std::string(FilesRequestHandler::host),
                               .target = std::move(target),
                               .headers = std::move(headers)},
                              anchor);
    }

    TemporaryFolder folder_;
    std::unique_ptr<FilesRequestHandler> files_;
};

TEST_F(Files, AreServedByTheirNamesWithTheTypeOfTheirExtension) {
    const std::pair<std::string, std::string> types[] = {
        {"/plain.xml", "application/xml"},
        {"/deep/odd%2C%20name%20%26%20more.rss", "application/xml"},
        {"/deep/odd, name & more.rss", "application/xml"},
        {"/page.html", "text/html"},
        {"/data.json", "application/json"},
        {"/blob.bin", "application/octet-stream"},
        {"/plain.xml?version=2", "application/xml"},
    };
    for (const auto& [target, type] : types) {
        const auto response = get(target);
        ASSERT_TRUE(response) << target;
        EXPECT_EQ(SteeredWorld::headerOf(*response, "Content-Type"), type) << target;
    }
    EXPECT_EQ(get("/deep/odd%2c%20name%20%26%20more.rss")->body, "<rss>odd</rss>");
}

TEST_F(Files, NothingOutsideTheFolderIsServed) {
    const std::string targets[] = {
        "/../outside.txt",   "/%2e%2e/outside.txt",
        "/..%2foutside.txt", "/deep/../../outside.txt",
        "//../outside.txt",  "/" + (folder_.path() / "outside.txt").string(),
        "/link.txt",         "/deep",
        "/missing.xml",      std::string("/plain.xml%00.html"),
        "/%2fetc%2fpasswd",  "/..",
    };
    for (const auto& target : targets) EXPECT_FALSE(get(target)) << target;
}

TEST_F(Files, AnswerConditionally) {
    const auto fresh = get("/plain.xml");
    const auto tag = SteeredWorld::headerOf(*fresh, "ETag");
    ASSERT_FALSE(tag.empty());
    EXPECT_EQ(get("/plain.xml", {{"if-none-match", tag}})->status, 304);
    folder_.write("served/plain.xml", "<rss>new</rss>");
    EXPECT_EQ(get("/plain.xml", {{"if-none-match", tag}})->status, 200);
}

TEST_F(Files, AreListedAtTheRoot) {
    const auto index = get("/");
    EXPECT_NE(index->body.find(
                  "href=\"/deep/odd%2C%20name%20%26%20more.rss\">deep/odd, name &amp; more.rss<"),
              std::string::npos)
        << index->body;
}

TEST_F(Files, OtherHostsAreNotTheirs) {
    EXPECT_FALSE(
        files_->answer({.method = "GET", .host = "example.org", .target = "/plain.xml"}, anchor));
    EXPECT_THROW(FilesRequestHandler(folder_.path() / "missing"),
                 std::filesystem::filesystem_error);
    EXPECT_THROW(FilesRequestHandler(folder_.path() / "outside.txt"),
                 std::filesystem::filesystem_error);
}

}  // namespace
}  // namespace pressroom::testing
