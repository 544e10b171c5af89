#include <gtest/gtest.h>

#include <array>

#include "NewsroomKit/Library/Citation.h"
#include "NewsroomKit/Library/CitedNames.h"

namespace kit {

void PrintTo(const CitedName& name, std::ostream* out) {
    *out << name.family << '|' << name.given << '|' << name.suffix;
}

namespace {

using namespace std::chrono_literals;

const TimeZone utc("UTC");

Instant at(std::string_view text) { return parseISO8601(text).value(); }

CitedWork orchardWork() {
    return {.title = "Orchard opens: 100% of {gates} & more",
            .link = "https://orchard.example/a(1)?q=a b",
            .outlet = "The Orchard Post",
            .author = "Jane van Doe and John Roe Jr.",
            .publishedAt = at("2026-11-21T08:30:00Z"),
            .accessedAt = at("2026-11-22T23:30:00Z")};
}

TEST(Citation, WritesEachStyleWithItsOwnEscapes) {
    struct Row {
        CitationStyle style;
        std::string text;
    };
    const std::array rows{
        Row{CitationStyle::plain,
            "Jane van Doe and John Roe Jr.: “Orchard opens: 100% of {gates} & more.” The Orchard "
            "Post, 21 November 2026. https://orchard.example/a%281%29?q=a%20b (accessed 22 "
            "November 2026)"},
        Row{CitationStyle::markdown,
            "Jane van Doe and John Roe Jr.: [Orchard opens: 100% of {gates} \\& "
            "more](https://orchard.example/a%281%29?q=a%20b). *The Orchard Post*, 21 November "
            "2026. Accessed 22 November 2026."},
        Row{CitationStyle::apa,
            "van Doe, J., & Roe, J., Jr. (2026, November 21). Orchard opens: 100% of {gates} & "
            "more. The Orchard Post. Retrieved November 22, 2026, from "
            "https://orchard.example/a%281%29?q=a%20b"},
        Row{CitationStyle::ris,
            "TY  - NEWS\r\nAU  - van Doe, Jane\r\nAU  - Roe, John, Jr.\r\nTI  - Orchard opens: "
            "100% of {gates} & more\r\nT2  - The Orchard Post\r\nPY  - 2026\r\nDA  - "
            "2026/11/21\r\nUR  - https://orchard.example/a%281%29?q=a%20b\r\nY2  - "
            "2026/11/22\r\nER  - \r\n"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(citation(orchardWork(), row.style, utc), row.text) << rawValue(row.style);
    const auto entry = citation(orchardWork(), CitationStyle::bibtex, utc);
    EXPECT_TRUE(entry.starts_with("@misc{vandoe2026orchard-")) << entry;
    EXPECT_EQ(entry.substr(entry.find('\n')),
              "\n  author = {van Doe, Jane and Roe, Jr., John},\n"
              "  title = {{Orchard opens: 100\\% of \\textbraceleft{}gates\\textbraceright{} \\& "
              "more}},\n  howpublished = {The Orchard Post},\n  year = {2026},\n  month = nov,\n"
              "  day = {21},\n  url = {https://orchard.example/a%281%29?q=a%20b},\n"
              "  urldate = {2026-11-22}\n}\n");
}

TEST(Citation, ManagesWithoutAuthorDateTitleOrLatinLetters) {
    CitedWork work{.title = "",
                   .link = "https://a.example/x",
                   .outlet = "",
                   .accessedAt = at("2026-11-22T00:00:00Z")};
    EXPECT_EQ(citation(work, CitationStyle::apa, utc),
              "https://a.example/x. (n.d.). Retrieved November 22, 2026, from https://a.example/x");
    EXPECT_TRUE(
        citation(work, CitationStyle::bibtex, utc).starts_with("@misc{itemhttpsaexamplex-"));

    work.title = "果樹園が\n開く?";
    work.author = "村上春樹";
    work.outlet = "果樹園新聞";
    EXPECT_EQ(
        citation(work, CitationStyle::plain, utc),
        "村上春樹: “果樹園が 開く?” 果樹園新聞. https://a.example/x (accessed 22 November 2026)");
    const auto entry = citation(work, CitationStyle::bibtex, utc);
    EXPECT_TRUE(entry.starts_with("@misc{item-")) << entry;
    EXPECT_NE(entry.find("author = {{村上春樹}}"), std::string::npos);
}

TEST(Citation, AnOutletThatIsItsOwnAuthorStandsOnce) {
    auto work = orchardWork();
    work.author = "the orchard post";
    EXPECT_TRUE(citation(work, CitationStyle::apa, utc)
                    .starts_with("the orchard post. (2026, November 21). Orchard opens"));
    EXPECT_EQ(citation(work, CitationStyle::apa, utc).find("The Orchard Post"), std::string::npos);
}

TEST(Citation, ShowsNoControlsAndTurnsNothingAround) {
    auto work = orchardWork();
    work.title = "a\u202Eb\x01\r\nER  - \t*c*";
    for (const auto& row : enumTable<CitationStyle>) {
        const auto text = citation(work, row.value, utc);
        EXPECT_EQ(text.find("\u202E"), std::string::npos) << row.raw;
        EXPECT_EQ(text.find('\x01'), std::string::npos) << row.raw;
        EXPECT_EQ(text.find("\nER  - *"), std::string::npos) << row.raw;
    }
    EXPECT_NE(citation(work, CitationStyle::markdown, utc).find("[ab ER - \\*c\\*]"),
              std::string::npos);
    work.link = "javascript:alert(1)";
    EXPECT_EQ(citation(work, CitationStyle::markdown, utc).find("]("), std::string::npos);
}

TEST(Citation, CountsTheDaysOfTheZone) {
    EXPECT_NE(citation(orchardWork(), CitationStyle::plain, TimeZone("Asia/Tokyo"))
                  .find("accessed 23 November"),
              std::string::npos);
}

std::vector<std::string> keysOf(const std::string& bib) {
    std::vector<std::string> keys;
    for (auto begin = bib.find("@misc{"); begin != std::string::npos;
         begin = bib.find("@misc{", begin + 1))
        keys.push_back(bib.substr(begin + 6, bib.find(',', begin) - begin - 6));
    return keys;
}

TEST(Citation, KeepsKeysWhateverElseIsListedAndCitesAWorkOnce) {
    auto other = orchardWork();
    other.link = "https://orchard.example/b";
    auto again = orchardWork();
    again.link += "#part";
    const auto one =
        keysOf(citations(std::array{orchardWork(), again}, CitationStyle::bibtex, utc));
    ASSERT_EQ(one.size(), 1U);
    const auto two =
        keysOf(citations(std::array{other, orchardWork()}, CitationStyle::bibtex, utc));
    ASSERT_EQ(two.size(), 2U);
    EXPECT_NE(two[0], two[1]);
    EXPECT_EQ(two[1], one[0]);
    // Enough of them that the hashes of some links begin alike.
    std::vector<CitedWork> many;
    for (int i = 0; i < 2'000; ++i) {
        many.push_back(orchardWork());
        many.back().link = "https://orchard.example/" + std::to_string(i);
    }
    auto keys = keysOf(citations(many, CitationStyle::bibtex, utc));
    std::ranges::sort(keys);
    EXPECT_EQ(std::ranges::unique(keys).size(), 0U);
}

TEST(Citation, TakesAStorysOutletArticleAndTheTimeOfItsKeptText) {
    SavedStory story{.savedAt = at("2026-11-20T00:00:00Z"),
                     .link = "https://news.example/redirect",
                     .title = "T",
                     .sourceName = "Search",
                     .destinationName = "Orchard",
                     .articleLink = "https://orchard.example/1"};
    const SavedText text{.fetchedAt = at("2026-11-21T00:00:00Z")};
    const auto work = citedWork(story, &text);
    EXPECT_EQ(work.link, "https://orchard.example/1");
    EXPECT_EQ(work.outlet, "Orchard");
    EXPECT_EQ(work.accessedAt, text.fetchedAt);
    EXPECT_EQ(citedWork(story).accessedAt, story.savedAt);
}

TEST(Citation, QuotesAClipAboveItsCitation) {
    const Clip clip{.quote = " # One\r\n\r\n1. two *three* ",
                    .link = "https://a.example/",
                    .title = "T",
                    .sourceName = "A",
                    .accessedAt = at("2026-11-22T00:00:00Z")};
    EXPECT_EQ(quoteWithCitation(clip, CitationStyle::markdown, utc),
              "> \\# One\n>\n> 1\\. two \\*three\\*\n>\n> — [T](https://a.example/). *A*. Accessed "
              "22 November 2026.\n");
    EXPECT_TRUE(quoteWithCitation(clip, CitationStyle::plain, utc)
                    .starts_with("“# One\n\n1. two *three*”\n\n“T.” A."));
}

TEST(CitedNames, TellsPeopleFromOrganisations) {
    struct Row {
        std::string byline;
        std::vector<CitedName> names;
    };
    const std::array rows{
        Row{"By Jane Doe", {{"Doe", "Jane", ""}}},
        Row{"Doe, Jane", {{"Doe", "Jane", ""}}},
        Row{"Jane Doe, John Roe & Ann Poe",
            {{"Doe", "Jane", ""}, {"Roe", "John", ""}, {"Poe", "Ann", ""}}},
        Row{"Jane Doe; Bloomberg News", {{"Doe", "Jane", ""}, {"Bloomberg News", "", ""}}},
        Row{"Arts and Culture Desk", {{"Arts and Culture Desk", "", ""}}},
        Row{"Jan de la Cruz", {{"de la Cruz", "Jan", ""}}},
        Row{"Martin King, Jr.", {{"King", "Martin", "Jr."}}},
        Row{"The Associated Writers", {{"The Associated Writers", "", ""}}},
        Row{"jane@orchard.example", {{"jane@orchard.example", "", ""}}},
        Row{" , ; ", {}},
        Row{"Reuters; Jane Doe", {{"Reuters", "", ""}, {"Doe", "Jane", ""}}},
        Row{"", {}},
    };
    for (const auto& row : rows) EXPECT_EQ(citedNames(row.byline, {}), row.names) << row.byline;
}

}  // namespace
}  // namespace kit
