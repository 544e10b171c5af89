// What it costs to take a library in and out: bookmarks and tables of 50,000 links, an exported
// library of 10,000 records, a pack of evidence with 1,000 kept texts of 5 kB and its .zip, a note
// at its largest.

#include <benchmark/benchmark.h>

#include <string>

#include <fmt/format.h>

#include "NewsroomKit/Library/BookmarkFile.h"
#include "NewsroomKit/Library/Citation.h"
#include "NewsroomKit/Library/ContentHash.h"
#include "NewsroomKit/Library/EvidencePack.h"
#include "NewsroomKit/Library/ImportPreview.h"
#include "NewsroomKit/Library/LibraryExport.h"
#include "NewsroomKit/Library/LibraryFile.h"
#include "NewsroomKit/Library/Note.h"
#include "NewsroomKit/Library/NoteText.h"

namespace {

constexpr int links = 50'000;
constexpr int records = 10'000;
constexpr int packedStories = 1'000;
constexpr std::size_t textBytes = 5'000;

const kit::Instant today = kit::parseISO8601("2026-11-23T00:00:00Z").value();

kit::SavedStory storyOf(int number) {
    kit::SavedStory story;
    story.id = fmt::format("{:016x}", number * 7'919);
    story.savedAt = today - std::chrono::minutes(number);
    story.publishedAt = story.savedAt;
    story.link =
        fmt::format("https://orchard{}.example/news/2026/{}/gates-open", number % 97, number);
    story.title =
        fmt::format("Orchard {} opens its gates & lets {} visitors in", number, number % 31);
    story.excerpt = "What the first visitors found behind the gates, and who opened them.";
    story.author = "Jane Doe and John Roe";
    story.sourceID = "orchard";
    story.sourceName = "The Orchard Post";
    story.tags = {"gates", fmt::format("visit {}", number % 13)};
    return story;
}

kit::LibraryContents libraryOf(int count) {
    kit::LibraryContents contents;
    for (int i = 0; i < count; ++i) contents.stories.push_back(storyOf(i));
    return contents;
}

kit::Evidence evidenceOf(int count) {
    kit::Evidence evidence;
    evidence.project.id = "p";
    evidence.project.name = "Gates";
    for (int i = 0; i < count; ++i) {
        auto& story = evidence.stories.emplace_back();
        story.story = storyOf(i);
        std::string text;
        for (int word = 0; text.size() < textBytes; ++word)
            text += fmt::format("visitor {} passed gate {} ", word * i % 1'009, word % 17);
        story.text = kit::SavedText{.url = story.story.link,
                                    .fetchedAt = today,
                                    .sha256 = kit::sha256Hex(text),
                                    .title = story.story.title,
                                    .text = text};
        story.headlines = {{story.story.title, story.story.savedAt}};
    }
    return evidence;
}

void preview(benchmark::State& state, const std::string& file, const kit::LibraryContents& here) {
    for (auto _ : state) {
        auto result = kit::previewImport(file, here, today);
        if (!result) state.SkipWithError("refused");
        benchmark::DoNotOptimize(result);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(file.size()));
}

void importBookmarks(benchmark::State& state) {
    preview(state, kit::bookmarkFile(libraryOf(links).stories), libraryOf(links / 2));
}
BENCHMARK(importBookmarks)->Unit(benchmark::kMillisecond);

void importTable(benchmark::State& state) {
    preview(state, kit::libraryTable(libraryOf(links), kit::LibraryPart::stories),
            libraryOf(links / 2));
}
BENCHMARK(importTable)->Unit(benchmark::kMillisecond);

void importLibrary(benchmark::State& state) {
    preview(state, kit::libraryFile(libraryOf(records), today, "bench"), libraryOf(records / 2));
}
BENCHMARK(importLibrary)->Unit(benchmark::kMillisecond);

void exportLibrary(benchmark::State& state) {
    const auto contents = libraryOf(records);
    for (auto _ : state) benchmark::DoNotOptimize(kit::libraryFile(contents, today, "bench"));
}
BENCHMARK(exportLibrary)->Unit(benchmark::kMillisecond);

void citeAll(benchmark::State& state) {
    std::vector<kit::CitedWork> works;
    for (int i = 0; i < records; ++i) works.push_back(kit::citedWork(storyOf(i)));
    const kit::TimeZone zone("Europe/Berlin");
    for (auto _ : state)
        benchmark::DoNotOptimize(kit::citations(works, kit::CitationStyle::bibtex, zone));
}
BENCHMARK(citeAll)->Unit(benchmark::kMillisecond);

void packEvidence(benchmark::State& state) {
    const auto evidence = evidenceOf(packedStories);
    const kit::TimeZone zone("Europe/Berlin");
    for (auto _ : state) benchmark::DoNotOptimize(kit::evidencePack(evidence, zone));
}
BENCHMARK(packEvidence)->Unit(benchmark::kMillisecond);

void zipEvidence(benchmark::State& state) {
    const auto files = kit::evidencePack(evidenceOf(packedStories), kit::TimeZone("UTC"));
    std::size_t size = 0;
    for (auto _ : state) {
        size = 0;
        kit::writeZip(files, "Gates", [&](std::string_view bytes) { size += bytes.size(); });
    }
    state.counters["bytes"] = static_cast<double>(size);
}
BENCHMARK(zipEvidence)->Unit(benchmark::kMillisecond);

void readLongNote(benchmark::State& state) {
    std::string text;
    while (text.size() < kit::kMostBytesOfNote)
        text += "## Visit\n\n- [ ] ask **who** opened [it](https://a.example/)\n  - then *why*\n\n";
    for (auto _ : state) benchmark::DoNotOptimize(kit::noteBlocks(text));
}
BENCHMARK(readLongNote)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
