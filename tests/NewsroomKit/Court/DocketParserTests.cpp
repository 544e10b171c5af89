#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include <fmt/format.h>

#include "NewsroomKit/Court/DocketParser.h"
#include "NewsroomKit/Court/EntryKinds.h"

namespace kit {
namespace {

std::string courtFeed(std::string_view scope, std::string_view items) {
    return fmt::format(
        "<rss version='2.0'><channel><title>District of Sample - Recent Entries</title>"
        "<link>https://ecf.smpd.uscourts.gov</link><description>{}</description>"
        "<lastBuildDate>Fri, 20 Nov 2026 18:00:00 EST</lastBuildDate>{}</channel></rss>",
        scope, items);
}

std::string item(std::string_view title, std::string_view description, std::string_view guid) {
    return fmt::format(
        "<item><title>{}</title><link>https://ecf.smpd.uscourts.gov/cgi-bin/DktRpt.pl?7</link>"
        "<description>{}</description><guid>{}</guid>"
        "<pubDate>Fri, 20 Nov 2026 17:00:00 EST</pubDate></item>",
        title, description, guid);
}

DocketSheet sheet(std::string_view document) {
    auto parsed = parseDocket(document);
    EXPECT_TRUE(parsed.has_value()) << document.substr(0, 200);
    return parsed ? std::move(parsed).value() : DocketSheet{};
}

DocketEntry onlyEntry(std::string_view document) {
    auto read = sheet(document);
    EXPECT_EQ(read.entries.size(), 1U);
    return read.entries.empty() ? DocketEntry{} : read.entries.front();
}

TEST(CourtFeed, ReadsTitlesAndAnchorsAsCourtsEscapeThem) {
    struct Case {
        std::string title, description;
        std::optional<std::string> name, number, document;
        std::string kind;
    };
    const std::string doc = "https://ecf.smpd.uscourts.gov/doc1/12?caseid=7&de_seq_num=3";
    const std::vector<Case> cases{
        {"1:26-cv-00007 Oak &amp;amp; Elm v. Pear, Inc.",
         "[Order] (&lt;a href='https://ecf.smpd.uscourts.gov/doc1/12?caseid=7&amp;amp;de_seq_num=3'"
         "&gt;41&lt;/a&gt;)",
         "Oak & Elm v. Pear, Inc.", "41", doc, "Order"},
        {"1:26-cv-00007 Oak v. Pear   ",
         "[Order] (&amp;lt;a href=&amp;quot;https://ecf.smpd.uscourts.gov/doc1/12?caseid=7&amp;amp;"
         "de_seq_num=3&amp;quot; &amp;gt;Document&amp;lt;/a&amp;gt;)",
         "Oak v. Pear", std::nullopt, doc, "Order"},
        {"26-90003 ", "Type: ap Office: 1 Chapter:   [Close Adversary Case] ", std::nullopt,
         std::nullopt, std::nullopt, "Close Adversary Case"},
    };
    for (const auto& row : cases) {
        const auto entry = onlyEntry(
            courtFeed("Docket entries of type: all",
                      item(row.title, row.description, "https://x.example/?7 &amp;\n 3")));
        EXPECT_EQ(entry.key, "https://x.example/?7&3");
        EXPECT_EQ(entry.court, "smpd");
        EXPECT_EQ(entry.caseNumber, row.title.substr(0, row.title.find(' ')));
        EXPECT_EQ(entry.caseName, row.name) << row.title;
        EXPECT_EQ(entry.number, row.number) << row.description;
        EXPECT_EQ(entry.documentLink, row.document) << row.description;
        EXPECT_EQ(entry.paid, row.document ? std::optional(true) : std::nullopt);
        EXPECT_EQ(entry.kind, row.kind);
        EXPECT_EQ(iso8601Text(entry.date.value_or(Instant())), "2026-11-20T22:00:00Z");
        EXPECT_FALSE(entry.dayOnly);
    }
}

TEST(CourtFeed, MergesTheEventsOfOneFiling) {
    const auto read =
        sheet(courtFeed("Docket entries of type: order,motion",
                        item("1:26-cv-7 Oak v. Pear", "[~Util - Set Hearings] ", "a") +
                            item("1:26-cv-8 Ash v. Fig", "[Letter] ", "b") +
                            item("1:26-cv-7 Oak v. Pear", "[Order to Show Cause] ", "a") +
                            item("1:26-cv-7 Oak v. Pear", "[Order to Show Cause] ", " a ")));
    EXPECT_EQ(read.scope, "Docket entries of type: order,motion");
    EXPECT_TRUE(read.partial);
    ASSERT_EQ(read.entries.size(), 2U);
    EXPECT_EQ(read.entries[0].kind, "Order to Show Cause");
    EXPECT_EQ(read.entries[0].weight, DocketWeight::matters);
    EXPECT_TRUE(read.entries[0].text.starts_with("~Util - Set Hearings and Order to Show Cause"));
    EXPECT_EQ(read.entries[1].weight, DocketWeight::routine);
}

TEST(CourtListener, ReadsItsFeedOfADocketWithDaysAndPrices) {
    const auto entries =
        sheet(
            "<feed xmlns='http://www.w3.org/2005/Atom'><title>Docket updates</title>"
            "<updated>2026-11-20T00:00:00-08:00</updated>"
            "<entry><title>Entry #41 in Oak &amp; Elm v. Pear, Inc., 4:26-cv-00007</title>"
            "<link href='https://www.courtlistener.com/docket/9/oak/?order_by=desc#entry-41'"
            " rel='alternate'/><published>2026-11-20T00:00:00-08:00</published>"
            "<id>https://www.courtlistener.com/docket/9/oak/?order_by=desc#entry-41</id>"
            "<summary type='html'>ORDER granting 12 Motion to Stay. Signed by a judge</summary>"
            "<link href='https://storage.courtlistener.com/recap/gov.uscourts.smpd.7/x.41.0.pdf'"
            " length='0' rel='enclosure'/></entry>"
            "<entry><title>Minute entry from 2026-11-19 in Oak v. Pear, 4:26-cv-00007</title>"
            "<link href='https://www.courtlistener.com/docket/9/oak/?order_by=desc#minute-entry-3'"
            " rel='alternate'/><published>2026-07-19T00:00:00-07:00</published>"
            "<id>https://www.courtlistener.com/docket/9/oak/?order_by=desc#minute-entry-3</id>"
            "<summary type='html'></summary></entry></feed>")
            .entries;
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].number, "41");
    EXPECT_EQ(entries[0].caseName, "Oak & Elm v. Pear, Inc.");
    EXPECT_EQ(entries[0].caseNumber, "4:26-cv-00007");
    EXPECT_EQ(entries[0].kind, "ORDER granting 12 Motion to Stay");
    EXPECT_EQ(entries[0].paid, false);
    EXPECT_TRUE(entries[0].dayOnly);
    EXPECT_EQ(entries[1].number, std::nullopt);
    EXPECT_EQ(entries[1].paid, std::nullopt);
    EXPECT_EQ(entries[1].court, "smpd");
    EXPECT_TRUE(entries[1].dayOnly);
}

TEST(CourtListener, ReadsASearchWithTheKeysOfTheFeed) {
    const auto read = sheet(R"j({"count":1,"next":null,"results":[{"docket_id":9,"court_id":"smpd",
        "docketNumber":"4:26-cv-7","caseName":"OAK v. PEAR","dateFiled":"2026-11-18",
        "docket_absolute_url":"/docket/9/oak/","party":["Oak","Pear Inc."],
        "meta":{"more_docs":true},"recap_documents":[
        {"entry_number":2,"attachment_number":1,"docket_entry_id":77,"description":
         "MOTION to Dismiss by Pear Inc.\f(Attachments: # 1 Exhibit)","is_available":false,
         "entry_date_filed":"2026-11-19","pacer_doc_id":"055"},
        {"entry_number":2,"docket_entry_id":77,"description":"MOTION to Dismiss","is_available":true,
         "filepath_local":"recap/gov.uscourts.smpd.7/gov.uscourts.smpd.7.2.0.pdf"}]
}]
})j");
    EXPECT_TRUE(read.partial);
    ASSERT_EQ(read.cases.size(), 1U);
    EXPECT_EQ(read.cases[0].docket, 9);
    EXPECT_EQ(read.cases[0].parties, (std::vector<std::string>{"Oak", "Pear Inc."}));
    ASSERT_EQ(read.entries.size(), 1U);
    EXPECT_EQ(read.entries[0].key,
              "https://www.courtlistener.com/docket/9/oak/?order_by=desc#entry-2");
    EXPECT_EQ(read.entries[0].kind, "MOTION to Dismiss");
    EXPECT_EQ(read.entries[0].text, "MOTION to Dismiss by Pear Inc. (Attachments: # 1 Exhibit)");
    EXPECT_EQ(read.entries[0].paid, false);
    EXPECT_EQ(read.entries[0].weight, DocketWeight::matters);
}

TEST(Dockets, RefuseWhatIsNone) {
    const auto errorOf = [](std::string_view document) {
        const auto parsed = parseDocket(document);
        return parsed ? "" : rawValue(parsed.error());
    };
    EXPECT_EQ(errorOf(R"({"detail":"Authentication credentials were not provided."})"),
              "notADocket");
    EXPECT_EQ(errorOf("<html><body>Sign in</body></html>"), "notADocket");
    EXPECT_EQ(errorOf(""), "notADocket");
    EXPECT_EQ(errorOf("<rss><channel><item>"), "malformed");
    EXPECT_EQ(errorOf(R"({"results":[)"), "malformed");
}

TEST(Dockets, AreBoundedInTimeAndLength) {
    std::string items;
    for (int i = 0; i < 12'000; ++i) {
        items += item("1:26-cv-7 Oak v. Pear",
                      "[Order on Motion for Leave] " + std::string(400, 'x'), std::to_string(i));
    }
    const auto start = std::chrono::steady_clock::now();
    const auto read = sheet(courtFeed("Docket entries of type: all", items));
    EXPECT_EQ(read.entries.size(), 10'000U);
    EXPECT_TRUE(read.partial);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_FALSE(parseDocket("<rss>" + std::string(1, ' ') +
                             [] {
                                 std::string many;
                                 for (int i = 0; i < 400'000; ++i) many += "<a/>";
                                 return many;
                             }() +
                             "</rss>")
                     .has_value());
}

TEST(DocketWeights, TellRulingsFromHousekeeping) {
    const auto weightOf = [](std::string_view text) { return docketWeight(docketKind(text)); };
    for (const std::string_view text :
         {"Order on Motion to Stay", "Opinion Issued", "Amended Judgment", "Complaint",
          "FIRST AMENDED COMPLAINT against Pear Inc.", "Answer to Crossclaim",
          "Response in Opposition to Motion", "MOTION to Dismiss by Pear Inc.",
          "MOTION for Summary Judgment filed by Oak.", "Jury Verdict", "Notice of Appeal",
          "Stipulation and Order of Dismissal", "Notice of Settlement", "Memo Endorsement",
          "Case termination without a panel", "MOTION for PRELIMINARY INJUNCTION by Oak"}) {
        EXPECT_EQ(weightOf(text), DocketWeight::matters) << text;
    }
    for (const std::string_view text :
         {"Notice of Appearance", "Order on Motion to Appear Pro Hac Vice",
          "CERTIFICATE OF SERVICE by Oak re 12 Motion to Dismiss", "Summons Returned Executed",
          "Appeal Fee Payment", "Notice of Filing Transcript", "Letter",
          "So-Ordered Scheduling Notification FILED", "STIPULATION to Extend Time to Answer",
          "Extension of Time to File Answer", "Transmission to Judgments and Orders Clerk",
          "Administrative Motion to File Under Seal", "~Util - Set Deadlines/Hearings",
          "DECLARATION of A. Clerk (Attachments: # 1 Text of Proposed Order)"}) {
        EXPECT_EQ(weightOf(text), DocketWeight::routine) << text;
    }
}

}  // namespace
}  // namespace kit
