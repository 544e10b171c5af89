#include "NewsroomKit/Editorial/PhraseTables.h"

#include <algorithm>

#include "NewsroomKit/Editorial/EditorialNames.h"

// The order of phrases within a table, and of tables that compete for a story, is part of
// the rules: the earliest phrase is the one a label is explained by.

namespace kit {

namespace {

using EditorialNames::executives;
using EditorialNames::householdNames;

constexpr auto kindExclusionPhrases = std::to_array<std::string_view>({
    "sales figures",     "sales report",        "earnings",    "quarterly",   "revenue",
    "market share",      "antitrust",           "lawsuit",     "settlement",  "acquisition",
    "deal with",         "licensing deal",      "supply deal", "trade deal",  "app store review",
    "review process",    "under review",        "app review",  "peer review", "reviewers guild",
    "ad campaign",       "advertising revenue", "ad business", "ad market",   "super bowl ad",
    "privacy nutrition", "app tracking",
});

constexpr auto dealPhrases = std::to_array<std::string_view>({
    "deal",         "deals",        "discount",   "discounted",   "sale",
    "on sale",      "save $",       "save £",     "% off",        "percent off",
    "price drop",   "lowest price", "best price", "coupon",       "promo code",
    "black friday", "prime day",    "clearance",  "bundle offer", "cheapest",
});

// clang-format off
constexpr auto reviewPhrases = std::to_array<std::string_view>({
    "review", "reviewed", "hands-on", "hands on", "first impressions", "we tried", "i tried",
    "tested", "benchmarked", "unboxing", "long-term test", "verdict",
});

constexpr auto roundupPhrases = std::to_array<std::string_view>({
    "roundup", "round-up", "news roundup", "weekly roundup", "product roundup", "shopping roundup",
    "accessory roundup", "deal roundup", "review roundup",
});

constexpr auto sponsoredPhrases = std::to_array<std::string_view>({
    "sponsored", "sponsored post", "sponsored content", "paid partnership", "paid post",
    "partner content", "brought to you by", "#ad", "#sponsored",
});

constexpr auto advertisementPhrases = std::to_array<std::string_view>({
    "advertisement", "advertorial", "native ad", "promoted post", "[ad]", "(ad)",
});

constexpr auto fulfilledRumorPhrases = std::to_array<std::string_view>({
    "long-rumored", "long rumored", "long-rumoured", "long rumoured", "once-rumored",
    "becomes reality", "became reality", "as rumored", "as rumoured",
});

constexpr auto rumorPhrases = std::to_array<std::string_view>({
    "rumor", "rumors", "rumour", "rumoured", "rumored", "leak", "leaks", "leaked", "leaker",
    "allegedly", "alleged", "tipped", "tipster", "purported", "purportedly", "supposedly",
    "mockup", "mockups", "dummy", "dummies", "schematics", "case maker",
    EditorialNames::forecastingAnalyst, "unannounced",
});

constexpr auto reportPhrases = std::to_array<std::string_view>({
    "reportedly", "report:", "report says", "reports say", "report claims", "report suggests",
    "according to", "sources say", "people familiar", "said to be", "said to", "per report",
    EditorialNames::appleReporter, "bloomberg", "the information", "wall street journal", "wsj",
    "financial times", "analyst", "analysts", "supply chain", "in the works", "is working on",
    "plans to", "planning to", "expected to", "claims", "jiemian",
});

constexpr auto appleSpeaksPhrases = std::to_array<std::string_view>({
    "apple says", "apple explains", "apple confirms", "apple responds", "apple tells",
    "apple statement", "apple comments", "apple denies", "apple clarifies",
});

constexpr auto spokespersonPhrases = [] {
    std::array<std::string_view, executives.size() + 3> people{};
    auto next = std::ranges::copy(executives, people.begin()).out;
    for (const std::string_view office :
         {"apple spokesperson", "apple spokesman", "apple spokeswoman"}) {
        *next++ = office;
    }
    return people;
}();

constexpr auto speechPhrases = std::to_array<std::string_view>({
    "says", "said", "explains", "explained", "told", "tells", "interview", "on record", "responds",
    "comments", "confirms", "confirmed", "talks", "discusses", "shares",
});

constexpr auto releasePhrases = std::to_array<std::string_view>({
    "apple releases", "apple released", "apple launches", "apple launched", "apple announces",
    "apple announced", "apple unveils", "apple introduces", "apple debuts", "apple rolls out",
    "apple begins", "apple opens", "apple updates", "apple shares new", "apple publishes",
    "now available", "is now out", "is out now", "out now", "are now available", "available today",
    "officially",
});

constexpr auto stockExclusionPhrases = std::to_array<std::string_view>({
    "in stock", "out of stock", "stock up", "stocks app", "stock app", "stock apps", "stock photo",
    "stock photos", "stock wallpaper", "stock wallpapers", "stock image", "stock images",
});

constexpr auto stockPhrases = std::to_array<std::string_view>({
    "aapl", "apple stock", "apple's stock", "stock price", "share price", "shares of apple",
    "stock", "market cap", "market value", "valuation", "price target", "earnings", "wall street",
    "investors", "shareholder", "shareholders", "nasdaq", "dow jones", "s&p 500", "trillion",
    "buyback", "dividend",
});

constexpr auto marketExclusionPhrases = std::to_array<std::string_view>({
    "how to", "hands-on", "hands on", "review", "deals", "deal of the day", "best deals",
    "sale price", "on sale", "wallpaper", "wallpapers", "tips", "podcast", "quiz", "giveaway",
});

constexpr auto marketEarningsPhrases = std::to_array<std::string_view>({
    "earnings", "quarterly results", "fiscal quarter", "revenue", "profit", "guidance", "forecast",
    "margin", "margins", "beats estimates", "misses estimates", "q1", "q2", "q3", "q4",
});

constexpr auto marketAnalystsPhrases = std::to_array<std::string_view>({
    "price target", "downgrade", "downgrades", "downgraded", "upgrade to buy", "upgrades apple",
    "upgraded apple", "analyst", "analysts", "overweight", "underweight", "outperform",
    "underperform", "morgan stanley", "goldman sachs", "jpmorgan", "wedbush", "bank of america",
});

constexpr auto marketLegalPhrases = std::to_array<std::string_view>({
    "lawsuit", "sues", "sued", "court", "judge", "ruling", "appeal", "antitrust", "doj",
    "justice department", "ftc", "european commission", "eu fine", "fined", "dma",
    "digital markets act", "regulator", "regulators", "investigation", "probe", "settlement",
    "class action", "patent", "injunction", "ban",
});

constexpr auto marketTradePhrases = std::to_array<std::string_view>({
    "tariff", "tariffs", "trade war", "export controls", "sanctions", "white house",
    EditorialNames::usPresident, "beijing", "china ban", "import", "imports",
});

constexpr auto marketSupplyPhrases = std::to_array<std::string_view>({
    "supply chain", "production cut", "production cuts", "cuts production", "shortage",
    "shortages", "factory", "factories", "foxconn", "tsmc", "supplier", "suppliers",
    "shipments delayed", "recall",
});

constexpr auto marketSalesPhrases = std::to_array<std::string_view>({
    "shipments", "market share", "sales", "sold", "demand", "counterpoint", "idc", "canalys",
    "best-selling", "installed base",
});

constexpr auto marketLeadershipPhrases = std::to_array<std::string_view>({
    "ceo", EditorialNames::chiefExecutive, "steps down", "stepping down", "retire", "retires",
    "retiring", "resigns", "successor", "executive", "chief operating officer", "cfo",
    "board of directors",
});

constexpr auto marketDealPhrases = std::to_array<std::string_view>({
    "acquires", "acquisition", "acquire", "buys", "invests", "investment", "billion deal",
    "contract", "stake",
});

constexpr auto appleTopicPhrases = std::to_array<std::string_view>({
    "apple", "aapl", EditorialNames::headquartersCity, householdNames[0], householdNames[1],
    householdNames[2], householdNames[3], "iphone", "iphones", "ipad", "ipads", "ipados", "mac",
    "macs", "macbook", "macbooks", "imac", "mac mini", "mac studio", "mac pro", "macos", "airpods",
    "apple watch", "watchos", "vision pro", "visionos", "tvos", "ios", "homepod", "airtag",
    "airtags", "siri", "app store", "icloud", "carplay", "facetime", "imessage", "wwdc", "xcode",
    "swiftui", "safari", "apple silicon",
});
// clang-format on

struct Row {
    PhraseTable table;
    std::string_view name;
    std::span<const std::string_view> phrases;
};

/// In the order of the enumeration, which indexes it.
constexpr auto rows = std::to_array<Row>({
    {PhraseTable::kindExclusion, "kind exclusions", kindExclusionPhrases},
    {PhraseTable::deal, "deal phrases", dealPhrases},
    {PhraseTable::review, "review phrases", reviewPhrases},
    {PhraseTable::roundup, "roundup phrases", roundupPhrases},
    {PhraseTable::sponsored, "sponsoring phrases", sponsoredPhrases},
    {PhraseTable::advertisement, "advertisement phrases", advertisementPhrases},
    {PhraseTable::fulfilledRumor, "fulfilled-rumor phrases", fulfilledRumorPhrases},
    {PhraseTable::rumor, "rumor phrases", rumorPhrases},
    {PhraseTable::report, "report phrases", reportPhrases},
    {PhraseTable::appleSpeaks, "Apple-speaks phrases", appleSpeaksPhrases},
    {PhraseTable::spokesperson, "spokespeople", spokespersonPhrases},
    {PhraseTable::speech, "speech verbs", speechPhrases},
    {PhraseTable::release, "release phrases", releasePhrases},
    {PhraseTable::stockExclusion, "share price exclusions", stockExclusionPhrases},
    {PhraseTable::stock, "share price phrases", stockPhrases},
    {PhraseTable::marketExclusion, "market exclusions", marketExclusionPhrases},
    {PhraseTable::marketEarnings, "market phrases for earnings", marketEarningsPhrases},
    {PhraseTable::marketAnalysts, "market phrases for analysts", marketAnalystsPhrases},
    {PhraseTable::marketLegal, "market phrases for legal", marketLegalPhrases},
    {PhraseTable::marketTrade, "market phrases for trade", marketTradePhrases},
    {PhraseTable::marketSupply, "market phrases for supply", marketSupplyPhrases},
    {PhraseTable::marketSales, "market phrases for sales", marketSalesPhrases},
    {PhraseTable::marketLeadership, "market phrases for leadership", marketLeadershipPhrases},
    {PhraseTable::marketDeal, "market phrases for deal", marketDealPhrases},
    {PhraseTable::appleTopic, "Apple topics", appleTopicPhrases},
});

static_assert(rows.size() == phraseTableCount);

constexpr const Row& rowOf(PhraseTable table) { return rows[static_cast<std::size_t>(table)]; }

}  // namespace

std::string_view tableName(PhraseTable table) { return rowOf(table).name; }

std::span<const std::string_view> phrases(PhraseTable table) { return rowOf(table).phrases; }

std::optional<std::string_view> PhraseHits::first(PhraseTable table) const {
    if (!has(table)) return std::nullopt;
    return rowOf(table).phrases[first_[index(table)]];
}

std::optional<RuleHit> ruleHit(PhraseTable table, const PhraseHits& hits, RuleHit::Where where) {
    const auto phrase = hits.first(table);
    if (!phrase) return std::nullopt;
    return RuleHit{.table = tableName(table), .phrase = *phrase, .where = where};
}

}  // namespace kit
