#include <gtest/gtest.h>

#include <algorithm>

#include "Tarnwick_Brell/Signals/SignalsStore.h"
#include "tests/support/app/TestDesk.h"
#include "tests/Tarnwick_Brell/Signals/SignalBodies.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using namespace test;
using ::test::until;
using Kind = kit::AppStoreCharts::Kind;

class SignalsStoreTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ::test::beApplication(); }

    SignalsStoreTest() {
        defaults_.set("signingDevices", "iPhone17,3");
        signing("2+ 1");
        updates("2 1");
        charts("a b c");
    }

    void signing(const std::string& list, const std::string& device = "iPhone17,3") {
        bench_.http.script.on("api.ipsw.me", "/v4/device/" + device + "?type=ipsw",
                              {{.body = signingBody(list)}});
    }

    void updates(const std::string& list) {
        bench_.http.script.on("gdmf.apple.com", "/v2/pmv", {{.body = updatesBody(list)}});
    }

    void charts(const std::string& list) {
        for (const auto& row : kit::enumTable<Kind>) {
            bench_.http.script.on("rss.marketingtools.apple.com",
                                  "/api/v2/us/apps/" + std::string(row.raw) + "/25/apps.json",
                                  {{.body = chartBody(list)}});
        }
    }

    void open() {
        store_.reset();
        worker_.reset();
        worker_ = std::make_unique<DeskWorker>(bench_.library(), bench_.network(), bench_.clock());
        store_ = std::make_unique<SignalsStore>(*worker_, defaults_, bench_.clock());
        QObject::connect(store_.get(), &SignalsStore::onSigningChanges,
                         [this](const auto& changes) {
                             for (const auto& it : changes)
                                 told_.push_back((it.isSigned ? "+" : "-") + it.version);
                         });
        QObject::connect(store_.get(), &SignalsStore::onOfferChanges, [this](const auto& changes) {
            for (const auto& it : changes)
                told_.push_back((it.isOffered ? "offer +" : "offer -") + it.offer.version);
        });
        store_->start();
        ASSERT_TRUE(until([&] { return store_->isLoaded(); }));
    }

    void refresh() {
        bench_.pass(30min);
        store_->refreshAll();
        ASSERT_TRUE(until([&] {
            return std::ranges::none_of(kSignalRounds,
                                        [&](auto round) { return store_->isRefreshing(round); });
        }));
        std::ranges::sort(told_);
    }

    using Told = std::vector<std::string>;

    TestDesk bench_{{}};
    Defaults defaults_{bench_.folder.path() / "settings.ini"};
    std::unique_ptr<DeskWorker> worker_;
    std::unique_ptr<SignalsStore> store_;
    Told told_;
};

TEST_F(SignalsStoreTest, NewsIsToldOnceOverRestartsWhoeverFetchedItAndOldNewsIsNone) {
    open();
    refresh();
    EXPECT_EQ(told_, Told()) << "the first look only remembers";
    signing("3+ 2 1");
    updates("3 2 1");
    refresh();
    EXPECT_EQ(told_, (Told{"+3", "offer +3"}));
    open();
    refresh();
    EXPECT_EQ(told_, (Told{"+3", "-2", "offer +3"})) << "the second answer that says so";

    // Another program looks, and then this desk takes over what it found.
    told_.clear();
    const auto change = [&](const char* version) {
        LocalStore other(bench_.library(), Database::Access::readWrite);
        const auto before = kit::SigningStatus::parse(signingBody(""));
        const auto now = kit::SigningStatus::parse(signingBody(version));
        other.signing().note("iPhone17,3", before, now, bench_.now());
    };
    change("8+");
    store_->load();
    EXPECT_TRUE(until([&] { return told_ == Told{"+8"}; }));
    store_.reset();
    worker_.reset();
    change("9+");
    bench_.pass(25h);
    open();
    refresh();
    EXPECT_EQ(told_, Told{"+8"});
}

TEST_F(SignalsStoreTest, WhatWasLastGoodIsShownWithItsAgeWhileNothingCanBeFetched) {
    open();
    refresh();
    const auto fetched = bench_.now();
    bench_.pass(24h);
    signing("<html");
    bench_.http.script.on("gdmf.apple.com", "/v2/pmv", {{.status = 404}});
    charts("");
    open();
    EXPECT_EQ(store_->updates().fetchedAt, fetched);
    EXPECT_EQ(store_->lastUpdated(), fetched);
    bench_.http.script.on("api.ipsw.me", "/v4/device/iPhone17,3?type=ipsw", {{.status = 404}});
    refresh();
    EXPECT_EQ(store_->failures(), 4u);
    for (const auto& error : {store_->updates().error, store_->signing("iPhone17,3").error,
                              store_->chart(Kind::topPaid).error}) {
        EXPECT_TRUE(error.has_value());
    }
    EXPECT_EQ(store_->signing("iPhone17,3").value->builds.size(), 2u);
    EXPECT_EQ(store_->updates().fetchedAt, fetched);

    charts("c a b");
    refresh();
    EXPECT_EQ(store_->failures(), 4u) << "two more of the others, none of the charts";
    const auto places = store_->chartPlaces(Kind::topFree);
    ASSERT_EQ(places.size(), 3u);
    EXPECT_EQ(places[0].rise(), 2);
    EXPECT_EQ(places[1].rise(), -1);
}

TEST_F(SignalsStoreTest, AModelThatIsAddedToTheSettingIsAskedForAtOnce) {
    open();
    refresh();
    signing("5+", "iPad16,1");
    Defaults(bench_.folder.path() / "settings.ini").set("signingDevices", "iPad16,1, iPhone17,3");
    defaults_.reload();
    store_->refresh(SignalRound::updates);
    EXPECT_TRUE(until([&] { return store_->signing("iPad16,1").value.has_value(); }));
    EXPECT_EQ(store_->devices(), (std::vector<std::string>{"iPad16,1", "iPhone17,3"}));
    EXPECT_EQ(told_, Told()) << "a first look at a device is no news";
}

}  // namespace
}  // namespace app
