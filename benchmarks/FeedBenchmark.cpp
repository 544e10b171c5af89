#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "NewsroomKit/Feeds/FeedParser.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Ingestion/StoryConversion.h"

// Reads the feeds of the folder that BRELL_FEEDS names, or generated feeds. The bare pass measures
// the XML library alone on the same bytes.
namespace kit {
namespace {

std::string generatedFeed(int seed) {
    constexpr int items = 40;
    std::string feed =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><rss version=\"2.0\" "
        "xmlns:content=\"http://purl.org/rss/1.0/modules/content/\"><channel>"
        "<title>Harbour Notes</title>";
    for (int item = 0; item < items; ++item) {
        const auto number = std::to_string(seed * items + item);
        feed += "<item><title>Ferry " + number +
                " sails again &amp; the pier café opens</title>"
                "<link>https://harbour.example/" +
                number + "</link><guid>n-" + number +
                "</guid>"
                "<pubDate>Thu, 01 Oct 2026 08:30:00 GMT</pubDate><description>"
                "&lt;p&gt;The ferry is back.&lt;/p&gt;</description><content:encoded><![CDATA[";
        for (int paragraph = 0; paragraph < 12; ++paragraph) {
            feed +=
                "<p>After a long winter in the dock, the old ferry <a href=\"https://harbour."
                "example/ferry\">returned</a> to its route&nbsp;&mdash; to the delight of "
                "everybody who lives on the island.</p>\n";
        }
        feed += "]]></content:encoded></item>";
    }
    return feed + "</channel></rss>";
}

std::vector<std::string> loadFeeds() {
    std::vector<std::string> feeds;
    if (const char* folder = std::getenv("BRELL_FEEDS")) {
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
            std::ifstream stream(file.path(), std::ios::binary);
            feeds.emplace_back(std::istreambuf_iterator<char>(stream),
                               std::istreambuf_iterator<char>());
        }
    } else {
        for (int seed = 0; seed < 50; ++seed) feeds.push_back(generatedFeed(seed));
    }
    return feeds;
}

const std::vector<std::string>& feeds() {
    static const std::vector<std::string> loaded = loadFeeds();
    return loaded;
}

std::int64_t bytesPerPass() {
    std::int64_t bytes = 0;
    for (const auto& feed : feeds()) bytes += static_cast<std::int64_t>(feed.size());
    return bytes;
}

void barePass(const std::string& feed) {
    constexpr std::size_t chunkSize = 16 * 1024;
    static xmlSAXHandler handler = [] {
        xmlSAXHandler made{};
        made.initialized = XML_SAX2_MAGIC;
        made.startElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*, int,
                                 const xmlChar**, int, int, const xmlChar**) {};
        made.endElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
        made.characters = [](void*, const xmlChar*, int) {};
        made.ignorableWhitespace = made.characters;
        made.cdataBlock = made.characters;
        return made;
    }();
    auto* const context = xmlCreatePushParserCtxt(&handler, nullptr, nullptr, 0, nullptr);
    xmlCtxtUseOptions(context, XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
    for (std::size_t at = 0; at < feed.size(); at += chunkSize) {
        const auto size = std::min(chunkSize, feed.size() - at);
        xmlParseChunk(context, feed.data() + at, static_cast<int>(size), 0);
    }
    xmlParseChunk(context, nullptr, 0, 1);
    xmlFreeDoc(context->myDoc);
    context->myDoc = nullptr;
    xmlFreeParserCtxt(context);
}

void BareSAXPass(benchmark::State& state) {
    for (auto _ : state) {
        for (const auto& feed : feeds()) barePass(feed);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * bytesPerPass());
}
BENCHMARK(BareSAXPass)->Unit(benchmark::kMillisecond);

void ParseFeeds(benchmark::State& state) {
    for (auto _ : state) {
        for (const auto& feed : feeds()) benchmark::DoNotOptimize(parseFeed(feed));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * bytesPerPass());
}
BENCHMARK(ParseFeeds)->Unit(benchmark::kMillisecond);

/// Measures all steps from the bytes of a feed to its labelled stories.
void ParseConvertAndLabel(benchmark::State& state) {
    const NewsSource source{.id = "bench",
                            .name = "Bench",
                            .feedURL = "https://bench.example/feed",
                            .siteURL = "https://bench.example/"};
    const Instant now = parseISO8601("2026-11-20T12:00:00Z").value();
    CanonicalLinks links;
    const StoryConversion conversion(links);
    for (auto _ : state) {
        for (const auto& feed : feeds()) {
            if (const auto parsed = parseFeed(feed)) {
                benchmark::DoNotOptimize(conversion.stories(parsed.value().entries, source, now));
            }
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * bytesPerPass());
}
BENCHMARK(ParseConvertAndLabel)->Unit(benchmark::kMillisecond);

void ExcerptOfEveryEntry(benchmark::State& state) {
    std::vector<FeedEntry> entries;
    for (const auto& feed : feeds()) {
        if (auto parsed = parseFeed(feed)) {
            std::move(parsed.value().entries.begin(), parsed.value().entries.end(),
                      std::back_inserter(entries));
        }
    }
    for (auto _ : state) {
        for (const auto& entry : entries) {
            const auto& html = entry.summaryHTML.empty() ? entry.contentHTML : entry.summaryHTML;
            benchmark::DoNotOptimize(excerpt(html, 420));
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * entries.size()));
}
BENCHMARK(ExcerptOfEveryEntry)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kit

BENCHMARK_MAIN();
