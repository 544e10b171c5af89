#include "NewsroomKit/Backend/BackendWatch.h"

#include <chrono>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "NewsroomKit/Backend/BackendSignals.h"

namespace kit {
namespace {

using std::chrono::minutes;

/// A file that is polled every ten minutes. Its state goes through its stored form each time, as
/// if the desk were started anew.
class Watched {
public:
    explicit Watched(std::string_view id) : file_(*watchedFile(id)) {}

    /// "title [extent]" of each finding, a line each; those that are not told in brackets.
    std::string poll(const std::string& body) {
        auto records = readWatchedRecords(file_.source, body);
        if (!records) return "?";
        auto state = decode<WatchState>(parseJSON(json::serialize(encode(state_))));
        auto poll = pollWatchedFile(file_, std::move(state), std::move(*records), now_);
        state_ = std::move(poll.state);
        now_ += minutes(10);
        last_ = poll.findings;
        std::string text;
        for (const auto& one : poll.findings) {
            const auto line = fmt::format("{} [{}]", one.title, one.extent);
            text += one.isTold ? line + "\n" : "(" + line + ")\n";
        }
        return text;
    }

    const WatchState& state() const { return state_; }
    const std::vector<BackendFinding>& last() const { return last_; }

private:
    const WatchedFile& file_;
    WatchState state_;
    std::vector<BackendFinding> last_;
    Instant now_{std::chrono::hours(1'000)};
};

std::string managed(const std::string& rows, const std::string& publicRows = "") {
    return R"({"PublicAssetSets":{"iOS":[)" + publicRows + R"(]},"AssetSets":{"iOS":[)" + rows +
           "]}}";
}

std::string build(const std::string& name, const std::string& devices = R"("iPhone9,1")",
                  const std::string& posted = "1") {
    return fmt::format(R"({{"ProductVersion":"9.1","Build":"{}","PostingDate":"{}",)"
                       R"("ExpirationDate":"{}","SupportedDevices":[{}]}})",
                       name, posted, posted, devices);
}

TEST(BackendWatch, two_polls_confirm_a_change_that_is_told_once) {
    Watched file("managed-versions");
    const auto old = managed(build("9A1"));
    const auto both = managed(build("9A2") + "," + build("9A1", R"("iPhone9,1")", "2"));
    EXPECT_EQ(file.poll(old), "");
    EXPECT_EQ(file.poll(both), "");
    EXPECT_EQ(file.poll(both), "Build 9A2 of iOS 9.1 appeared [+1 build]\n");
    EXPECT_EQ(file.last()[0].confirmedAt - file.last()[0].notSeenAt, minutes(20));
    EXPECT_EQ(file.last()[0].confirmedAt - file.last()[0].seenAt, minutes(10));
    EXPECT_EQ(file.poll(both), "");
    EXPECT_EQ(file.poll(old), "");
    EXPECT_EQ(file.poll(both), "") << "a copy of one poll";
    EXPECT_EQ(file.poll(old), "");
    EXPECT_EQ(file.poll(old),
              "iOS 9.1 (9A2) left the list, gone again after 50 minutes [−1 build]\n");
    for (const auto& body : {both, both, old, old}) {
        const auto told = file.poll(body);
        EXPECT_TRUE(told.empty() || told.starts_with('(')) << told;
    }
    EXPECT_NE(file.poll(managed(build("9A3"))) + file.poll(managed(build("9A3"))), "");
}

TEST(BackendWatch, leaves_public_builds_to_the_update_catalogue_but_not_new_devices) {
    Watched file("managed-versions");
    file.poll(managed(build("9A1"), build("9A1")));
    const auto released = managed(build("9A1") + "," + build("9A2", R"("iPhone9,1","iPhone10,9")"),
                                  build("9A2", R"("iPhone9,1")"));
    file.poll(released);
    EXPECT_EQ(file.poll(released), "An identifier not seen before: iPhone10,9 [+1 identifier]\n");
    const auto news = signalsOf(file.last());
    EXPECT_EQ(news.size(), 1u);
    EXPECT_EQ(news.at(0).weight, SignalWeight::major);
    // The managed list drops the old build when the public one no longer has it.
    const auto later = managed(build("9A2", R"("AudioAccessory1,1")"), build("9A2"));
    file.poll(later);
    EXPECT_EQ(file.poll(later),
              "An identifier not seen before: AudioAccessory1,1 [+1 identifier]\n"
              "iOS 9.1 (9A1) left the list [−1 build]\n"
              "The devices of build 9A2 of HomePod software 9.1 changed [1 entry]\n");
}

TEST(BackendWatch, mutes_what_changes_in_most_of_the_first_polls) {
    Watched file("siri");
    const auto settings = [](int token, int limit) {
        return fmt::format(R"({{"token":{},"seen":[{{"id":"x{}"}},{{"id":"y"}}],"limit":{}}})",
                           token, token, limit);
    };
    std::string told;
    for (int poll = 0; poll < 6; ++poll) told += file.poll(settings(poll, 4));
    EXPECT_EQ(told, "");
    EXPECT_EQ(file.state().volatilePaths, (std::vector<std::string>{"seen[]", "token"}));
    for (int poll = 6; poll < 12; ++poll) told += file.poll(settings(poll, 6));
    EXPECT_EQ(told, "Setting \"limit\" changed, 4 → 6 [1 value]\n");
}

TEST(BackendWatch, does_not_take_entries_with_other_names_each_time_for_gone) {
    Watched file("newsroom-map");
    const auto page = [](const std::string& name) {
        return "<url><loc>https://s.example/" + name + "</loc></url>";
    };
    std::string told;
    for (const auto* name : {"1", "2", "3", "4", "5"})
        told += file.poll("<urlset>" + page("a?v=" + std::string(name)) + page("b") + "</urlset>");
    EXPECT_EQ(told, "");
    // What is gone besides is told all the same.
    for (const auto* name : {"6", "7"})
        told += file.poll("<urlset>" + page("a?v=" + std::string(name)) + "</urlset>");
    EXPECT_NE(told.find("s.example/b"), told.npos) << told;
}

TEST(BackendWatch, titles_are_facts_in_a_few_words) {
    const auto map = [](int first, int count) {
        std::string text = "<urlset>";
        for (int i = first; i < first + count; ++i)
            text += fmt::format("<url><loc>https://s.example/{}</loc></url>", i);
        return text + "</urlset>";
    };
    const auto rules = [](const std::string& more) {
        return "User-agent: *\nDisallow: /a\n" + more;
    };
    const auto links = [](const std::string& paths) {
        return R"({"applinks":{"details":[{"appID":"T.a","paths":[)" + paths + "]}]}}";
    };
    const auto products = [](const std::string& more) {
        return "<plist><dict><key>Products</key><dict><key>001</key><dict/>" + more +
               "</dict></dict></plist>";
    };
    const struct {
        std::string_view file;
        std::string before;
        std::string after;
        std::string told;
    } cases[] = {
        {"robots", rules(""), rules("Disallow: /b\n"), "robots.txt blocks /b [+1 line]\n"},
        {"robots", rules("Disallow: /b\nDisallow: /c\nSitemap: https://s.example/1\n"), rules(""),
         "robots.txt no longer blocks 2 paths [−2 lines]\n"
         "robots.txt no longer names the site map https://s.example/1 [−1 line]\n"},
        {"app-links", links("\"/x\""), links("\"/x\",\"/new/*\""),
         "/new/* opens in an app [+1 path]\n"},
        {"newsroom-map", map(0, 3), map(0, 5),
         "2 addresses appeared: s.example/3, s.example/4 [+2 addresses]\n"},
        {"newsroom-map", map(0, 3), map(100, 300),
         "(The site map was rebuilt, 300 addresses new [+300 −3 addresses])\n"},
        {"installers", products(""),
         products("<key>002</key><dict><key>Packages</key><array><dict><key>URL</key>"
                  "<string>https://s.example/a/Data.pkg</string></dict></array></dict>"),
         "Data (002) appeared [+1 product]\n"},
    };
    for (const auto& one : cases) {
        Watched file(one.file);
        file.poll(one.before);
        file.poll(one.after);
        EXPECT_EQ(file.poll(one.after), one.told);
        for (const auto& finding : file.last())
            EXPECT_FALSE(meaningText(finding).empty()) << finding.title;
    }
}

}  // namespace
}  // namespace kit
