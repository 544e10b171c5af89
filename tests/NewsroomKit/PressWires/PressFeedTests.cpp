#include <gtest/gtest.h>

#include <string>

#include <fmt/format.h>

#include "NewsroomKit/PressWires/PressFeed.h"

namespace kit {
namespace {

std::string wire(std::string_view title, std::string_view inside) {
    return fmt::format(
        "<rss xmlns:dc='http://purl.org/dc/elements/1.1/'><channel><title>{}</title>{}</channel>"
        "</rss>",
        title, inside);
}

PressSheet pressSheet(std::string_view document) {
    auto parsed = parsePress(document);
    EXPECT_TRUE(parsed.has_value()) << document;
    return parsed ? std::move(parsed).value() : PressSheet{};
}

TEST(PressWires, FindCompanyAndSymbolWhereEachWirePutsThem) {
    struct Case {
        std::string item;
        std::optional<std::string> company, symbol, exchange;
    };
    const std::vector<Case> cases{
        {"<title>A</title><category domain='https://www.globenewswire.com/rss/stock'>Nasdaq:PEAR"
         "</category><dc:contributor>Pear, Inc.</dc:contributor>",
         "Pear, Inc.", "PEAR", "Nasdaq"},
        {"<title>B</title><description>&lt;p&gt;AUSTIN, Nov. 20, 2026 /PRNewswire/ -- Oak Corp. "
         "(\"Oak\") (NYSE: OAK.A, OAK.B), a maker (of many things), today announced&lt;/p&gt;"
         "</description>",
         "Oak Corp.", "OAK.A", "NYSE"},
        {"<title>C</title><description>LYON (France: 2026) -- Elm today announced it."
         "</description>",
         "Elm", std::nullopt, std::nullopt},
        {"<title>D (OTCQB: FIGG) grows</title><description>Growth.</description>", std::nullopt,
         "FIGG", "OTCQB"},
    };
    for (const auto& row : cases) {
        const auto read = pressSheet(wire("Wire", "<item>" + row.item + "</item>"));
        ASSERT_EQ(read.releases.size(), 1U);
        EXPECT_EQ(read.releases[0].company, row.company) << row.item;
        EXPECT_EQ(read.releases[0].symbol, row.symbol) << row.item;
        EXPECT_EQ(read.releases[0].exchange, row.exchange) << row.item;
    }
}

TEST(PressWires, DropNoticesOfLawFirmsAlone) {
    const auto read = pressSheet(wire(
        "Wire",
        "<item><title>INVESTOR ALERT: Ash LLP</title></item>"
        "<item><title>Ash Law Firm Encourages Pear Investors to Act</title></item>"
        "<item><title>Deadline for Pear holders</title><description>The law firm Ash reminds "
        "purchasers of Pear securities.</description></item>"
        "<item><title>Pear settles</title><description>Pear settled a class action.</description>"
        "</item>"));
    EXPECT_EQ(read.dropped, 3U);
    ASSERT_EQ(read.releases.size(), 1U);
    EXPECT_EQ(read.releases[0].title, "Pear settles");
}

TEST(PressWires, RecogniseRefusalsThatComeWithStatus200) {
    const auto faultOf = [](std::string_view document) {
        const auto parsed = parsePress(document);
        return parsed ? std::string() : std::string(rawValue(parsed.error().error));
    };
    const std::string item =
        "<item><title>A</title><link>https://www.prnewswire.com/a.html</link></item>";
    EXPECT_EQ(faultOf(wire("Business Wire",
                           "<pubDate>Fri, 20 Nov 2026 14:59:00 GMT</pubDate><description>RSS "
                           "channel ID is not available in the request.</description>")),
              "channelUnknown");
    EXPECT_EQ(faultOf(wire("", item)), "channelUnknown");
    EXPECT_EQ(faultOf(wire("All News Releases", item)), "");
    EXPECT_EQ(faultOf(wire("Quiet channel", "<description>Releases of Oak</description>")), "");
    EXPECT_EQ(faultOf("<html><head></head></html>"), "notAFeed");
    EXPECT_EQ(faultOf("<rss><channel>"), "malformed");
}

}  // namespace
}  // namespace kit
