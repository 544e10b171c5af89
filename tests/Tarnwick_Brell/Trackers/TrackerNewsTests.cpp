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

std::vector<kit::PlatformRelease> releases(std::string general, std::string beta) {
    return {{.platform = "iOS",
             .current = kit::SoftwareRelease{.build = std::move(general)},
             .beta = kit::SoftwareRelease{.build = std::move(beta)}}};
}

class TrackerNewsTest : public ::testing::Test {
protected:
    TrackerNewsTest() { restart(); }

    void restart() {
        defaults_ = std::make_unique<Defaults>(file_);
        news_ = std::make_unique<TrackerNews>(*defaults_);
        news_->callbacks = {
            .onServiceProblem = [this](const auto& report) { tell("problem " + report.service); },
            .onServiceRestored = [this](const auto& service) { tell("restored " + service); },
            .onNewRelease =
                [this](const auto& build) { tell(build.key() + " " + build.release.build); },
            .onFailed = [this](const auto& sentence) { tell(sentence); }};
    }

    /// With what a restart at this moment would know.
    void tell(const std::string& what) {
        const Defaults other(file_);
        const auto problems =
            other.memory(Defaults::kKnownServiceProblems).value_or(Defaults::Memory());
        const auto builds = other.memory(Defaults::kKnownBuilds).value_or(Defaults::Memory());
        std::string known;
        for (const auto* memory : {&problems, &builds}) {
            for (const auto& [key, value] : *memory) known += "[" + key + "=" + value + "]";
        }
        told_.push_back(what + " " + known);
    }

    std::vector<std::string> take() { return std::exchange(told_, {}); }

    using Told = std::vector<std::string>;

    ::test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "settings.ini";
    std::unique_ptr<Defaults> defaults_;
    std::unique_ptr<TrackerNews> news_;
    std::vector<std::string> told_;
};

TEST_F(TrackerNewsTest, EachProblemIsRememberedJustBeforeItIsTold) {
    news_->look(std::nullopt, troubled({{"Kiosk", 1}}));
    EXPECT_EQ(news_->knownProblems(), std::nullopt) << "not before the consumer status is there";
    news_->look(troubled({{"Mail", 1}}), Services());
    EXPECT_EQ(take(), Told()) << "what the first look finds is not new";
    restart();
    news_->look(troubled({{"Mail", 1}, {"Maps", 2}}), troubled({{"Kiosk", 3}}));
    EXPECT_EQ(take(), (Told{"problem Maps [Mail|1.0=Mail][Maps|2.0=Maps]",
                            "problem Kiosk [Kiosk|3.0=Kiosk][Mail|1.0=Mail][Maps|2.0=Maps]"}));
    restart();
    news_->look(troubled({{"Mail", 9}, {"Maps", 2}}), Services());
    EXPECT_EQ(take(),
              (Told{"problem Mail [Kiosk|3.0=Kiosk][Mail|1.0=Mail][Mail|9.0=Mail][Maps|2.0=Maps]",
                    "restored Kiosk [Mail|1.0=Mail][Mail|9.0=Mail][Maps|2.0=Maps]"}));
    EXPECT_EQ(news_->knownProblems()->size(), 2u) << "the older incident of Mail is over";
    restart();
    news_->look(Services(), Services());
    EXPECT_EQ(take(), (Told{"restored Mail [Maps|2.0=Maps]", "restored Maps "}));
}

TEST_F(TrackerNewsTest, AStatusThatHasNotLoadedCountsAsOneWithoutProblems) {
    news_->look(troubled({{"Mail", 1}, {"Maps", 2}}), troubled({{"Kiosk", 3}}));
    restart();
    news_->look(std::nullopt, Services());
    EXPECT_EQ(take(), Told()) << "nothing before the consumer status is there";
    news_->look(troubled({{"Maps", 2}}), std::nullopt);
    EXPECT_EQ(take(), (Told{"restored Kiosk [Mail|1.0=Mail][Maps|2.0=Maps]",
                            "restored Mail [Maps|2.0=Maps]"}));
    news_->look(troubled({{"Maps", 2}}), troubled({{"Kiosk", 3}}));
    EXPECT_EQ(take(), (Told{"problem Kiosk [Kiosk|3.0=Kiosk][Maps|2.0=Maps]"}));
}

TEST_F(TrackerNewsTest, EachBuildIsRememberedJustBeforeItIsTold) {
    news_->look(releases("A", "B"));
    EXPECT_EQ(take(), Told());
    restart();
    news_->look(releases("A2", "B2"));
    EXPECT_EQ(take(), (Told{"iOS.public A2 [iOS.beta=B][iOS.public=A2]",
                            "iOS.beta B2 [iOS.beta=B2][iOS.public=A2]"}));
    restart();
    news_->look(releases("A2", "B2"));
    EXPECT_EQ(take(), Told());
    news_->look(releases("A", "B2"));
    EXPECT_EQ(take(), (Told{"iOS.public A [iOS.beta=B2][iOS.public=A]"})) << "an earlier one";
}

TEST_F(TrackerNewsTest, AMemoryThatCanNotBeWrittenIsToldOnceAndHoldsNothingBack) {
    news_->look(Services(), Services());
    std::filesystem::remove(file_);
    std::filesystem::create_directory(file_);
    news_->look(troubled({{"Mail", 1}, {"Maps", 2}}), Services());
    const auto told = take();
    ASSERT_EQ(told.size(), 3u);
    EXPECT_NE(told[0].find("can't be written"), std::string::npos);
    EXPECT_TRUE(told[1].starts_with("problem Mail"));
    EXPECT_TRUE(told[2].starts_with("problem Maps"));
}

}  // namespace
}  // namespace app
