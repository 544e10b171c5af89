#include <gtest/gtest.h>

#include <future>
#include <map>
#include <memory>
#include <vector>

#include "Tarnwick_Brell/Pictures/PictureLoader.h"
#include "tests/Tarnwick_Brell/Pictures/TestPictures.h"
#include "tests/support/TestServer.h"

namespace app {
namespace {

using test::pictureFile;

class PictureLoaderTest : public ::testing::Test {
protected:
    void serve(const std::string& name, std::string body, int status = 200,
               const char* type = "image/png") {
        server_.script.on(
            "a.example", "/" + name,
            {{.status = status, .headers = {{"Content-Type", type}}, .body = std::move(body)}});
    }
    std::size_t requests(const std::string& name) const {
        return server_.script.requests("a.example", "/" + name).size();
    }
    void open() {
        loader_.emplace(PictureLoader::Options{
            .folder = server_.authorityFile().parent_path() / "pictures", .network = network_});
        loader_->setOn(true);
    }
    static std::string address(const std::string& name) { return "https://a.example/" + name; }
    /// The size of the picture once it is there; empty when there is none.
    std::future<QSize> ask(const std::string& address) {
        auto size = std::make_shared<std::promise<QSize>>();
        tickets_.push_back(loader_->load(address, {QSize(40, 20), 0}, [size](const QImage& image) {
            size->set_value(image.size());
        }));
        return size->get_future();
    }
    QSize load(const std::string& name) { return ask(address(name)).get(); }

    kit::test::TestServer server_;
    kit::CurlTransport::Options network_{
        .connectTo = "127.0.0.1:" + std::to_string(server_.server.port()),
        .caFile = server_.authorityFile()};
    std::vector<PictureLoader::Ticket> tickets_;
    std::optional<PictureLoader> loader_;
};

TEST_F(PictureLoaderTest, NothingIsAskedForWhileItIsOff) {
    serve("a.png", pictureFile(300, 200));
    open();
    loader_->setOn(false);
    EXPECT_TRUE(load("a.png").isEmpty());
    EXPECT_EQ(requests("a.png"), 0);
    EXPECT_FALSE(std::filesystem::exists(server_.authorityFile().parent_path() / "pictures"));
    loader_->setOn(true);
    EXPECT_EQ(load("a.png"), QSize(40, 20));
}

TEST_F(PictureLoaderTest, APictureIsFetchedOnceAndIsThereWithoutANetwork) {
    serve("a.png", pictureFile(300, 200));
    open();
    load("a.png");
    load("a.png");
    EXPECT_EQ(requests("a.png"), 1);
    server_.server.stop();
    open();
    EXPECT_EQ(load("a.png"), QSize(40, 20));
    EXPECT_TRUE(load("b.png").isEmpty());
}

TEST_F(PictureLoaderTest, HostileAnswersShowNothingAndAreNotAskedForAgain) {
    const std::map<std::string, std::string> answers{
        {"huge", test::pngHead(20'000, 20'000)},
        {"heavy", pictureFile(300, 200) + std::string(50'000'000, '\0')},
        {"cut-off", test::pngHead(300, 200)},
        {"drawing", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"30\" height=\"20\"/>"},
        {"page", "<!doctype html><title>Not here</title>"},
        {"nothing", ""},
        {"pixel", pictureFile(1, 1)},
    };
    open();
    for (const auto& [name, body] : answers) {
        serve(name, body);
        EXPECT_TRUE(load(name).isEmpty()) << name;
        EXPECT_TRUE(load(name).isEmpty()) << name;
        EXPECT_EQ(requests(name), 1) << name;
    }
    serve("gone", "Not here", 404);
    EXPECT_TRUE(load("gone").isEmpty());
    serve("moving", test::animation(), 200, "text/html");
    EXPECT_EQ(load("moving"), QSize(40, 20));
}

TEST_F(PictureLoaderTest, AnAddressOfThisNetworkIsNotAsked) {
    network_.connectTo.reset();
    open();
    const auto port = std::to_string(server_.server.port());
    for (const auto* host : {"127.0.0.1", "localhost"}) {
        const auto url = "https://" + std::string(host) + ":" + port + "/a.png";
        EXPECT_TRUE(ask(url).get().isEmpty()) << host;
        EXPECT_TRUE(server_.script.requests(host, "/a.png").empty()) << host;
    }
}

TEST_F(PictureLoaderTest, ManyRowsWithOnePictureFetchItOnceAndEachHasAnAnswer) {
    server_.script.on(
        "a.example", "/slow.png",
        {{.body = pictureFile(300, 200), .delivery = {.delay = std::chrono::milliseconds(50)}}});
    open();
    std::vector<std::future<QSize>> rows;
    for (int row = 0; row < 20; ++row) rows.push_back(ask(address("slow.png")));
    for (std::size_t row = 0; row < rows.size(); row += 2) loader_->cancel(tickets_[row]);
    for (std::size_t row = 0; row < rows.size(); ++row)
        EXPECT_EQ(rows[row].get().isEmpty(), row % 2 == 0) << row;
    EXPECT_EQ(requests("slow.png"), 1);
}

TEST_F(PictureLoaderTest, EndingAnswersWhatIsStillWaiting) {
    server_.script.on("a.example", "/never.png", {{.delivery = {.neverAnswers = true}}});
    open();
    auto never = ask(address("never.png"));
    loader_.reset();
    EXPECT_TRUE(never.get().isEmpty());
}

}  // namespace
}  // namespace app
