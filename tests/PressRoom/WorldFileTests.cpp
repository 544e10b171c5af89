#include <gtest/gtest.h>

#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

const std::string head = R"("id":"a","platform":"rss","home":"https://a.example/","title":"A",)"
                         R"("description":"","articles":"https://a.example/{slug}")";

std::string document(const std::string& rest) { return "{" + head + "," + rest + "}"; }

std::string complaint(const std::filesystem::path& directory) {
    try {
        readWorld(directory);
    } catch (const WorldError& error) {
        return error.what();
    }
    return "no complaint";
}

TEST(WorldFiles, AFaultyFileIsNamedTogetherWithItsKey) {
    const std::string address = R"("address":"https://a.example/feed")";
    const std::tuple<std::string, std::string, std::string> faults[] = {
        {"not JSON", "{", "odd.json"},
        {"missing address", document(R"("stories":[])"), "address: the key is missing"},
        {"plain http", document(R"("address":"http://a.example/feed","stories":[])"),
         "address: not an https"},
        {"misspelt key of the source", document(address + R"(,"stories":[],"fotter":"x")"),
         "fotter: unknown key"},
        {"unknown platform", R"({"id":"a","platform":"gopher"})", "platform"},
        {"misspelt key of a story",
         document(address + R"(,"stories":[{"minutesAgo":1,"title":"T","text":"","tittle":"U"}])"),
         "stories[0].tittle: unknown key"},
        {"missing time", document(address + R"(,"stories":[{"title":"T","text":""}])"),
         "stories[0].minutesAgo: the key is missing"},
        {"time as text",
         document(address + R"(,"stories":[{"minutesAgo":"1","title":"T","text":""}])"),
         "stories[0].minutesAgo"},
        {"missing title", document(address + R"(,"stories":[{"minutesAgo":1,"text":""}])"),
         "stories[0].title: the key is missing"},
        {"two links",
         document(address + R"(,"stories":[{"minutesAgo":1,"title":"T","text":"",)"
                            R"("link":"https://b.example/","linkOf":"b:c"}])"),
         "stories[0].linkOf"},
        {"unknown place of a picture",
         document(address + R"(,"stories":[{"minutesAgo":1,"title":"T","text":"",)"
                            R"("picture":{"place":"wall","url":"https://b.example/"}}])"),
         "stories[0].picture.place"},
        {"misspelt fault", document(address + R"(,"stories":[],"fault":{"stauts":404})"),
         "fault.stauts: unknown key"},
    };
    for (const auto& [what, text, expected] : faults) {
        const TemporaryFolder folder;
        folder.write("sources/odd.json", text);
        const auto said = complaint(folder.path());
        EXPECT_NE(said.find("odd.json: "), std::string::npos) << what << ": " << said;
        EXPECT_NE(said.find(expected), std::string::npos) << what << ": " << said;
    }
}

TEST(WorldFiles, TwoSourcesMayNotShareAnIdOrAnAddress) {
    const TemporaryFolder folder;
    const auto text = document(R"("address":"https://a.example/feed","stories":[])");
    folder.write("sources/one.json", text);
    folder.write("sources/two.json", text);
    const auto said = complaint(folder.path());
    EXPECT_NE(said.find("two.json: id: \"a\" already belongs to one.json"), std::string::npos)
        << said;
}

TEST(WorldFiles, AFolderWithoutSourcesIsNoWorld) {
    const TemporaryFolder folder;
    EXPECT_NE(complaint(folder.path()).find("there is no such folder"), std::string::npos);
}

TEST(WorldFiles, StoriesThatDoNotFitTogetherAreRefused) {
    const auto publish = [](const std::string& stories) {
        const TemporaryFolder folder;
        folder.write("sources/a.json",
                     document(R"("address":"https://a.example/feed","stories":)" + stories));
        PublishedWorld(readWorld(folder.path()), anchor);
    };
    EXPECT_NO_THROW(publish(R"([{"minutesAgo":1,"title":"T","text":"{link:a:t}"}])"));
    EXPECT_THROW(publish(R"([{"minutesAgo":2,"title":"T","text":"{link:a:u}"},)"
                         R"({"minutesAgo":1,"title":"U","text":""}])"),
                 std::runtime_error)
        << "nobody links to a story that is yet to come";
    EXPECT_THROW(publish(R"([{"minutesAgo":1,"title":"T","text":"","linkOf":"a:missing"}])"),
                 std::runtime_error);
    EXPECT_THROW(publish(R"([{"minutesAgo":1,"title":"T","text":"{link:a:missing}"}])"),
                 std::runtime_error);
    EXPECT_THROW(publish(R"([{"minutesAgo":1,"title":"T","text":"{link:a:t"}])"),
                 std::runtime_error);
    EXPECT_THROW(
        publish(
            R"([{"minutesAgo":1,"title":"T","text":""},{"minutesAgo":9,"title":"T!","text":""}])"),
        std::runtime_error);
}

TEST(WorldFiles, SlugsKeepLettersAndDigitsOnly) {
    EXPECT_EQ(slugOf("Apple’s “New” iPad: 5% Off"), "apples-new-ipad-5-off");
    EXPECT_EQ(slugOf("  — Café —  "), "caf");
    EXPECT_EQ(slugOf("a/b - c"), "a-b-c");
    const auto cut =
        slugOf("one two three four five six seven eight nine ten eleven twelve thirteen");
    EXPECT_LE(cut.size(), 64u);
    EXPECT_TRUE(cut.ends_with("-twelve")) << cut;
}

}  // namespace
}  // namespace pressroom::testing
