#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string_view>

#include "NewsroomKit/Library/ContentHash.h"
#include "NewsroomKit/Library/EvidencePack.h"
#include "NewsroomKit/Library/FileNames.h"
#include "NewsroomKit/Text/Unicode.h"
#include "tests/NewsroomKit/Library/LibrarySamples.h"

namespace kit {
namespace {

const TimeZone berlin("Europe/Berlin");

EvidenceStory evidenceStory(std::string id, std::string title, Instant publishedAt) {
    EvidenceStory story;
    story.story = sampleLibrary().stories.front();
    story.story.id = std::move(id);
    story.story.title = std::move(title);
    story.story.publishedAt = publishedAt;
    return story;
}

Evidence sampleEvidence() {
    const auto library = sampleLibrary();
    Evidence evidence;
    evidence.project = library.projects.front();
    auto& story = evidence.stories.emplace_back(
        evidenceStory("a1", "Orchard opens", momentOf("2026-11-21T08:30:00Z")));
    story.text = library.texts.at("a1");
    story.text->sha256 = sha256Hex(story.text->text);
    story.headlines = {{"Orchard may open", momentOf("2026-11-21T08:31:00Z")},
                       {"Orchard opens", momentOf("2026-11-21T09:00:00Z")}};
    story.firstSeenAt = momentOf("2026-11-21T08:31:00Z");
    story.firstSeenIn = "Orchard Post";
    evidence.stories.push_back(
        evidenceStory("a2", "Gates\n- [x] forged", momentOf("2026-11-20T08:30:00Z")));
    evidence.clips = library.clips;
    evidence.notes = library.notes;
    auto& signal = evidence.happenings.emplace_back();
    signal.id = "s1";
    signal.kind = SignalKind::release;
    signal.title = "Version 27";
    signal.seenAt = momentOf("2026-11-21T12:00:00Z");
    evidence.madeAt = momentOf("2026-11-23T00:00:00Z");
    evidence.program = "brell 9.9";
    return evidence;
}

std::map<std::string, std::string> byPath(const std::vector<PackFile>& files) {
    std::map<std::string, std::string> map;
    for (const auto& file : files) map.emplace(file.path, file.bytes);
    return map;
}

TEST(EvidencePack, TellsOfEverythingAndNamesItsFilesInOneOrder) {
    auto evidence = sampleEvidence();
    evidence.corrections.push_back(
        {momentOf("2026-11-22T00:00:00Z"), "First with it: Post", "", {"a1"}});
    const auto files = evidencePack(evidence, berlin);
    std::vector<std::string> paths;
    for (const auto& file : files) paths.push_back(file.path);
    EXPECT_EQ(paths, (std::vector<std::string>{
                         "index.md", "stories.json", "clips.csv", "notes/Ask the gardener n1.md",
                         "texts/Orchard opens a1.txt", "headlines.csv", "corrections.md",
                         "signals.csv", "SHA256SUMS", "manifest.json"}));
    auto file = byPath(files);
    const auto& index = file["index.md"];
    for (const std::string_view part :
         {"# Gates\n\nWho opened them?\n\nTimes are those of Europe/Berlin.",
          "- [ ] 2026-11-21 09:30 Story: Orchard opens\n",
          "- [x] 2026-11-21 11:05 Clip from: ", "Gates - \\[x\\] forged\n",
          "  - First seen by the desk 2026-11-21 09:31 in Orchard Post\n",
          "(texts/Orchard%20opens%20a1.txt), SHA-256 ",
          "  - Headline from 2026-11-21 09:31: ", "- 2026-11-21 13:00 Software: Version 27\n"})
        EXPECT_NE(index.find(part), std::string::npos) << part << "\nin\n" << index;
    EXPECT_LT(index.find("Gates - "), index.find("Story: Orchard opens"));
    EXPECT_EQ(index.find("is not the one that was kept"), std::string::npos);
    EXPECT_EQ(file["texts/Orchard opens a1.txt"], "All of it.");
    EXPECT_EQ(json::parse(file["stories.json"]).as_array().size(), 2U);
    const auto line = sha256Hex("All of it.") + "  texts/Orchard opens a1.txt\n";
    EXPECT_NE(file["SHA256SUMS"].find(line), std::string::npos);
    EXPECT_NE(file["corrections.md"].find("First with it: Post\n  - Orchard opens\n"),
              std::string::npos);
}

TEST(EvidencePack, DiffersOnlyInItsManifestWhenMadeAgainLaterOrInAnotherOrder) {
    auto evidence = sampleEvidence();
    const auto first = evidencePack(evidence, berlin);
    EXPECT_EQ(evidencePack(evidence, berlin), first);
    evidence.madeAt += std::chrono::hours(5);
    evidence.program = "brell 10";
    std::ranges::reverse(evidence.stories);
    auto second = evidencePack(evidence, berlin);
    ASSERT_EQ(second.size(), first.size());
    EXPECT_NE(second.back(), first.back());
    second.back() = first.back();
    EXPECT_EQ(second, first);
}

TEST(EvidencePack, TellsInTheOrderThatTheUserHasMade) {
    auto evidence = sampleEvidence();
    evidence.project.ranks = {{"note:n1", "a"}, {"story:a1", "b"}, {"story:a2", "c"}};
    std::ranges::reverse(evidence.stories);
    evidence.notes.front().title.clear();
    evidence.happenings.push_back(evidence.happenings.front());
    evidence.happenings.back().id = "s2";
    evidence.happenings.back().title = "Ours";
    evidence.project.done.emplace("signal:s2", false);
    auto file = byPath(evidencePack(evidence, berlin));
    const auto& index = file["index.md"];
    const auto at = [&](std::string_view part) { return index.find(part); };
    EXPECT_LT(at(" Note: "), at("Story: Orchard opens"));
    EXPECT_LT(at("Story: Orchard opens"), at("Story: Gates"));
    EXPECT_LT(at("## Stories"), at("[Orchard opens]"));
    EXPECT_LT(at("[Orchard opens]"), at("[Gates"));
    EXPECT_LT(file["stories.json"].find("\"a1\""), file["stories.json"].find("\"a2\""));
    EXPECT_NE(at("Signal: Ours"), std::string::npos);
    EXPECT_EQ(at("Signal: Version 27"), std::string::npos) << "not the project's own";
    EXPECT_NE(file["signals.csv"].find("Version 27"), std::string::npos);
}

TEST(EvidencePack, SaysWhenATextIsNotTheOneThatWasKept) {
    auto evidence = sampleEvidence();
    evidence.stories.front().text->text += " More.";
    const auto index = evidencePack(evidence, berlin).front().bytes;
    EXPECT_NE(index.find("The text is not the one that was kept"), std::string::npos);
}

TEST(EvidencePack, LetsNoPathEscapeOrCollide) {
    auto evidence = sampleEvidence();
    const std::array<std::string, 14> titles{"../../etc/passwd",
                                             "..",
                                             "a\nb",
                                             "A\nB",
                                             "con",
                                             "x. . .",
                                             "\u202Egnp.exe",
                                             std::string(5'000, 'y'),
                                             std::string(300, 'y'),
                                             "",
                                             "\xff\xfe",
                                             "a:b|c",
                                             "日本語の見出し",
                                             "C:\\windows"};
    for (const auto& title : titles) {
        for (const std::string id : {"../i", "../I"}) {
            evidence.notes.push_back(evidence.notes.front());
            evidence.notes.back().title = title;
            evidence.notes.back().id = id;
        }
    }
    std::set<std::string> folded;
    for (const auto& file : evidencePack(evidence, berlin)) {
        EXPECT_LE(file.path.size(), 130U);
        EXPECT_TRUE(folded.insert(lowercasedASCII(file.path)).second) << file.path;
        EXPECT_LE(std::ranges::count(file.path, '/'), 1) << file.path;
        EXPECT_EQ(file.path.find_first_of("\\:\n*?\"<>|"), std::string::npos) << file.path;
        EXPECT_EQ(("/" + file.path).find("/."), std::string::npos) << file.path;
        EXPECT_TRUE(isValidUTF8(file.path)) << file.path;
        EXPECT_EQ(file.path.find("\u202E"), std::string::npos) << file.path;
    }
    EXPECT_EQ(evidencePack(evidence, berlin), evidencePack(evidence, berlin));
}

TEST(FileNames, AreSafeOnEverySystem) {
    struct Row {
        std::string text;
        std::string name;
    };
    const std::array rows{
        Row{"..", "untitled"},
        Row{" . a . ", "a"},
        Row{"CON", "_CON"},
        Row{"com1.txt", "_com1.txt"},
        Row{"lpt¹", "_lpt¹"},
        Row{"console", "console"},
        Row{"-rf", "_-rf"},
        Row{"~x", "_~x"},
        Row{"a/b\\c:d", "a-b-c-d"},
        Row{"a\u200B\u202Eb\tc", "ab c"},
        Row{"e\u0301te\u0301", "été"},
        Row{"\xff", "untitled"},
    };
    for (const auto& row : rows) EXPECT_EQ(safeFileName(row.text), row.name) << row.text;
    std::string flags;
    for (int i = 0; i < 50; ++i) flags += "🇩🇪";
    EXPECT_EQ(safeFileName(flags).size(), 96U);  // whole flags of eight bytes
    DistinctNames names;
    EXPECT_EQ(names.take("Été", ".md"), "Été.md");
    EXPECT_EQ(names.take("ETE", ".md"), "ETE 2.md");
    EXPECT_EQ(names.take("ete", ".md"), "ete 3.md");
}

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
    return value;
}

/// Reads a .zip by its directory, checking sizes and sums.
std::vector<PackFile> unzipped(std::string_view zip) {
    std::vector<PackFile> files;
    const auto end = zip.size() - 22;
    EXPECT_EQ(number(zip, end, 4), 0x06054B50U);
    auto at = number(zip, end + 16, 4);
    EXPECT_EQ(at + number(zip, end + 12, 4), end);
    for (auto left = number(zip, end + 10, 2); left > 0; --left) {
        EXPECT_EQ(number(zip, at, 4), 0x02014B50U);
        const auto packed = number(zip, at + 20, 4), size = number(zip, at + 24, 4);
        const auto pathSize = number(zip, at + 28, 2), local = number(zip, at + 42, 4);
        PackFile file{std::string(zip.substr(at + 46, pathSize)), std::string(size, '\0')};
        const auto body = zip.substr(local + 30 + pathSize, packed);
        EXPECT_EQ(zip.substr(local + 30, pathSize), file.path);
        EXPECT_EQ(zip.substr(local + 6, 24), zip.substr(at + 8, 24));
        if (number(zip, at + 10, 2) == 0) {
            file.bytes = body;
        } else {
            z_stream stream{};
            inflateInit2(&stream, -15);
            stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(body.data()));
            stream.avail_in = packed;
            stream.next_out = reinterpret_cast<Bytef*>(file.bytes.data());
            stream.avail_out = size;
            EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END);
            inflateEnd(&stream);
        }
        EXPECT_EQ(crc32_z(0, reinterpret_cast<const Bytef*>(file.bytes.data()), size),
                  number(zip, at + 16, 4));
        files.push_back(std::move(file));
        at += 46 + pathSize;
    }
    return files;
}

TEST(ZipWriter, PacksTheSameFilesIntoTheSameBytes) {
    auto files = evidencePack(sampleEvidence(), berlin);
    files.push_back({"empty.txt", ""});
    files.push_back({"日本語.txt", std::string(100'000, 'a')});
    const auto zipped = [&] {
        std::string zip;
        writeZip(files, "Gates", [&](std::string_view bytes) { zip += bytes; });
        return zip;
    };
    const auto zip = zipped();
    EXPECT_EQ(zipped(), zip);
    auto read = unzipped(zip);
    for (auto& file : read) {
        EXPECT_TRUE(file.path.starts_with("Gates/"));
        file.path.erase(0, 6);
    }
    EXPECT_EQ(read, files);
}

}  // namespace
}  // namespace kit
