#include <gtest/gtest.h>

#include <filesystem>

#include "Tarnwick_Brell/Trackers/TrackerNews.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using kit::AppleServiceStatus;
using Services = AppleServiceStatus::Services;

/// Services with an ongoing incident each, started so many seconds after 1970.
Services troubled(const std::vector<std::pair<std::string, int>>& incidents) {
    Services services;
    for (const auto& [name, start] : incidents) {
        services.push_back({.name = name,
                            .events = {{.kind = "Outage",
                                        .status = "ongoing",
                                        .started = kit::Instant(std::chrono::seconds(start))}}});
    }
    return services;
}

std::vector<kit::PlatformRelease> iOSReleases(std::string general, std::string beta) {
    return {{.platform = "iOS",
             .current = kit::SoftwareRelease{.build = std::move(general)},
             .beta = kit::SoftwareRelease{.build = std::move(beta)}}};
}

class TrackerNewsTest : public ::testing::Test {
protected:
    TrackerNewsTest() { restart(); }

    void restart() {
        defaults_ = std::make_unique<Defaults>(file_);
        news_ = std::make_unique<TrackerNews>(
            *defaults_,
            TrackerNews::Callbacks{
                .onServiceProblem = [this](const auto& it) { record("problem " + it.service); },
                .onServiceRestored = [this](const auto& it) { record("restored " + it); },
                .onNewRelease =
                    [this](const auto& it) { record(it.key() + " " + it.release.build); },
                .onFailed = [this](const auto& sentence) { record(sentence); }});
    }

    /// Together with what a restart at this moment would remember.
    void record(const std::string& what) {
        const Defaults other(file_);
        const auto problems =
            other.memory(Defaults::kKnownServiceProblems).value_or(Defaults::Memory());
        const auto builds = other.memory(Defaults::kKnownBuilds).value_or(Defaults::Memory());
        std::string known;
        for (const auto* memory : {&problems, &builds}) {
            for (const auto& [key, value] : *memory) known += "[" + key + "=" + value + "]";
        }
        announced_.push_back(what + " " + known);
    }

    std::vector<std::string> take() { return std::exchange(announced_, {}); }

    using Announced = std::vector<std::string>;

    ::test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "settings.ini";
    std::unique_ptr<Defaults> defaults_;
    std::unique_ptr<TrackerNews> news_;
    std::vector<std::string> announced_;
};

TEST_F(TrackerNewsTest, EachProblemIsRememberedJustBeforeItIsAnnounced) {
    news_->update(std::nullopt, troubled({{"Kiosk", 1}}));
    EXPECT_EQ(news_->knownProblems(), std::nullopt) << "not before the consumer status is there";
    news_->update(troubled({{"Mail", 1}}), Services());
    EXPECT_EQ(take(), Announced()) << "what the first look finds is not new";
    restart();
    news_->update(troubled({{"Mail", 1}, {"Maps", 2}}), troubled({{"Kiosk", 3}}));
    EXPECT_EQ(take(), (Announced{"problem Maps [Mail|1.0=Mail][Maps|2.0=Maps]",
                                 "problem Kiosk [Kiosk|3.0=Kiosk][Mail|1.0=Mail][Maps|2.0=Maps]"}));
    restart();
    news_->update(troubled({{"Mail", 9}, {"Maps", 2}}), Services());
    EXPECT_EQ(
        take(),
        (Announced{"problem Mail [Kiosk|3.0=Kiosk][Mail|1.0=Mail][Mail|9.0=Mail][Maps|2.0=Maps]",
                   "restored Kiosk [Mail|1.0=Mail][Mail|9.0=Mail][Maps|2.0=Maps]"}));
    EXPECT_EQ(news_->knownProblems()->size(), 2u) << "the older incident of Mail is over";
    restart();
    news_->update(Services(), Services());
    EXPECT_EQ(take(), (Announced{"restored Mail [Maps|2.0=Maps]", "restored Maps "}));
}

TEST_F(TrackerNewsTest, AStatusThatHasNotLoadedCountsAsOneWithoutProblems) {
    news_->update(troubled({{"Mail", 1}, {"Maps", 2}}), troubled({{"Kiosk", 3}}));
    restart();
    news_->update(std::nullopt, Services());
    EXPECT_EQ(take(), Announced()) << "nothing before the consumer status is there";
    news_->update(troubled({{"Maps", 2}}), std::nullopt);
    EXPECT_EQ(take(), (Announced{"restored Kiosk [Mail|1.0=Mail][Maps|2.0=Maps]",
                                 "restored Mail [Maps|2.0=Maps]"}));
    news_->update(troubled({{"Maps", 2}}), troubled({{"Kiosk", 3}}));
    EXPECT_EQ(take(), (Announced{"problem Kiosk [Kiosk|3.0=Kiosk][Maps|2.0=Maps]"}));
}

TEST_F(TrackerNewsTest, EachBuildIsRememberedJustBeforeItIsAnnounced) {
    news_->update(iOSReleases("A", "B"));
    EXPECT_EQ(take(), Announced());
    restart();
    news_->update(iOSReleases("A2", "B2"));
    EXPECT_EQ(take(), (Announced{"iOS.public A2 [iOS.beta=B][iOS.public=A2]",
                                 "iOS.beta B2 [iOS.beta=B2][iOS.public=A2]"}));
    restart();
    news_->update(iOSReleases("A2", "B2"));
    EXPECT_EQ(take(), Announced());
    news_->update(iOSReleases("A", "B2"));
    EXPECT_EQ(take(), (Announced{"iOS.public A [iOS.beta=B2][iOS.public=A]"})) << "an earlier one";
}

TEST_F(TrackerNewsTest, ASettingsFileThatCanNotBeWrittenIsReportedOnceAndHoldsNothingBack) {
    news_->update(Services(), Services());
    std::filesystem::remove(file_);
    std::filesystem::create_directory(file_);
    news_->update(troubled({{"Mail", 1}, {"Maps", 2}}), Services());
    const auto announced = take();
    ASSERT_EQ(announced.size(), 3u);
    EXPECT_NE(announced[0].find("can't be written"), std::string::npos);
    EXPECT_TRUE(announced[1].starts_with("problem Mail"));
    EXPECT_TRUE(announced[2].starts_with("problem Maps"));
}

}  // namespace
}  // namespace app
