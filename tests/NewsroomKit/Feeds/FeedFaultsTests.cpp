#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "NewsroomKit/Feeds/FeedParser.h"

namespace kit {
namespace {

using namespace std::string_literals;

std::string withTitle(const std::string& title) {
    return "<rss><channel><item><title>" + title + "</title></item></channel></rss>";
}

/// The title of the only entry, or the error's raw value in brackets.
std::string titleOf(const std::string& document) {
    const auto parsed = parseFeed(document);
    if (!parsed) return "(" + std::string(rawValue(parsed.error())) + ")";
    return parsed.value().entries.size() == 1 ? parsed.value().entries[0].title : "(none)";
}

std::string utf16(const std::string& ascii, bool bigEndian) {
    std::string bytes;
    for (char c : ascii) {
        if (bigEndian) bytes += '\0';
        bytes += c;
        if (!bigEndian) bytes += '\0';
    }
    return bytes;
}

TEST(FeedFaults, ThatChangeNoMeaningAreForgiven) {
    const std::pair<std::string, std::string_view> cases[] = {
        {" \r\n\t<?xml version=\"1.0\"?>" + withTitle("T"), "T"},
        {"\xEF\xBB\xBF\n<?xml version=\"1.0\"?>" + withTitle("T"), "T"},
        {withTitle("a\x01\x0B\x1F"
                   "b\0c"s),
         "abc"},
        {withTitle("a&#0;b&#x1F;c&#xFFFF;d&#xD800;e&#99999999999;f"), "abcdef"},
        {withTitle("a\xEF\xBF\xBE"
                   "b\xEF\xBF\xBD"),
         "ab\xEF\xBF\xBD"},
        {withTitle("a&#9;b&#x10FFFD;"), "a\tb\xF4\x8F\xBF\xBD"},
        {withTitle("caf&eacute;&nbsp;&mdash; &euro;1 &amp;eacute;"), "café\u00A0— €1 &eacute;"},
        {withTitle("T") + "\n<!-- served in 3 ms -->\n", "T"},
        {withTitle("T") + "\0\0\0"s, "T"},
        {"<?xml version=\"1.0\" encoding=\"8859-1\"?>\n<?xml-stylesheet href='a'?>" +
             withTitle("T"),
         "T"},
    };
    for (const auto& [document, title] : cases) EXPECT_EQ(titleOf(document), title) << document;
}

TEST(FeedFaults, HTMLNamesAreKnownInAttributesToo) {
    const auto parsed = parseFeed(
        "<feed><entry><title>T</title><link "
        "href=\"https://a.example/caf&eacute;&rarr;1\"/></entry></feed>");
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(parsed.value().entries.at(0).link, "https://a.example/café→1");
}

TEST(FeedFaults, WrongAndMissingEncodingLabelsAreSeenThrough) {
    const auto labelled = [](const std::string& label, const std::string& title) {
        return "<?xml version=\"1.0\" encoding=\"" + label + "\"?>" + withTitle(title);
    };
    const std::pair<std::string, std::string_view> cases[] = {
        {labelled("ISO-8859-1",
                  "Sm\xF8rebr\xF8"
                  "d \x96 \x80"
                  "5"),
         "Smørebrød – €5"},
        {labelled("ISO-8859-1", "Smørebrød"), "Smørebrød"},
        {labelled("windows-1251", "\xCF\xEE\xF0\xF2"), "Порт"},
        {labelled("gb2312", "\xB8\xDB\xBF\xDA"), "港口"},
        {labelled("Shift_JIS", "\x8D\x60"), "港"},
        // clang-format off
        {labelled("utf-16", "Smørebrød"), "Smørebrød"},
        {labelled("us-ascii", "Smørebrød"), "Smørebrød"},
        {labelled("made-up-8", "Smørebrød"), "Smørebrød"},
        {labelled("made-up-8", "Sm\xF8rebr\xF8" "d"), "Smørebrød"},
        {labelled("../../etc/passwd", "Sm\xF8rebr\xF8" "d"), "Smørebrød"},
        {labelled("utf-8", "Sm\xF8rebr\xF8" "d"), "Smørebrød"},
        // clang-format on
        {labelled("utf-8", "Smørebrød, kaffe \xC3"), "Smørebrød, kaffe \uFFFD"},
        {withTitle("Sm\xF8rebr\xF8"
                   "d"),
         "Smørebrød"},
        {"\xFE\xFF" + utf16(withTitle("T"), true), "T"},
        {"\xFF\xFE" + utf16("<?xml version=\"1.0\" encoding=\"utf-16\"?>" + withTitle("T"), false),
         "T"},
        {utf16(withTitle("T"), true), "T"},
        {utf16(withTitle("T"), false), "T"},
    };
    for (const auto& [document, title] : cases) EXPECT_EQ(titleOf(document), title) << document;
}

TEST(FeedFaults, DocumentsWithoutAFeedElementAreNoFeeds) {
    // clang-format off
    const std::string cases[] = {
        "", " \n", "\0\0\0\0"s, "{\"items\": []}", "Not found", "<html><body><p>Sign in</p></body></html>",
        "<!DOCTYPE html><html><head><meta charset=utf-8><title>Sign in</title><body>&nbsp;<br>",
        "<opml version=\"2.0\"><body/></opml>", "\xFF\xD8\xFF\xE0\x00\x10JFIF"s, "<", "\xFF\xFE",
        "<?xml version=\"1.0\"", "<!DOCTYPE rss SYSTEM \"rss.dtd\">",
    };
    // clang-format on
    for (const auto& document : cases) EXPECT_EQ(titleOf(document), "(notAFeed)") << document;
}

TEST(FeedFaults, AnythingElseThatIsNotWellFormedIsMalformed) {
    const auto whole = withTitle("T");
    // clang-format off
    const std::string cases[] = {
        whole.substr(0, whole.size() - 1), whole.substr(0, whole.find("</title>")), "<rss><channel>", "<rss",
        withTitle("a & b <b>"), withTitle("<b>"), whole + "<rss/>", "<rss a='1' a='2'/>",
        "<rss><channel><item a='1' a='2'/></channel></rss>", withTitle("<![CDATA[ "),
    };
    // clang-format on
    for (const auto& document : cases) EXPECT_EQ(titleOf(document), "(malformed)") << document;
}

TEST(FeedFaults, AmpersandsThatBeginNoReferenceAreText) {
    const std::pair<std::string, std::string_view> cases[] = {
        {withTitle("Fish & chips"), "Fish & chips"},
        {withTitle("AT&T; R&D, Q&A;"), "AT&T; R&D, Q&A;"},
        {withTitle("&unheardof; &#xZZ; &# &eacute; &amp; &#233;"), "&unheardof; &#xZZ; &# é & é"},
        {withTitle("a & <![CDATA[b & &c; <]]>&d;"), "a & b & &c; <&d;"},
        {"<rss><!-- & -->" + withTitle("a & b").substr(5), "a & b"},
        {"<rss x='a&b=c'>" + withTitle("T").substr(5), "T"},
        {"<!DOCTYPE rss [<!ENTITY own 'Quay>'>]>" + withTitle("&own; & &other;"),
         "Quay> & &other;"},
        {"<!DOCTYPE rss [<!-- The desk's --><!ENTITY own 'Quay'>]>" + withTitle("&own; & it's"),
         "Quay & it's"},
    };
    for (const auto& [document, title] : cases) EXPECT_EQ(titleOf(document), title) << document;
}

TEST(FeedFaults, EntitiesThatADocumentDeclaresExpand) {
    const auto declaring = [](const std::string& declarations, const std::string& title) {
        return "<!DOCTYPE rss [" + declarations + "]>" + withTitle(title);
    };
    const std::pair<std::string, std::string_view> cases[] = {
        {declaring("<!ENTITY desk 'Quay &amp; Pier'>", "&desk;: &desk;"),
         "Quay & Pier: Quay & Pier"},
        {declaring("<!ENTITY a '1&b;'><!ENTITY b '2'><!ENTITY b '3'>", "&a;"), "12"},
        {declaring("<!ENTITY e '&#233;&#38;#60;&eacute;&nothing;'>", "&e;"), "é<é&nothing;"},
        {declaring("<!ENTITY nbsp '_'>", "a&nbsp;b&eacute;"), "a_bé"},
        {declaring("<!ENTITY loop 'x&loop;'>", "&loop;"), "(malformed)"},
    };
    for (const auto& [document, title] : cases) EXPECT_EQ(titleOf(document), title) << document;

    const auto parsed = parseFeed(
        "<!DOCTYPE feed [<!ENTITY site 'https://quay.example/?a=1&#38;amp;t=&#38;lt;'>]>"
        "<feed><entry><title>T</title><link href='&site;2'/></entry></feed>");
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(parsed.value().entries.at(0).link, "https://quay.example/?a=1&t=<2");
}

TEST(FeedFaults, EntitiesThatWouldFillTheMemoryEndTheReading) {
    std::string bomb = "<!DOCTYPE rss [<!ENTITY l0 \"lol\">";
    for (int i = 1; i < 10; ++i) {
        bomb += "<!ENTITY l" + std::to_string(i) + " \"";
        for (int j = 0; j < 10; ++j) bomb += "&l" + std::to_string(i - 1) + ";";
        bomb += "\">";
    }
    EXPECT_EQ(titleOf(bomb + "]>" + withTitle("&l9;")), "(malformed)");
    EXPECT_EQ(titleOf(bomb + "]>" + withTitle("T")), "T");
    EXPECT_EQ(titleOf(bomb + "]>" + withTitle("&l2;")).size(), 300U);

    std::string chain = "<!DOCTYPE rss [<!ENTITY c0 'x'>";
    for (int i = 1; i < 1'500; ++i) {
        chain += "<!ENTITY c" + std::to_string(i) + " '&c" + std::to_string(i - 1) + ";'>";
    }
    EXPECT_EQ(titleOf(chain + "]>" + withTitle("&c1499;")), "(malformed)");

    std::string often = "<!DOCTYPE rss [<!ENTITY long '" + std::string(50'000, 'x') + "'>]>";
    for (int i = 0; i < 1'000; ++i) often += "<rss a='&long;'>";
    EXPECT_EQ(titleOf(often), "(malformed)");
}

TEST(FeedFaults, AFeedBehindAnOddDocumentTypeIsMalformedAndAWebPageIsNoFeed) {
    const std::pair<std::string, std::string_view> cases[] = {
        {"<!DOCTYPE rss PUBLIC \"-//Quay//RSS>" + withTitle("T"), "(malformed)"},
        {"<!doctype rss>" + withTitle("T"), "(malformed)"},
        {"<!DOCTYPE rss [<!ENTITY x '<b>'> %unknown ]><rdf:RDF></rdf:RDF>", "(malformed)"},
        {"<!DOCTYPE html PUBLIC \"-//W3C><html><body><rss></body></html>", "(notAFeed)"},
        {"<!DOCTYPE html [ <feedback><p>x", "(notAFeed)"},
        {"{\"text\": \"<rss>\"}", "(notAFeed)"},
    };
    for (const auto& [document, title] : cases) EXPECT_EQ(titleOf(document), title) << document;
}

TEST(FeedFaults, AReadingThatIsStoppedEndsAsMalformed) {
    std::stop_source stop;
    const WorkLimit limit(stop.get_token(), WorkLimit::Clock::time_point::max());
    EXPECT_TRUE(parseFeed(withTitle("T"), {}, limit).has_value());
    stop.request_stop();
    EXPECT_FALSE(parseFeed(withTitle("T"), {}, limit).has_value());
    EXPECT_FALSE(parseFeed(withTitle("T"), {}, WorkLimit({}, WorkLimit::Clock::now())).has_value());
}

TEST(FeedFaults, NoFileIsReadForADocument) {
    const auto path = std::filesystem::path(testing::TempDir()) / "brell-secret.txt";
    std::ofstream(path) << "secret";
    const auto uri = "file://" + path.string();
    for (const auto& declaration : {"<!DOCTYPE rss [<!ENTITY x SYSTEM \"" + uri + "\">]>",
                                    "<!DOCTYPE rss [<!ENTITY % p SYSTEM \"" + uri + "\"> %p;]>",
                                    "<!DOCTYPE rss SYSTEM \"" + uri + "\">"}) {
        EXPECT_EQ(titleOf(declaration + withTitle("a&x;b")).find("secret"), std::string::npos);
    }
    std::filesystem::remove(path);
}

/// Generous for a sanitizer on a busy machine, yet far below what square growth would take.
constexpr auto patience = std::chrono::seconds(20);

void expectSoon(const std::string& document, std::string_view title) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(titleOf(document).substr(0, 60), title) << document.substr(0, 60);
    EXPECT_LT(std::chrono::steady_clock::now() - start, patience) << document.substr(0, 60);
}

std::string repeated(std::string_view text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) result += text;
    return result;
}

/// Each number from 0 on between `before` and `after`.
std::string numbered(std::string_view before, int count, std::string_view after) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += before;
        result += std::to_string(i);
        result += after;
    }
    return result;
}

TEST(FeedFaults, HostileDocumentsEndSoon) {
    const auto attributes = numbered(" a", 600'000, "=''");
    const std::pair<std::string, std::string> cases[] = {
        {withTitle(repeated("<b>", 10'000) + repeated("</b>", 10'000)), "(malformed)"},
        {"<rss><channel><item" + attributes + "/></channel></rss>", "(malformed)"},
        {"<rss><channel><item><title>T</title><x" + attributes + "/></item></channel></rss>",
         "(malformed)"},
        {"<!DOCTYPE rss [" + repeated("<!ATTLIST x a CDATA 'v'>", 5'000) + "]>" + withTitle("T"),
         "(malformed)"},
        {withTitle(repeated("&nbsp;", 900'000)).substr(0, 5'400'000), "(malformed)"},
        {"<rss><!--" + repeated("-x", 2'000'000), "(malformed)"},
        {withTitle(repeated("&#1;", 1'000'000)), ""},
    };
    for (const auto& [document, title] : cases) expectSoon(document, title);
}

TEST(FeedFaults, TagsThatCostMoreThanTheirLengthEndSoon) {
    const auto namespaces = numbered(" xmlns:n", 3'000, "='u'");
    const auto names = numbered("<e", 300, "/>");
    const std::string end = "</channel></rss>";
    const std::pair<std::string, std::string> cases[] = {
        {"<rss><channel>" + repeated("<a" + numbered(" a", 6'000, "=''") + "/>", 90) + end,
         "(malformed)"},
        {"<rss" + namespaces + "><channel>" + repeated("<q/>", 1'000'000) + end, "(malformed)"},
        {"<rss><channel>" + repeated("<a" + namespaces + ">", 48) + repeated("<q/>", 500'000) +
             repeated("</a>", 48) + end,
         "(malformed)"},
        {"<rss><channel>" + repeated("<a xmlns:n='u'/>", 350'000) + end, "(malformed)"},
        {"<rss><channel>" + numbered("<e", 500'000, "/>") + end, "(malformed)"},
        {"<rss><channel>" + numbered("<e a", 300'000, "=''/>") + end, "(malformed)"},
        {"<rss><channel>" + numbered("<?p", 400'000, "?>") + end, "(malformed)"},
        {"<rss xmlns='" + std::string(400'000, 'u') + "'><channel>" + repeated(names, 1'000) +
             "<item><title>T</title></item>" + end,
         "T"},
        {"<rss><channel><item x='" + std::string(6'000'000, '>') + "'><title>T</title></item>" +
             end,
         "T"},
    };
    for (const auto& [document, title] : cases) expectSoon(document, title);
}

TEST(FeedFaults, DTDsAreReadWithinMeasure) {
    const auto withSubset = [](const std::string& declarations) {
        return "<!DOCTYPE rss [" + declarations + "]><rss><channel><item><title>T</title>" +
               repeated("<a/>", 20'000) + "</item></channel></rss>";
    };
    const std::pair<std::string, std::string> cases[] = {
        {withSubset("<!ENTITY e 'x'><!ELEMENT rss ANY><!ATTLIST a b CDATA #IMPLIED>"), "T"},
        {withSubset("<!ATTLIST a" + numbered(" a", 2'000, " (x|y) #IMPLIED") + ">"), "T"},
        {withSubset("<!ATTLIST a b CDATA 'v'>"), "(malformed)"},
        {withSubset("<!ATTLIST a b CDATA #FIXED 'v'>"), "(malformed)"},
        {withSubset("<!ATTLIST a" + numbered(" a", 990, " CDATA 'v'") + ">"), "(malformed)"},
        {withSubset("<!ATTLIST a" + numbered(" xmlns:a", 990, " CDATA 'v'") + ">"), "(malformed)"},
        {withSubset("<!ATTLIST a b CDATA '" + std::string(50'000, 'v') + "'>"), "(malformed)"},
        {withSubset(numbered("<!ENTITY e", 200'000, " 'x'>")), "(malformed)"},
        {withSubset("<!--'-->" + numbered("<!ENTITY e", 200'000, " '>'>") + "<!--'-->"),
         "(malformed)"},
        {withSubset("<!--" + std::string(5'000'000, 'x') + "-->"), "(malformed)"},
    };
    for (const auto& [document, title] : cases) expectSoon(document, title);
}

TEST(FeedFaults, FeedsRichInNamesAndAttributesAreNotTakenForHostile) {
    const auto root = "<rss" + numbered(" xmlns:n", 40, "='urn:n'");
    const auto tag = "<n7:a" + numbered(" n8:a", 10, "='x'") + " xmlns='urn:d'/>";
    EXPECT_EQ(titleOf(root + "><channel>" + repeated(tag, 50'000) + numbered("<e", 2'000, "/>") +
                      "<item><title>T</title></item></channel></rss>"),
              "T");
}

TEST(FeedFaults, AnItemMayHoldThousandsOfPictures) {
    const auto pictures = numbered("<img src=\"https://a.example/", 40'000, ".png\">\n");
    for (const std::string& html :
         {"<![CDATA[" + pictures + "]]>", "<![CDATA['" + pictures + "]]>"}) {
        const auto parsed = parseFeed("<rss><channel><item><title>T</title><description>" + html +
                                      "</description></item></channel></rss>");
        ASSERT_TRUE(parsed.has_value());
        EXPECT_EQ(parsed.value().entries.at(0).imageURL, "https://a.example/0.png");
    }
}

TEST(FeedFaults, LongTitlesAndLongAttributesAreKept) {
    const std::string longText(100'000, 'x');
    EXPECT_EQ(titleOf(withTitle(longText)), longText);
    const auto parsed = parseFeed("<feed><entry><title>T</title><link href=\"https://a.example/" +
                                  longText + "\"/></entry></feed>");
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(parsed.value().entries.at(0).link.size(), longText.size() + 18);
}

}  // namespace
}  // namespace kit
