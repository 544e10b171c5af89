#include <gtest/gtest.h>

#include <array>
#include <ctime>

#include "NewsroomKit/Library/ImportPreview.h"
#include "NewsroomKit/Library/LibraryExport.h"
#include "NewsroomKit/Library/LibraryFile.h"
#include "tests/NewsroomKit/Library/LibrarySamples.h"

namespace kit {
namespace {

const Instant presentTime = momentOf("2026-11-23T00:00:00Z");

/// "https://a.example/ [Title] 2026-11-21T10:00:00Z #tag #other"
std::string lineOf(const SavedStory& story) {
    auto line = story.link + " [" + story.title + "] " + iso8601Text(story.savedAt);
    for (const auto& tag : story.tags) line += " #" + tag;
    return line;
}

std::vector<std::string> linesOf(const std::vector<SavedStory>& stories) {
    std::vector<std::string> lines;
    for (const auto& story : stories) lines.push_back(lineOf(story));
    return lines;
}

/// "3 noWebAddress Title"
std::vector<std::string> problemsOf(const ImportPreview& preview) {
    std::vector<std::string> lines;
    for (const auto& problem : preview.problems) {
        lines.push_back(std::to_string(problem.line) + ' ' +
                        std::string(rawValue(problem.obstacle)) + ' ' + problem.text);
    }
    return lines;
}

using Lines = std::vector<std::string>;

TEST(ImportPreview, ReadsBookmarksWithFoldersAsTags) {
    const std::string file = R"html(<!DOCTYPE NETSCAPE-Bookmark-file-1>
<!-- <a href="https://no.example/">no</a> -->
<TITLE>Bookmarks</TITLE><H1>Bookmarks</H1>
<DL><p>
  <DT><H3 ADD_DATE="1" PERSONAL_TOOLBAR_FOLDER="true">Bookmarks bar</H3>
  <DL><p>
    <DT><A HREF="http://www.a.example/x?utm_source=y&amp;q=1#top" ADD_DATE="1700000000" ICON="data:a>b" TAGS="red,two words">A &amp; <b>B</b></A>
    <DD>It &lt;is&gt;
good
    <DT><H3>News &amp; more</H3>
    <DD>About the folder
    <DL><p>
      <DT><A HREF="https://b.example/" ADD_DATE="1700000000000">B</A>
      <DT><A HREF='https://a.example/x?q=1' ADD_DATE="x">again</A>
    </DL><p>
    <DT><A HREF="javascript:alert(1)">Script</A>
  </DL><p>
  <DT><A HREF="https://c.example/no-end" ADD_DATE="1700000000000000">C)html";
    const auto preview = previewImport(file, {}, presentTime);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview.value().form, ImportForm::bookmarks);
    const auto& stories = preview.value().fresh.stories;
    EXPECT_EQ(linesOf(stories),
              (Lines{"https://www.a.example/x?q=1 [A & B] 2023-11-14T22:13:20Z #red #two words",
                     "https://b.example/ [B] 2023-11-14T22:13:20Z #News & more",
                     "https://a.example/x?q=1 [again] 2026-11-23T00:00:00Z #News & more",
                     "https://c.example/no-end [C] 2023-11-14T22:13:20Z"}));
    EXPECT_EQ(problemsOf(preview.value()),
              (Lines{"14 unreadableDate again", "16 noWebAddress Script"}));
    EXPECT_EQ(stories[0].excerpt, "It <is> good");
    EXPECT_EQ(stories[0].sourceName, "a.example");
    EXPECT_EQ(stories[1].excerpt, "");
}

TEST(ImportPreview, ReadsTablesByTheNamesOfTheirColumns) {
    const std::string file =
        "\xEF\xBB\xBFstatus,tags,URL,time_added,title\r\n"
        "unread,b|a,https://a.example/,1700000000,\"One\r\ntwo\"\r\n"
        "archive,\"c, d\",https://b.example/,2026-11-20,'=SUM(1)\r\n"
        ",,https://a.example#x,,Again\r\n"
        ",,not a link,,Bad\r\n"
        ",z,https://c.example,soon\r\n"
        ",,https://d.example,2026-11-19T10:00:00+02:00,\r\n";
    const auto preview = previewImport(file, {}, presentTime);
    ASSERT_TRUE(preview);
    const auto& fresh = preview.value().fresh.stories;
    EXPECT_EQ(linesOf(fresh),
              (Lines{"https://a.example/ [One two] 2023-11-14T22:13:20Z #a #b",
                     "https://b.example/ [=SUM(1)] 2026-11-20T00:00:00Z #c #d",
                     "https://c.example/ [https://c.example/] 2026-11-23T00:00:00Z #z",
                     "https://d.example/ [https://d.example/] 2026-11-19T08:00:00Z"}));
    EXPECT_EQ(problemsOf(preview.value()),
              (Lines{"5 twice Again", "6 noWebAddress Bad", "7 unreadableDate https://c.example"}));
    EXPECT_EQ(preview.value().readStories, Lines{fresh[1].id});
}

TEST(ImportPreview, KnowsStoriesByTheirLinksWhateverTheirIds) {
    auto here = sampleLibrary();
    here.stories.front().articleLink = "https://orchard.example/article";
    const auto preview = previewImport(
        "url\nhttp://ORCHARD.example/opens/?utm_medium=x\nhttps://orchard.example/article\n"
        "https://orchard.example/other\n",
        here, presentTime);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview.value().here.stories.size(), 2U);
    EXPECT_EQ(preview.value().fresh.stories.size(), 1U);
}

TEST(ImportPreview, ReadsItsOwnTableOfStoriesBack) {
    const auto contents = sampleLibrary();
    const auto preview =
        previewImport(libraryTable(contents, LibraryPart::stories), {}, presentTime);
    ASSERT_TRUE(preview);
    EXPECT_EQ(linesOf(preview.value().fresh.stories), linesOf(contents.stories));
    EXPECT_EQ(preview.value().fresh.stories.front().excerpt, contents.stories.front().excerpt);
}

TEST(ImportPreview, SortsAnExportedLibraryByWhatIsHere) {
    auto there = sampleLibrary();
    there.extras["note:n1"] = {{"pinned", true}};
    there.unknownParts = {{"sketches", json::array{1}}};
    const auto file = libraryFile(there, presentTime, "9");
    const auto all = previewImport(file, {}, presentTime);
    ASSERT_TRUE(all);
    EXPECT_EQ(all.value().fresh, there);

    auto here = sampleLibrary();
    here.notes.front().text = "another";
    here.clips.clear();
    const auto some = previewImport(file, here, presentTime);
    ASSERT_TRUE(some);
    EXPECT_EQ(some.value().fresh.clips, there.clips);
    EXPECT_EQ(some.value().differing.notes, there.notes);
    EXPECT_EQ(some.value().differing.extras, there.extras);
    EXPECT_EQ(some.value().here.stories, there.stories);
    EXPECT_EQ(some.value().here.projects, there.projects);

    here.texts.clear();
    const auto withText = previewImport(file, here, presentTime);
    ASSERT_TRUE(withText);
    EXPECT_EQ(withText.value().differing.texts, there.texts);
}

TEST(ImportPreview, TellsOfTextsWithoutTheirStory) {
    auto there = sampleLibrary();
    there.stories.clear();
    const auto preview = previewImport(libraryFile(there, presentTime, "9"), {}, presentTime);
    ASSERT_TRUE(preview);
    EXPECT_EQ(problemsOf(preview.value()), Lines{"0 unreadable texts (a1)"});
}

TEST(ImportPreview, NamesWhatItCannotImport) {
    const auto newer =
        R"({"form":"brell library","version":7,"stories":[{"id":"a","mood":"calm"}]})";
    struct Row {
        std::string bytes;
        std::string refusal;
    };
    const std::array rows{
        Row{"", "empty 0"},
        Row{" \r\n", "empty 0"},
        Row{std::string("SQLite format 3\0x", 17), "unknownForm 0"},
        Row{"Dear reader,\nhello", "noAddresses 0"},
        Row{"hello", "unknownForm 0"},
        Row{"<?xml version='1.0'?><opml version='2.0'><body/></opml>", "outlines 0"},
        Row{"<html><body>page</body></html>", "unknownForm 0"},
        Row{"[1,2]", "foreignJSON 0"},
        Row{"{\"a\":1}", "foreignJSON 0"},
        Row{"{\"form\":\"brell library\",\n\"version\":1,\n\"stories\":[{]}", "damaged 3"},
        Row{"{\"form\":\"brell library\",\"version\":1}{", "damaged 1"},
        Row{newer, "newerForm 0 form 7, and this version reads up to form 1"},
        Row{std::string(kMostBytesOfImport + 1, 'x'), "tooLarge 0"},
    };
    for (const auto& row : rows) {
        const auto result = previewImport(row.bytes, {}, presentTime);
        ASSERT_FALSE(result) << row.refusal;
        auto text =
            std::string(rawValue(result.error().fault)) + ' ' + std::to_string(result.error().line);
        if (!result.error().detail.empty()) text += ' ' + result.error().detail;
        EXPECT_EQ(text, row.refusal);
    }
}

TEST(ImportPreview, IsBoundedOnHostileFiles) {
    const auto repeated = [](std::string_view part, std::size_t bytes) {
        std::string text;
        while (text.size() < bytes) text += part;
        return text;
    };
    const std::string head = "<!DOCTYPE NETSCAPE-Bookmark-file-1>";
    constexpr std::size_t bytes = 1'000'000;
    for (const std::string_view part : {"<DL>", "<DT><H3>x", "<a href=\"", "<a href=x>", "<!--",
                                        "<", "<dd>", "<a href='https://a.example'>\n"}) {
        const auto begun = std::clock();
        static_cast<void>(previewImport(head + repeated(part, bytes), {}, presentTime));
        EXPECT_LT(std::clock() - begun, 5 * CLOCKS_PER_SEC) << part;
    }
    for (const std::string_view part : {"\"\"\"\n", "\"", ",", "'=", "\r"}) {
        const auto begun = std::clock();
        static_cast<void>(previewImport("url,b\n" + repeated(part, bytes), {}, presentTime));
        EXPECT_LT(std::clock() - begun, 5 * CLOCKS_PER_SEC) << part;
    }
    std::string many = "url\n";
    for (std::size_t i = 0; i <= kMostImportedEntries; ++i)
        many += "https://a.example/" + std::to_string(i) + '\n';
    const auto result = previewImport(many, {}, presentTime);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().fault, ImportFault::tooMany);
}

}  // namespace
}  // namespace kit
