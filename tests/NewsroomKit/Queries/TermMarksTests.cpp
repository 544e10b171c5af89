#include <gtest/gtest.h>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Queries/TermList.h"

namespace kit {
namespace {

std::string marked(std::string_view text, const std::vector<TextRange>& ranges) {
    std::string result;
    std::size_t at = 0;
    for (const auto& range : ranges) {
        result += text.substr(at, range.begin - at);
        result += "[" + std::string(text.substr(range.begin, range.end - range.begin)) + "]";
        at = range.end;
    }
    return result + std::string(text.substr(at));
}

TEST(TermMarks, WordsAreMarkedInTheTextAsItIsPublished) {
    struct Case {
        std::vector<std::string> terms;
        const char* title;
        const char* marked;
    };
    const Case cases[] = {
        {{"modem"}, "Modem maker: modems, a MODEM", "[Modem] maker: modems, a [MODEM]"},
        {{"cafe"}, "A Café, cafe\u0301 or CAFÉ", "A [Café], [cafe\u0301] or [CAFÉ]"},
        {{"strasse"}, "In der Hauptstraße, Straße 5", "In der Hauptstraße, [Straße] 5"},
        {{"apple's plan"}, "“Apple’s plan”", "“[Apple’s plan]”"},
        {{"C2 modem", "modem"}, "The C2 modem here", "The [C2 modem] here"},
        {{"s&"}, "Straß&x", "Stra[ß&]x"},
        {{"パ"}, "ﾊﾟ", "[ﾊﾟ]"},
        {{"red"}, "\xFF red \xE2\x82", "\xFF [red] \xE2\x82"},
        {{"news"}, "👩‍👩‍👧 news\u202E now", "👩‍👩‍👧 [news]\u202E now"},
        {{"absent", " "}, "Nothing here", "Nothing here"},
    };
    for (const auto& c : cases) {
        const StoryQuery query{.anyTerms = c.terms};
        const StoryFacts facts{.title = c.title};
        const auto marks = query.compiled().marks(facts);
        EXPECT_EQ(marked(c.title, marks.title), c.marked);
        EXPECT_EQ(!marks.isEmpty(), query.compiled().matchedTerm(facts).has_value()) << c.title;
    }
}

TEST(TermMarks, ATermWithALineBreakMarksTheEndOfTheTitleAndTheBeginningOfTheSummary) {
    const StoryQuery query{.anyTerms = {"iphone \n 17", "seam"}};
    const auto marks = query.compiled().marks({.title = "New iPhone", .summary = "17, a seam"});
    EXPECT_EQ(marked("New iPhone", marks.title), "New [iPhone]");
    EXPECT_EQ(marked("17, a seam", marks.summary), "[17], a [seam]");
}

TEST(TermList, PiecesBetweenCommasAreTrimmedAndEmptyOnesDropped) {
    EXPECT_EQ(separatedTerms(" iPhone 18 ,, A20,\n"),
              (std::vector<std::string>{"iPhone 18", "A20"}));
    EXPECT_TRUE(separatedTerms(" , ").empty());
}

}  // namespace
}  // namespace kit
