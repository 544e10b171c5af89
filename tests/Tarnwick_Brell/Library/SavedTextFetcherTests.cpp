#include <gtest/gtest.h>

#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Library/SavedTextFetcher.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/Settings/KeepingSetting.h"
#include "tests/support/EventLoop.h"
#include "tests/support/app/TestDesk.h"

namespace app {
namespace {

using test::TestDesk;
using ::test::until;

std::string page(const std::string& word) {
    std::string body = "<html><body><article><h1>Pears</h1>";
    for (int i = 0; i < 6; ++i)
        body += "<p>The " + word + " were picked on Monday, and the growers wrote it all down.</p>";
    return body + "</article></body></html>";
}

TEST(SavedTextFetcher, FetchesAPageOnceWhenItsStoryIsSavedAndThatIsWanted) {
    ::test::beApplication();
    TestDesk harness({"a.example"});
    harness.serve("a.example", {TestDesk::feed("a.example", 1, 3)});
    for (const char* path : {"/1", "/2", "/3"})
        harness.http.script.on("a.example", path, {{.body = page("pears")}});
    Defaults defaults(harness.folder.path() / "settings.ini");
    NewsDesk desk(harness.library(), harness.network(), defaults, harness.clock());
    const SavedTextFetcher fetcher(desk, defaults, harness.clock());
    desk.start();
    ASSERT_TRUE(until([&] { return desk.isLoaded(); }));
    desk.refreshAll();
    ASSERT_TRUE(until([&] { return desk.stories().size() == 3; }));
    const auto id = [&](std::size_t place) { return std::string(desk.stories()[place].id()); };
    const auto text = [&](const std::string& story) {
        LocalStore store(harness.library(), Database::Access::readOnly);
        return store.savedStories().text(story);
    };
    const auto requests = [&] {
        std::size_t count = 0;
        for (const char* path : {"/1", "/2", "/3"})
            count += harness.http.script.requests("a.example", path).size();
        return count;
    };

    const auto first = id(0), second = id(1);
    desk.setSaved({first}, true);
    desk.setRead({second}, true);
    ::test::runFor(std::chrono::milliseconds(200));
    EXPECT_EQ(requests(), 0U) << "the setting is off at first";

    defaults.set(kKeepSavedText, "true");
    harness.pass(std::chrono::hours(1));
    desk.setRead({first}, true);
    desk.setSaved({second}, true);
    ASSERT_TRUE(until([&] { return text(second).has_value(); }));
    EXPECT_NE(text(second)->text.find("The pears were picked"), std::string::npos);
    EXPECT_EQ(text(second)->sha256.size(), 64U);
    EXPECT_EQ(requests(), 1U) << "not of a story that was saved before and is read now";

    desk.setSaved({second}, false);
    desk.setSaved({second}, true);
    ::test::runFor(std::chrono::milliseconds(200));
    EXPECT_EQ(requests(), 1U) << "there is a text";
}

}  // namespace
}  // namespace app
