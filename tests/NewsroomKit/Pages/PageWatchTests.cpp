#include "NewsroomKit/Pages/PageWatch.h"

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "NewsroomKit/Pages/PageKeys.h"
#include "NewsroomKit/Pages/PageSignals.h"

namespace kit {
namespace {

using std::chrono::minutes;

const Instant start = Instant(std::chrono::seconds(1'700'000'000));

std::string rules(const std::string& verb, const std::string& day = "March 5, 2026") {
    std::string html = "<html lang=en><body><h1>Orchard rules</h1><p>Last Updated: " + day + "</p>";
    for (int i = 0; i < 12; ++i) {
        html += "<p>Rule " + std::to_string(i) + ": every tree in the valley is to be watered.</p>";
    }
    return html + "<h2>Fruit</h2><p>Growers " + verb + " sell pears that fell from a tree.</p>";
}

std::string withAdvert(const std::string& page, int number) {
    return page + "<p>Advert " + std::to_string(number) +
           " of today</p><p>The end of the rules.</p>";
}

std::string shuffled() {
    auto page = rules("must");
    return page.replace(page.find("Rule 3:"), 7, "Rule 4:")
        .replace(page.rfind("Rule 4:"), 7, "Rule 3:");
}

struct Look {
    int minute;
    std::string page;  ///< empty: not modified
    std::string url = "https://orchard.example/rules";
    int status = 200;
};

/// What each look came to: "baseline, candidate, changed!" with a mark where it is told.
std::string outcomes(const std::vector<Look>& looks, PageWatch watch = {}) {
    std::string text;
    for (const auto& look : looks) {
        const auto at = start + minutes(look.minute);
        const auto outcome = applyVisit(watch, {.at = at,
                                                .isNotModified = look.page.empty(),
                                                .bytes = look.page,
                                                .url = look.url,
                                                .contentType = "text/html",
                                                .status = look.status});
        static const std::map<PageOutcome::Kind, std::string> names{
            {PageOutcome::Kind::baseline, "baseline"},     {PageOutcome::Kind::unchanged, "same"},
            {PageOutcome::Kind::order, "order"},           {PageOutcome::Kind::doubted, "doubted"},
            {PageOutcome::Kind::candidate, "candidate"},   {PageOutcome::Kind::changed, "changed"},
            {PageOutcome::Kind::returned, "returned"},     {PageOutcome::Kind::learned, "learned"},
            {PageOutcome::Kind::unreadable, "unreadable"},
        };
        text += (text.empty() ? "" : ", ") +
                (outcome.miss ? std::string(rawValue(*outcome.miss)) : names.at(outcome.kind));
        if (signalOf(outcome, watch.state, "Rules", "https://orchard.example/rules", at))
            text += "!";
    }
    return text;
}

TEST(PageWatch, tells_only_what_two_looks_agree_on) {
    const auto must = rules("must"), may = rules("may"), can = rules("can");
    const auto old = rules("might", "March 4, 2026"), fresh = rules("may", "April 1, 2026");
    const std::string wall =
        "<title>Access Denied</title><p>Access Denied. Reference #18.2 " + std::string(500, 'x');
    const std::string part = must.substr(0, must.size() / 3);
    const struct {
        std::vector<Look> looks;
        const char* outcomes;
    } cases[] = {
        {{{0, must}, {30, must}, {60, ""}, {90, may}, {94, may}, {120, may}},
         "baseline, same, same, candidate, changed!, same"},
        {{{0, must}, {30, may}, {34, must}, {60, may}}, "baseline, candidate, same, candidate"},
        {{{0, must}, {30, may}, {34, can}, {38, can}}, "baseline, candidate, candidate, changed!"},
        {{{0, must}, {30, shuffled()}, {60, shuffled()}}, "baseline, order, same"},
        // A text that was there before has to stay for a day.
        {{{0, must}, {30, fresh}, {34, fresh}, {60, must}, {90, fresh}, {120, must}, {600, must}},
         "baseline, candidate, changed!, doubted, same, doubted, doubted"},
        {{{0, must}, {30, fresh}, {34, fresh}, {60, must}, {900, must}, {1500, must}, {1530, must}},
         "baseline, candidate, changed!, doubted, doubted, returned!, same"},
        {{{0, must}, {30, old}, {34, old}, {60, must}}, "baseline, doubted, doubted, same"},
        // What can't be read changes nothing, and is told once it lasts; the log drops repeats.
        {{{0, must}, {30, wall}, {60, wall}, {90, wall}, {120, wall}, {150, wall}, {180, must}},
         "baseline, blocked, blocked, blocked, blocked!, blocked!, same"},
        {{{0, must}, {30, wall}, {31, wall}, {32, wall}, {33, wall}},
         "baseline, blocked, blocked, blocked, blocked"},
        {{{0, must}, {30, "<p>x", "https://orchard.example/rules", 503}, {60, part}},
         "baseline, blocked, tooShort"},
        {{{0, must + must + must}, {30, must}, {900, must}, {1500, must}},
         "baseline, shrunk, shrunk, changed!"},
        {{{0, must},
          {30, may, "https://login.example/rules"},
          {60, "<html lang=fr>" + may.substr(14)}},
         "baseline, otherHost, otherLanguage"},
        {{{0, must}, {30, may}, {34, wall}, {38, may}}, "baseline, candidate, blocked, changed!"},
    };
    for (const auto& one : cases) EXPECT_EQ(outcomes(one.looks), one.outcomes);
}

TEST(PageWatch, leaves_out_what_differs_at_each_fetch_but_not_real_changes) {
    const auto page = [](int number, const char* verb = "must") {
        return withAdvert(rules(verb), number);
    };
    // A change of the block before it takes two more looks to be sure of.
    EXPECT_EQ(outcomes({{0, page(1)},
                        {30, page(2)},
                        {34, page(3)},
                        {38, page(4)},
                        {60, page(5)},
                        {90, page(6, "may")},
                        {94, page(7, "may")},
                        {98, page(8, "may")},
                        {102, page(9, "may")},
                        {130, page(10, "may")}}),
              "baseline, candidate, candidate, learned, same, candidate, candidate, learned, "
              "changed!, same");
    // A change that comes together with it is told, too.
    EXPECT_EQ(outcomes({{0, page(1)},
                        {30, page(2, "may")},
                        {34, page(3, "may")},
                        {38, page(4, "may")},
                        {42, page(5, "may")}}),
              "baseline, candidate, candidate, learned, changed!");
    // A page of which everything differs is no page to watch.
    const auto noise = [](int number) {
        std::string html = "<h1>Noise</h1>";
        for (int i = 0; i < 20; ++i)
            html += "<p>Line " + std::to_string(number * 31 + i) +
                    " of words that are never twice here.";
        return html;
    };
    EXPECT_EQ(outcomes({{0, noise(1)}, {30, noise(2)}, {34, noise(3)}, {38, noise(4)}}),
              "baseline, candidate, candidate, unstable");
}

TEST(PageWatch, tells_that_links_lead_elsewhere_unless_they_do_at_each_fetch) {
    const auto page = [](const std::string& target) {
        return rules("must") + "<p>See the <a href='/" + target + "'>list of trees</a>.</p>";
    };
    EXPECT_EQ(outcomes({{0, page("trees")}, {30, page("woods")}, {34, page("woods")}, {64, ""}}),
              "baseline, candidate, changed!, same");
    EXPECT_EQ(outcomes({{0, page("trees")},
                        {30, page("woods")},
                        {34, page("woods")},
                        {60, page("trees")},
                        {90, page("woods")},
                        {120, page("trees")},
                        {1600, page("trees")}}),
              "baseline, candidate, changed!, doubted, same, doubted, changed!")
        << "old copies of servers have old links";
    EXPECT_EQ(outcomes({{0, page("a1")},
                        {30, page("b2")},
                        {34, page("c3")},
                        {38, page("d4")},
                        {60, page("e5")},
                        {90, page("f6")}}),
              "baseline, candidate, candidate, learned, same, same");
    PageWatch watch;
    PageOutcome outcome;
    int minute = 0;
    for (const auto* target : {"trees", "woods", "woods"}) {
        const auto html = page(target);
        outcome = applyVisit(watch, {.at = start + minutes(minute += 3),
                                     .bytes = html,
                                     .url = "https://orchard.example/rules"});
    }
    const auto signal = signalOf(outcome, watch.state, "Rules", "https://orchard.example/", start);
    ASSERT_TRUE(signal);
    EXPECT_EQ(signal->title,
              "Rules: 1 link leads elsewhere. Links changed in \"Fruit\": \"list of trees\" led to "
              "https://orchard.example/trees and now leads to https://orchard.example/woods");
    EXPECT_EQ(signal->weight, SignalWeight::routine);
}

TEST(PageWatch, knows_earlier_texts_when_other_parts_are_left_out) {
    const auto block = [](const std::string& text) {
        return PageBlock{PageBlock::Kind::paragraph, {}, {}, text, {}};
    };
    const auto text = [&](const std::string& verb, const std::string& advert) {
        return std::vector{block("Rules"), block("Growers " + verb + " sell pears."),
                           block("The end."), block(advert)};
    };
    const std::vector texts{text("may", "Advert two"), text("must", "Advert one")};
    PageWatch watch;
    watch.blocks = texts.front();
    watch.state.rules = 1;
    watch.state.key = pageKeys(texts.front()).key;
    watch.state.earlier = {{pageKeys(texts.back()).key, start}, {"of a text that is gone", start}};
    const auto learned = learnedVolatile(text("may", "Advert two"), text("may", "Advert 3"), {});
    ASSERT_TRUE(learned);
    watch.state.volatileBlocks = *learned;
    updateEarlierKeys(watch.state, {}, texts);
    const auto keyOf = [&](const std::string& advert) {
        return pageKeys(withoutVolatile(text("must", advert), watch.state.volatileBlocks)).key;
    };
    EXPECT_EQ(watch.state.earlier.front().key, keyOf("Advert 99"));
    EXPECT_EQ(watch.state.earlier.back().key, "of a text that is gone");

    // Compared again, and left out again before the next look and after it.
    auto restored = watch;
    forgetVolatile(restored, learned->front().place);
    updateEarlierKeys(restored.state, *learned, texts);
    EXPECT_EQ(restored.state.earlier.front().key, pageKeys(texts.back()).key);
    restored.state.rules = 1;
    restoreVolatile(restored, learned->front());
    EXPECT_EQ(restored.state.volatileBlocks, *learned);
    EXPECT_EQ(restored.state.key,
              pageKeys(withoutVolatile(text("may", "Advert 100"), *learned)).key);
}

TEST(PageWatch, reads_a_revision_again_with_other_rules_in_silence) {
    const auto page = withAdvert(rules("must"), 1);
    PageWatch watch;
    applyVisit(watch, {.at = start, .bytes = page, .url = "https://orchard.example/rules"});
    watch.state.rules = 0;
    watch.state.key = "of other rules";
    auto stored = watch;
    applyRules(stored, {.bytes = page, .url = "https://orchard.example/rules"});
    EXPECT_EQ(outcomes({{30, withAdvert(rules("may"), 1)}}, stored), "candidate");
    EXPECT_EQ(outcomes({{30, withAdvert(rules("may"), 1)}}, watch), "baseline");
}

TEST(PageSummary, says_what_weighs_most_first) {
    const auto block = [](const char* text) {
        return PageBlock{PageBlock::Kind::paragraph, {}, {}, text, {}};
    };
    const struct {
        std::vector<PageBlock> before, after;
        const char* sentence;
    } cases[] = {
        {{block("Last Updated: March 5, 2024")},
         {block("Last Updated: 6 April 2024")},
         "The date changed, and no other text."},
        {{block("A long new word for fruit of all kinds"), block("Apps must ask.")},
         {block("A long old name for plants of all kinds"), block("Apps may ask.")},
         "2 changes. Changed: \"must\" became \"may\" in \"Apps may ask.\""},
        {{block("Pears, plums")},
         {block("Pears  plums")},
         "1 change. Changed: \"Pears,\" became "
         "\"Pears\" in \"Pears plums\""},
    };
    for (const auto& one : cases)
        EXPECT_EQ(summarySentence(pageSummary(one.before, one.after)), one.sentence);
}

}  // namespace
}  // namespace kit
