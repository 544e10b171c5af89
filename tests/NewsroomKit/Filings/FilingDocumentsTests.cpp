#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "NewsroomKit/Filings/FilingDocuments.h"

namespace kit {
namespace {

std::string pageRow(const std::string& title, const std::string& link, const std::string& type) {
    return "<tr><td scope=row>1<td scope=row>" + title + "<td scope=row><a href=\"" + link +
           "\">file</a> <span>iXBRL</span><td scope=row>" + type + "<td scope=row>271";
}

TEST(FilingDocuments, ExhibitsWithNewsComeFirstAndTheViewerIsLeftOut) {
    const std::string folder = "/Archives/edgar/data/1/000000000126000001/";
    const auto page =
        "<!doctype html><html><body><table class=tableFile><tr><th>Seq<th>Type" +
        pageRow("8-K", "/ix?doc=" + folder + "main.htm", "8-K") +
        pageRow("EXHIBIT 10.1", folder + "a.htm", "EX-10.1") +
        pageRow("Press &amp; more", "https://www.sec.gov" + folder + "b.htm", "EX-99.1") +
        pageRow("Elsewhere", "https://other.example/c.htm", "EX-99.2") +
        pageRow("", folder + "chart.jpg", "GRAPHIC") +
        pageRow("Complete submission", folder + "all.txt", "&nbsp;") + "</table></body></html>";
    const auto site = "https://www.sec.gov" + folder;
    EXPECT_EQ(parseFilingDocuments(page).value(),
              (std::vector<FilingDocument>{{"EX-99.1", "Press & more", site + "b.htm"},
                                           {"8-K", "8-K", site + "main.htm"},
                                           {"EX-10.1", "EXHIBIT 10.1", site + "a.htm"}}));
    EXPECT_EQ(parseFilingDocuments("<html><body>Nothing here.</body></html>").error(),
              FilingsError::notFilings);
    EXPECT_EQ(parseFilingDocuments("{}").error(), FilingsError::notFilings);
}

TEST(FilingDocuments, TextIsWithoutHiddenNumbersAndKnowsItsHeading) {
    const auto text = readFilingText(
        "<html><head><title>Document</title></head><body><ix:header><ix:hidden>00012345"
        "</ix:hidden></ix:header><p>Exhibit 99.1</p><p>Example Works, Inc.</p>"
        "<p>12 Harbour Street, Lowtown, ST 10101</p><p>For Immediate Release: 2 November</p>"
        "<p>Contact: Jo Doe, head of investor relations</p>"
        "<p><b>Example Works Reports a Quiet Quarter</b></p>"
        "<p>Net income was <ix:nonFraction name=\"x\">44.2</ix:nonFraction> million.</p>"
        "</body></html>",
        "https://www.sec.gov/a.htm");
    EXPECT_EQ(text.title, "Example Works Reports a Quiet Quarter");
    ASSERT_FALSE(text.lines.empty());
    EXPECT_EQ(text.lines.front(), "Exhibit 99.1") << "the hidden numbers are gone";
    EXPECT_EQ(text.lines.back(), "Net income was 44.2 million.");
    const auto letter = readFilingText("Dear staff,\n\n  We answer your comment of May.\n", "u");
    EXPECT_EQ(letter.lines,
              (std::vector<std::string>{"Dear staff,", "We answer your comment of May."}));
    EXPECT_EQ(letter.title, "We answer your comment of May.");
}

}  // namespace
}  // namespace kit
