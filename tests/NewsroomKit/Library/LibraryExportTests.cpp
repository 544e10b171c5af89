#include <gtest/gtest.h>

#include <array>

#include "NewsroomKit/Library/BookmarkFile.h"
#include "NewsroomKit/Library/CSV.h"
#include "NewsroomKit/Library/ImportPreview.h"
#include "NewsroomKit/Library/LibraryExport.h"
#include "NewsroomKit/Library/LibraryFile.h"
#include "tests/NewsroomKit/Library/LibrarySamples.h"

namespace kit {
namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows rowsOf(std::string_view csv) {
    CSVReader reader(csv);
    Rows rows;
    std::vector<std::string> row;
    while (reader.next(row)) rows.push_back(row);
    return rows;
}

TEST(CSV, ReadsTablesAsOtherProgramsWriteThem) {
    EXPECT_EQ(rowsOf("\xEF\xBB\xBF"
                     "a,b\r\n\"x, \"\"y\"\"\r\nz\",\r\n\n1,2,3"),
              (Rows{{"a", "b"}, {"x, \"y\"\r\nz", ""}, {"1", "2", "3"}}));
    EXPECT_EQ(rowsOf("a;b,c;d\r1;2;3\r"), (Rows{{"a", "b,c", "d"}, {"1", "2", "3"}}));
    EXPECT_EQ(rowsOf("a\tb\n\"c\" d\te\"f\"\n"), (Rows{{"a", "b"}, {"c d", "e\"f\""}}));
    EXPECT_EQ(rowsOf("\n\r\n"), Rows{});
}

TEST(CSV, LosesOneLineToAQuoteThatIsNeverClosed) {
    CSVReader reader("a,b\n\"x\ny\",2\n3,\"4\n5,6\n");
    std::vector<std::string> row;
    std::vector<std::string> seen;
    while (reader.next(row)) {
        seen.push_back(std::to_string(reader.line()) + (reader.isUnclosed() ? " open " : " ") +
                       row.back());
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"1 b", "2 2", "4 open \"4", "5 6"}));
}

TEST(CSV, MakesFormulasHarmlessAndReadsThemBack) {
    const std::vector<std::string> cells{"=1+1", "+a", "-b", "@c", "\td", "'e", "f\rg", "h\"i", ""};
    std::string csv;
    appendCSVRow(cells, csv);
    EXPECT_EQ(csv, "'=1+1,'+a,'-b,'@c,\"'\td\",'e,\"f\rg\",\"h\"\"i\",\r\n");
    EXPECT_EQ(rowsOf(csv), Rows{cells});
    std::string single;
    appendCSVRow({""}, single);
    EXPECT_EQ(rowsOf(single), (Rows{{""}}));
}

TEST(LibraryExport, TablesNameTheirColumnsAndProjects) {
    const auto contents = sampleLibrary();
    for (const auto& part : enumTable<LibraryPart>) {
        const auto rows = rowsOf(libraryTable(contents, part.value));
        ASSERT_EQ(rows.size(), 2U) << part.raw;
        EXPECT_EQ(rows[0].size(), rows[1].size()) << part.raw;
    }
    EXPECT_EQ(
        rowsOf(libraryTable(contents, LibraryPart::stories))[1],
        (std::vector<std::string>{"Orchard \"opens\", today", "https://orchard.example/opens",
                                  "2026-11-21T10:00:00Z", "gates|opening day", "Two lines\nof it",
                                  "Orchard Post", "Jane Doe", "2026-11-21T08:30:00Z", "Gates"}));
}

TEST(LibraryExport, WritesOneDocumentWithCitationsAndTheUsersOwnMarkdown) {
    const auto text = libraryDocument(sampleLibrary(), TimeZone("UTC"));
    for (const std::string part :
         {"# Projects\n\n## Gates\n\nWho opened them?\n\n# Saved stories\n\nJane Doe: [Orchard",
          "*Orchard Post*, 21 November 2026. Accessed 21 November 2026.\n\nTwo lines of "
          "it\n\nTags: "
          "gates, opening day\n\n",
          "> =1+1 is 2\n>\n> — Jane Doe: ", "\n\ncheck *this*\n\n",
          "## Ask the gardener\n\n- [ ] call\n- **when**\n"}) {
        auto wanted = part;
        if (wanted.starts_with("> =")) wanted.insert(2, "\\");
        EXPECT_NE(text.find(wanted), std::string::npos) << wanted << "\nin\n" << text;
    }
}

TEST(LibraryFile, ReadsBackEqualWithWhatItDoesNotKnow) {
    auto contents = sampleLibrary();
    contents.extras["clip:c1"] = {{"colour", "red"}};
    contents.extras["text:a1"] = {{"language", "en"}};
    contents.unknownParts = {{"sketches", json::array{1, 2}}};
    const auto file = libraryFile(contents, momentOf("2026-11-23T00:00:00Z"), "9.9");
    auto reading = readLibraryFile(file);
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading.value().problems, std::vector<ImportProblem>{});
    EXPECT_EQ(reading.value().contents, contents);
    EXPECT_EQ(libraryFile(reading.value().contents, momentOf("2026-11-23T00:00:00Z"), "9.9"), file);
}

TEST(LibraryFile, LeavesOutOnlyWhatCannotBeRead) {
    auto contents = sampleLibrary();
    contents.stories.push_back(contents.stories.front());
    contents.stories.back().id = "a2";
    contents.stories.back().link = "javascript:alert(1)";
    contents.clips.push_back(contents.clips.front());
    contents.notes.push_back(contents.notes.front());
    contents.notes.back().id = "n2";
    contents.notes.back().text.assign(kMostBytesOfNote + 1, 'x');
    auto reading = readLibraryFile(libraryFile(contents, Instant{}, ""));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading.value().contents, sampleLibrary());
    std::vector<std::string> seen;
    for (const auto& problem : reading.value().problems)
        seen.push_back(problem.text + ": " + problem.detail);
    EXPECT_EQ(seen,
              (std::vector<std::string>{"stories[1]: the link is not a web address",
                                        "clips[1]: the id is there twice",
                                        "notes[1]: the note is longer than the library takes"}));
}

TEST(BookmarkFile, ReadsBackWithItsTagsAndTimes) {
    auto contents = sampleLibrary();
    contents.stories.front().tags = {"a, <b>", "c"};
    const auto file = bookmarkFile(contents.stories);
    EXPECT_TRUE(file.starts_with("<!DOCTYPE NETSCAPE-Bookmark-file-1>"));
    const auto preview = previewImport(file, {}, momentOf("2026-11-23T00:00:00Z"));
    ASSERT_TRUE(preview);
    ASSERT_EQ(preview.value().fresh.stories.size(), 1U);
    const auto& story = preview.value().fresh.stories.front();
    EXPECT_EQ(story.title, contents.stories.front().title);
    EXPECT_EQ(story.link, contents.stories.front().link);
    EXPECT_EQ(story.savedAt, contents.stories.front().savedAt);
    EXPECT_EQ(story.excerpt, "Two lines of it");
    EXPECT_EQ(story.tags, (std::vector<std::string>{"a <b>", "c"}));
}

}  // namespace
}  // namespace kit
