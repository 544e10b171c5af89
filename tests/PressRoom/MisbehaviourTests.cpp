#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "PressRoom/Server/Conditional.h"
#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

using Texts = std::vector<std::string>;

SteeredWorld worldWith(std::string_view kind) {
    return SteeredWorld(sampleWorld(), {{"macrumors", readMisbehaviour(kind).value()}});
}

Response fetch(const SteeredWorld& world) {
    return world.get("https://www.macrumors.com/macrumors.xml");
}

/// Of the items of a feed: the channel's own element comes first and is left out.
Texts ofItems(const Response& response, const std::string& name) {
    const auto& xml = response.body;
    const auto opening = "<" + name + ">";
    Texts found;
    for (auto at = xml.find(opening, xml.find("<item>")); at != std::string::npos;
         at = xml.find(opening, at + 1)) {
        const auto begin = at + opening.size();
        found.push_back(xml.substr(begin, xml.find("</", begin) - begin));
    }
    return found;
}

std::size_t distinct(const Texts& texts) { return std::set(texts.begin(), texts.end()).size(); }

TEST(Misbehaviour, KindsAreReadWithTheNumbersTheyTake) {
    const auto busy = MisbehaviourKind::busy;
    EXPECT_EQ(readMisbehaviour("busy"), (Misbehaviour{busy, 600}));
    EXPECT_EQ(readMisbehaviour("busy:0"), (Misbehaviour{busy, 0}));
    EXPECT_EQ(readMisbehaviour("silent"), (Misbehaviour{MisbehaviourKind::silent, 0}));
    for (const auto* nonsense : {"", "busy:", "busy:-1", "busy:9x", "silent:3", "Busy", "slow:1.5",
                                 "busy:99999999999999999999"}) {
        EXPECT_EQ(readMisbehaviour(nonsense), std::nullopt) << nonsense;
    }
    EXPECT_THROW(SteeredWorld(sampleWorld(), {{"nobody", {}}}), std::runtime_error);
}

TEST(Misbehaviour, RefusalsAndDelaysAreWhatTheirKindSays) {
    EXPECT_TRUE(fetch(worldWith("silent")).delivery.neverAnswers);
    EXPECT_EQ(fetch(worldWith("slow:70")).delivery.delay, std::chrono::milliseconds(70));
    EXPECT_EQ(fetch(worldWith("missing")).status, 404);
    for (const auto& [kind, status] : {std::pair("busy:30", 429), {"unavailable:30", 503}}) {
        const auto refusal = fetch(worldWith(kind));
        EXPECT_EQ(refusal.status, status);
        EXPECT_EQ(SteeredWorld::headerOf(refusal, "Retry-After"), "30");
    }
    const auto page = fetch(worldWith("page"));
    EXPECT_EQ(page.status, 200);
    EXPECT_TRUE(page.body.starts_with("<!DOCTYPE html>"));
    const auto empty = fetch(worldWith("empty")).body;
    EXPECT_EQ(empty.find("<item>"), std::string::npos);
    EXPECT_TRUE(empty.ends_with("</rss>\n"));
    EXPECT_FALSE(fetch(worldWith("broken")).body.ends_with("</rss>\n"));
    const auto huge = fetch(worldWith("huge")).body;
    EXPECT_GT(huge.size(), 5'000'000u);
    EXPECT_LT(huge.size(), 6'000'000u);
}

TEST(Misbehaviour, WhatChangesFromFetchToFetchLeavesTheRestAlone) {
    struct Case {
        const char* kind;
        bool titlesStay, linksStay;
    };
    for (const auto& [kind, titlesStay, linksStay] :
         {Case{"rotating", true, false}, Case{"retitled", false, true}, Case{"slow", true, true}}) {
        const auto world = worldWith(kind), twin = worldWith(kind);
        const auto first = fetch(world), second = fetch(world);
        EXPECT_EQ(ofItems(first, "title") == ofItems(second, "title"), titlesStay) << kind;
        EXPECT_EQ(ofItems(first, "pubDate"), ofItems(second, "pubDate")) << kind;
        const auto before = ofItems(first, "link"), after = ofItems(second, "link");
        ASSERT_GT(before.size(), 3u);
        ASSERT_EQ(before.size(), after.size());
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_EQ(before[i] == after[i], linksStay) << kind << ": " << after[i];
        }
        EXPECT_EQ(first.body, fetch(twin).body) << kind << " depends on nothing but the count";
    }
}

TEST(Misbehaviour, ItemsLoseTheirLinksOrDatesOrComeBackAsNews) {
    const auto usual = ofItems(fetch(worldWith("slow")), "link").size();
    const auto sameLink = fetch(worldWith("samelink"));
    EXPECT_EQ(ofItems(sameLink, "link").size(), usual);
    EXPECT_EQ(distinct(ofItems(sameLink, "link")), 1u);
    EXPECT_TRUE(ofItems(sameLink, "guid").empty());
    EXPECT_TRUE(ofItems(fetch(worldWith("undated")), "pubDate").empty());
    const auto today = httpDate(anchor).substr(0, 16);
    for (const auto& date : ofItems(fetch(worldWith("future")), "pubDate")) {
        EXPECT_FALSE(date.starts_with(today)) << date;
    }

    auto archive = worldWith("republished");
    EXPECT_EQ(ofItems(fetch(archive), "link").size(), usual);
    archive.passTo(0);
    const auto second = fetch(archive);
    EXPECT_EQ(distinct(ofItems(second, "link")), usual + 500);
    EXPECT_TRUE(ofItems(second, "pubDate").front().starts_with(today));
    EXPECT_EQ(ofItems(second, "link"), ofItems(fetch(archive), "link"));
}

}  // namespace
}  // namespace pressroom::testing
